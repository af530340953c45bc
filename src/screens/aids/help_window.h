// The window of the help, beside the others and never in their way: the contents, the index and the
// full-text search on one side, the page on the other. All by keyboard: F6 goes from part to part,
// Esc closes what was opened last. Its place, its size and the size of its text are remembered.
#pragma once

#include <QMainWindow>
#include <QUrl>
#include <memory>

class QModelIndex;
class QSortFilterProxyModel;

namespace tavernook {

class HelpBook;
class HelpSearch;

namespace Ui {
class HelpWindow;
}

class HelpWindow : public QMainWindow {
    Q_OBJECT

  public:
    // The book is open and outlives the window.
    explicit HelpWindow(HelpBook& book);
    ~HelpWindow() override;

    // Each brings the window up, in front of what is there. One that is modal has it beside itself.
    void show_contents();
    void show_search();
    void show_page(const QUrl& page);

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void connect_toolbar();
    void connect_contents();
    void connect_index();
    void connect_search();
    void connect_find_bar();
    void connect_keys();

    void come_up();
    void restore();
    void go_to_next_part();
    void close_last_opened();
    QWidget& part_in_front() const;  // of the tab in front
    void show_where(const QUrl& page);
    void mark_in_contents(const QModelIndex& parent, const QUrl& page);

    void search();
    void open_hit(int row);
    void open_word(const QModelIndex& word);
    void open_find_bar();
    void find_in_page(bool backwards);

    HelpBook& book_;
    std::unique_ptr<Ui::HelpWindow> ui_;
    std::unique_ptr<HelpSearch> search_;
    QSortFilterProxyModel* words_;
    bool restored_ = false;
};

}  // namespace tavernook
