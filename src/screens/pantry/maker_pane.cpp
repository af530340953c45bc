#include "screens/pantry/maker_pane.h"

#include <QPlainTextEdit>

#include "core/project_data.h"
#include "core/rows.h"
#include "core/string_storage.h"
#include "inventory/items.h"
#include "screens/pantry/form_fields.h"
#include "screens/parts/select_on_entry.h"
#include "screens/parts/shown_text.h"
#include "ui_maker_pane.h"

namespace tavernook {

namespace {

using Detail = ItemDetailRecord;

constexpr int lines_of_long_texts = 3;

// The line ends of a stored text are CR LF; an edited one gets them anew.
QString shown_lines(i16 row) {
    return shown_text(pooled_text(row)).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string typed_lines(const QPlainTextEdit& edit, i16 row) {
    QString typed = edit.toPlainText();
    if (typed == shown_lines(row)) return std::string(pooled_text(row));
    return typed_text(typed.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

}  // namespace

MakerPane::MakerPane(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::MakerPane>()) {
    ui_->setupUi(this);
    for (QLineEdit* line : {ui_->manufacturer, ui_->brand}) select_on_entry(*line);
    for (QPlainTextEdit* text : {ui_->description, ui_->notes}) {
        const int frame =
            2 * (text->frameWidth() + static_cast<int>(text->document()->documentMargin()));
        const int lines = text->fontMetrics().lineSpacing() * lines_of_long_texts;
        text->setMinimumHeight(lines + frame);
        text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
        select_on_entry(*text);
    }
}

MakerPane::~MakerPane() = default;

void MakerPane::add_fields(FormFields& fields) {
    const auto add_line = [&fields](QLineEdit* box, i16 Detail::*row) {
        fields.add_line(
            *box, [row](i16 item) { return shown_text(pooled_text(item_details[item].*row)); });
    };
    const auto add_lines = [&fields](QPlainTextEdit* box, i16 Detail::*row) {
        fields.add_lines(*box, [row](i16 item) { return shown_lines(item_details[item].*row); });
    };
    add_line(ui_->manufacturer, &Detail::manufacturer);
    add_line(ui_->brand, &Detail::brand);
    add_lines(ui_->description, &Detail::description);
    add_lines(ui_->notes, &Detail::notes);
}

void MakerPane::read(ItemValues& values, i16 item) const {
    const Detail& detail = row_or_none(item_details, item);
    values.manufacturer = typed_text(ui_->manufacturer->text());
    values.brand = typed_text(ui_->brand->text());
    values.description = typed_lines(*ui_->description, item == 0 ? i16{0} : detail.description);
    values.notes = typed_lines(*ui_->notes, item == 0 ? i16{0} : detail.notes);
}

std::vector<QWidget*> MakerPane::boxes_in_order() const {
    return {ui_->manufacturer, ui_->brand, ui_->description, ui_->notes};
}

}  // namespace tavernook
