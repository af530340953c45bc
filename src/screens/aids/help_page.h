// A page of the help on show. Its links lead to other pages and nowhere else.
#pragma once

#include <QTextBrowser>

namespace tavernook {

class HelpBook;

class HelpPage : public QTextBrowser {
    Q_OBJECT

  public:
    explicit HelpPage(QWidget* parent = nullptr);

    // Open, and there as long as pages are shown.
    void read_from(const HelpBook& book) { book_ = &book; }

    // In points more or less than the text of the desktop.
    void set_text_step(int step);
    int text_step() const { return step_; }

    // Selects the next place, from the selected one on and around the end of the page; false where
    // the page has none.
    bool select_next(const QString& words, bool backwards = false);

  protected:
    QVariant loadResource(int type, const QUrl& url) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    const HelpBook* book_ = nullptr;
    qreal normal_points_;
    int step_ = 0;
};

}  // namespace tavernook
