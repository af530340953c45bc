#include "screens/cookbook/figures_pane.h"

#include <QEvent>
#include <utility>

#include "core/project_data.h"
#include "core/rows.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/name_boxes.h"
#include "screens/parts/quantity_box.h"
#include "screens/parts/shown_text.h"
#include "ui_figures_pane.h"

namespace tavernook {

namespace {

constexpr int unit_letters = 12;

}  // namespace

FiguresPane::FiguresPane(QWidget* parent)
    : QGroupBox(parent),
      ui_(laid_out<Ui::FiguresPane>(*this)),
      unit_names_(new QStringListModel(this)) {
    QComboBox& unit = *ui_->serving_unit;
    unit.setModel(unit_names_);
    unit.lineEdit()->setMaxLength(unit_letters);
    unit.setFocusPolicy(Qt::StrongFocus);
    unit.installEventFilter(this);
    const auto tell = [this] {
        if (is_edited()) Q_EMIT serving_entered();
    };
    connect(ui_->serving_size, &QLineEdit::editingFinished, this, tell);
    connect(unit.lineEdit(), &QLineEdit::editingFinished, this, tell);
    connect(&unit, &QComboBox::activated, this, tell);
}

FiguresPane::~FiguresPane() = default;

void FiguresPane::show_recipe(const RollUp& figures, f64 serving_size, i16 unit) {
    show_figures(figures);
    ui_->serving_size->set_number(serving_size);
    show_unit(shown_text(row_or_none(units, unit).name.trimmed()));
}

void FiguresPane::show_nothing() {
    show_figures({});
    ui_->serving_size->set_blank();
    show_unit({});
}

void FiguresPane::show_unit(const QString& unit) {
    shown_unit_ = unit;
    show_name(*ui_->serving_unit, unit);
}

void FiguresPane::show_figures(const RollUp& figures) {
    const std::pair<QLabel*, const std::string*> labels[] = {
        {ui_->calories_caption, &figures.calories_caption},
        {ui_->fat_caption, &figures.fat_caption},
        {ui_->cost_caption, &figures.cost_caption},
        {ui_->calories_per_serving, &figures.calories_per_serving},
        {ui_->fat_per_serving, &figures.fat_per_serving},
        {ui_->cost_per_serving, &figures.cost_per_serving},
        {ui_->total_calories, &figures.total_calories},
        {ui_->total_fat, &figures.total_fat},
        {ui_->total_cost, &figures.total_cost}};
    for (const auto& [label, text] : labels) label->setText(shown_text(*text));
}

void FiguresPane::offer_units() {
    change_list(*unit_names_, live_names(units), {ui_->serving_unit});
}

bool FiguresPane::is_edited() const {
    return typed_size().has_value() || typed_unit().has_value();
}

std::optional<f64> FiguresPane::typed_size() const {
    if (!ui_->serving_size->touched()) return std::nullopt;
    return ui_->serving_size->value();
}

std::optional<QString> FiguresPane::typed_unit() const {
    const QString text = ui_->serving_unit->currentText();
    if (text == shown_unit_) return std::nullopt;
    return text;
}

std::vector<QWidget*> FiguresPane::parts_in_order() const {
    return {ui_->serving_size, ui_->serving_unit};
}

// The wheel scrolls; it never changes a box that the pointer happens to pass.
bool FiguresPane::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel) return QGroupBox::eventFilter(watched, event);
    event->ignore();
    return true;
}

}  // namespace tavernook
