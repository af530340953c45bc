#include "platform_qt/qt_boxes.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "platform_qt/dialog_parent.h"
#include "platform_qt/long_text.h"
#include "platform_qt/qt_text.h"

namespace tavernook {

namespace {

// Any line end, CR LF, CR or LF, breaks the line once.
QString shown_text(std::string_view text) {
    QString shown = text_to_qstring(text);
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

QMessageBox::StandardButtons standard_buttons(Buttons buttons) {
    switch (buttons) {
        case Buttons::yes_no:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::yes_no_cancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton button_of_escape(Buttons buttons) {
    switch (buttons) {
        case Buttons::yes_no:
            return QMessageBox::No;
        case Buttons::yes_no_cancel:
            return QMessageBox::Cancel;
        case Buttons::ok:
            break;
    }
    return QMessageBox::Ok;
}

Answer answer_of(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::yes;
        case QMessageBox::No:
            return Answer::no;
        case QMessageBox::Cancel:
            return Answer::cancel;
        default:
            return Answer::ok;
    }
}

void name_buttons(const QMessageBox& box) {
    const std::pair<QMessageBox::StandardButton, const char*> names[] = {
        {QMessageBox::Ok, "button_ok"},
        {QMessageBox::Yes, "button_yes"},
        {QMessageBox::No, "button_no"},
        {QMessageBox::Cancel, "button_cancel"}};
    for (const auto& [button, name] : names) {
        if (QAbstractButton* found = box.button(button)) {
            found->setObjectName(QLatin1String(name));
        }
    }
}

// The label has no buddy, so that an "&" in the prompt stays an "&".
QLabel* prompt_label(const QString& prompt, QWidget* parent) {
    auto* label = new QLabel(prompt, parent);
    label->setObjectName(QStringLiteral("input_prompt"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLineEdit* input_field(const QString& prompt, const QString& initial, QWidget* parent) {
    auto* field = new QLineEdit(initial, parent);
    field->setObjectName(QStringLiteral("input_field"));
    field->setAccessibleName(prompt);
    constexpr int comfortable_letters = 45;
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * comfortable_letters);
    field->selectAll();
    return field;
}

QDialogButtonBox* ok_and_cancel(QDialog* dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("button_ok"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("button_cancel"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

QWidget* prompt_part(const QString& prompt, QWidget* parent) {
    if (LongText::is_needed(prompt, *parent)) return new LongText(prompt, *parent);
    return prompt_label(prompt, parent);
}

// In the place of the label; Enter presses the same button as over a short text.
void let_text_scroll(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    delete box.layout()->replaceWidget(label, new LongText(box.text(), box));
    label->hide();
    if (box.defaultButton() != nullptr) return;
    const bool asks = box.button(QMessageBox::Yes) != nullptr;
    box.setDefaultButton(asks ? QMessageBox::Yes : QMessageBox::Ok);
}

// A scanner that is a keyboard types on while a box stands open. With the first digit a code has
// begun; its end and its letters answer nothing.
class CodeFilter : public QObject {
  public:
    explicit CodeFilter(QMessageBox& box) : QObject(&box) {
        box.installEventFilter(this);
        for (auto* part : box.findChildren<QWidget*>()) part->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == QEvent::KeyPress && swallows(static_cast<QKeyEvent&>(*event));
    }

  private:
    bool swallows(const QKeyEvent& key) {
        constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
        if ((key.modifiers() & commands) != Qt::NoModifier) return false;
        const bool is_end =
            key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Tab;
        if (is_end) return std::exchange(has_begun_, false);
        const QString text = key.text();
        if (text.size() != 1) return false;
        if (text[0].isDigit()) has_begun_ = true;
        return has_begun_ && text[0].isLetterOrNumber();
    }

    bool has_begun_ = false;
};

// Both boxes live on the heap: the window under them may go, and take them along, while they ask.
Answer ask(QMessageBox::Icon icon, std::string_view text, Buttons buttons, std::string_view title,
           DefaultButton default_button) {
    const QPointer<QMessageBox> box = new QMessageBox(icon, text_to_qstring(title), QString(),
                                                      standard_buttons(buttons), dialog_parent());
    box->setObjectName(QStringLiteral("message_box"));
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setText(shown_text(text));
    box->setAccessibleName(box->windowTitle());
    box->setAccessibleDescription(box->text());
    box->setEscapeButton(button_of_escape(buttons));
    if (default_button == DefaultButton::no) box->setDefaultButton(QMessageBox::No);
    name_buttons(*box);
    if (LongText::is_needed(box->text(), *box)) let_text_scroll(*box);
    new CodeFilter(*box);
    const int pressed = box->exec();
    if (box.isNull()) return answer_of(button_of_escape(buttons));
    delete box;
    return answer_of(pressed);
}

}  // namespace

Answer QtBoxes::message(std::string_view text, Buttons buttons, std::string_view title,
                        DefaultButton default_button) {
    const auto icon = buttons == Buttons::ok ? QMessageBox::Information : QMessageBox::Question;
    return ask(icon, text, buttons, title, default_button);
}

void QtBoxes::warning(std::string_view text, std::string_view title) {
    ask(QMessageBox::Warning, text, Buttons::ok, title, DefaultButton::first);
}

Answer QtBoxes::critical(std::string_view text, Buttons buttons, std::string_view title,
                         DefaultButton default_button) {
    return ask(QMessageBox::Critical, text, buttons, title, default_button);
}

bool QtBoxes::is_open() {
    return QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr;
}

std::optional<std::string> QtBoxes::input(std::string_view prompt, std::string_view title,
                                          std::string_view initial) {
    const QPointer<QDialog> box = new QDialog(dialog_parent());
    box->setObjectName(QStringLiteral("input_box"));
    box->setWindowTitle(text_to_qstring(title));
    const QString shown_prompt = shown_text(prompt);
    box->setAccessibleName(box->windowTitle());
    box->setAccessibleDescription(shown_prompt);
    auto* field = input_field(shown_prompt, text_to_qstring(initial), box);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(prompt_part(shown_prompt, box));
    layout->addWidget(field);
    layout->addWidget(ok_and_cancel(box));
    field->setFocus();
    const bool accepted = box->exec() == QDialog::Accepted;
    if (box.isNull()) return std::nullopt;
    std::optional<std::string> answer;
    if (accepted) answer = qstring_to_text(field->text());
    delete box;
    return answer;
}

}  // namespace tavernook
