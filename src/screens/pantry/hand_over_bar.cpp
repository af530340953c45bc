#include "screens/pantry/hand_over_bar.h"

#include <QKeyEvent>

#include "screens/pantry/hand_over.h"
#include "screens/parts/guard.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/quantity_box.h"
#include "ui_hand_over_bar.h"

namespace tavernook {

namespace {

const char* label_of(i16 mode) {
    switch (mode) {
        case HandOverBar::Mode::adds_to_recipe:
            return "Add Item to Meal";
        case HandOverBar::Mode::adds_to_day:
            return "Add Item to Day";
        default:
            return "Add Item to ...";
    }
}

const char* tip_of(i16 mode) {
    switch (mode) {
        case HandOverBar::Mode::adds_to_recipe:
            return "Adds this item to the recipe.";
        case HandOverBar::Mode::adds_to_day:
            return "Adds this item to the planned day.";
        case HandOverBar::Mode::sets_quantity_in_recipe:
            return "Sets the quantity of this item in the recipe.";
        default:
            return "Puts this item on the shopping list.";
    }
}

}  // namespace

HandOverBar::HandOverBar(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::HandOverBar>()) {
    ui_->setupUi(this);
    ui_->quantity_to_add->installEventFilter(this);
    connect(ui_->add_item, &QPushButton::clicked, this, &HandOverBar::handed_over);
    connect(ui_->quantity_to_add, &QLineEdit::textChanged, this, &HandOverBar::tell_amount);
}

HandOverBar::~HandOverBar() = default;

void HandOverBar::set_mode(i16 mode) {
    mode_ = mode;
    if (mode != Mode::returns_nowhere) ui_->quantity_to_add->clear();
    ui_->add_item->setText(QLatin1String(label_of(mode)));
    ui_->add_item->setToolTip(tr(tip_of(mode)));
    ui_->add_item->setAccessibleDescription(ui_->add_item->toolTip());
    const bool wants_amount = mode != Mode::adds_to_shopping_list;
    ui_->quantity_to_add_label->setVisible(wants_amount);
    ui_->quantity_to_add->setVisible(wants_amount);
    setVisible(mode != Mode::returns_nowhere);
    tell_amount();
}

void HandOverBar::set_item(i16 item) {
    item_ = item;
    ui_->add_item->setEnabled(item != 0);
    tell_amount();
}

// To the eye and to the ear; the list to buy works out amounts by itself.
void HandOverBar::tell_amount() noexcept {
    quietly([this] {
        const bool counts = mode_ != Mode::adds_to_shopping_list;
        const QString line = counts ? servings_text(item_, ui_->quantity_to_add->value())
                                    : tr("The shopping list works out how much to buy.");
        ui_->amount_line->setText(line);
        ui_->amount_line->setToolTip(line);
        if (ui_->quantity_to_add->readable()) ui_->quantity_to_add->setAccessibleDescription(line);
    });
}

f64 HandOverBar::amount() {
    if (ui_->quantity_to_add->text().isEmpty()) {
        ui_->quantity_to_add->setText(QStringLiteral("0"));
    }
    return ui_->quantity_to_add->value();
}

bool HandOverBar::stays_open() const {
    return ui_->keep_window_open->isChecked();
}

void HandOverBar::go_to_amount() {
    const bool wants_amount = !ui_->quantity_to_add->isHidden();
    (wants_amount ? static_cast<QWidget*>(ui_->quantity_to_add) : ui_->add_item)
        ->setFocus(Qt::TabFocusReason);
}

std::vector<QWidget*> HandOverBar::boxes_in_order() const {
    return {ui_->quantity_to_add, ui_->add_item, ui_->keep_window_open};
}

bool HandOverBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (plain && is_enter(key)) {
            ui_->add_item->click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tavernook
