// A box to type into or to choose from, for the looks of a text: it shows what is there, and asks
// for a change only when the user has chosen.
#pragma once

#include <QComboBox>
#include <functional>

namespace tavernook {

class ChoiceBox : public QComboBox {
    Q_OBJECT

  public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    // Gives the choices when they are needed for the first time.
    void fill_later(std::function<QStringList()> choices) { choices_ = std::move(choices); }

    // Not while the user is typing.
    void show_choice(const QString& text);

  Q_SIGNALS:
    // `done`: the user's hands are free for the text again.
    void chosen(const QString& text, bool done);
    // Left without a choice; what was typed counts for nothing.
    void left(bool by_escape);

  protected:
    void showPopup() override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void fill();

    std::function<QStringList()> choices_;
    QString shown_;
    bool from_popup_ = false;
};

}  // namespace tavernook
