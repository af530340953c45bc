#include "screens/pantry/form_fields.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "screens/parts/name_boxes.h"
#include "screens/parts/quantity_box.h"

namespace tavernook {

void FormFields::Kept::show(i16 record) {
    field.show(record);
    shown = field.text();
}

void FormFields::add(Field field) {
    const QString shown = field.text();
    fields_.push_back({std::move(field), shown});
}

void FormFields::add_number(QuantityBox& box, const char* mask, std::function<f64(i16)> read) {
    const auto show = [this, &box, mask, read = std::move(read)](i16 record) {
        if (is_anew_ || record == 0) box.set_blank();
        if (record != 0) box.set_value(read(record), mask);
    };
    add({show, [&box] { return box.text(); }});
}

// From the beginning, however long it is.
void FormFields::add_line(QLineEdit& box, std::function<QString(i16)> read) {
    const auto show = [this, &box, read = std::move(read)](i16 record) {
        const QString text = record == 0 ? QString() : read(record);
        if (!is_anew_ && box.text() == text) return;
        box.setText(text);
        box.setCursorPosition(0);
    };
    add({show, [&box] { return box.text(); }});
}

void FormFields::add_lines(QPlainTextEdit& box, std::function<QString(i16)> read) {
    const auto show = [this, &box, read = std::move(read)](i16 record) {
        const QString text = record == 0 ? QString() : read(record);
        if (is_anew_ || box.toPlainText() != text) box.setPlainText(text);
    };
    add({show, [&box] { return box.toPlainText(); }});
}

void FormFields::add_name(QComboBox& box, std::function<QString(i16)> read) {
    const auto show = [this, &box, read = std::move(read)](i16 record) {
        const QString name = record == 0 ? QString() : read(record);
        if (is_anew_ || box.currentText() != name) show_name(box, name);
    };
    add({show, [&box] { return box.currentText(); }});
}

void FormFields::show(i16 record) {
    const QScopedValueRollback anew(is_anew_, true);
    for (Kept& field : fields_) field.show(record);
}

void FormFields::follow(i16 record) {
    for (Kept& field : fields_) {
        if (!field.is_touched()) field.show(record);
    }
}

bool FormFields::is_edited() const {
    return std::any_of(fields_.begin(), fields_.end(),
                       [](const Kept& field) { return field.is_touched(); });
}

}  // namespace tavernook
