// What comes into the planner from outside: scanned and typed codes, and what is dropped.
#include <QComboBox>
#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTreeView>

#include "barcodes/scanned_code.h"
#include "barcodes/scanners.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "planning/day_plans.h"
#include "platform/platform.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/shown_text.h"
#include "screens/planner/MealPlan.h"
#include "screens/planner/calendar_grid.h"
#include "ui_MealPlan.h"

namespace tavernook {

namespace {

constexpr int year_letters = 4;

bool is_part_of_letter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Shift || key.key() == Qt::Key_CapsLock;
}

// A list that the keys come to has a row for them to work on.
void mark_first_row(QObject* watched) {
    auto* list = qobject_cast<QTreeView*>(watched);
    if (list == nullptr || list->selectionModel()->hasSelection()) return;
    list->setCurrentIndex(list->model()->index(0, 0));
}

// The one character that the key writes; null for every other key.
QChar written(const QKeyEvent& key) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = key.text();
    const bool one = text.size() == 1 && (key.modifiers() & commands) == Qt::NoModifier;
    return one && text[0].isPrint() && !text[0].isSpace() ? text[0] : QChar();
}

// A recipe or an item as its row is dragged: "m" or "i" and its number.
struct Dragged {
    bool is_recipe = false;
    i16 number = 0;  // 0 = neither
};

Dragged dragged(const QString& text) {
    bool readable = false;
    const int number = text.mid(1).toInt(&readable);
    const bool recipe = text.startsWith(QLatin1Char('m'));
    if (!readable || (!recipe && !text.startsWith(QLatin1Char('i')))) return {};
    if (number < 1 || number > (recipe ? meal_capacity : item_capacity)) return {};
    const i16 slot = to_i16(number);
    const bool live = recipe ? meals[slot].in_use == 1 : items[slot].in_use == 1;
    return {recipe, live ? slot : i16{0}};
}

// How much of it the day holds now.
f64 planned_quantity(bool is_recipe, i16 number) {
    const i16 place =
        is_recipe ? check_for_existing_meal_index(number) : find_day_item(number, current_day);
    if (place == 0) return 0;
    const DayQuantityRecord& quantities = day_quantities[current_day];
    const auto at = static_cast<std::size_t>(place);
    return is_recipe ? quantities.meal_servings[at] : quantities.item_quantity[at];
}

}  // namespace

// --- keys --------------------------------------------------------------------------------------

bool MealPlan::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->lv2->viewport()) return drag_over_list(*event);
    if (watched == ui_->Toolbar2 && event->type() == QEvent::FontChange) fit_day_commands();
    if (event->type() == QEvent::Resize) {
        const auto& resize = *static_cast<QResizeEvent*>(event);
        const bool wider = resize.size().width() != resize.oldSize().width();
        if (watched == ui_->Label4 && wider) keep_caption_whole();
        if (watched == ui_->Toolbar2 && wider) fit_day_commands();
        return false;
    }
    // The wheel changes no month or year that the pointer happens to pass.
    const bool chooser = watched == ui_->Combo1 || watched == ui_->FlatScrollBar2;
    if (chooser && event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::FocusIn) {
        year_digits_.clear();
        ui_->Text2->clear();
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
            mark_first_row(watched);
        }
    }
    const bool key = event->type() == QEvent::KeyPress;
    return (key && key_pressed(*watched, *static_cast<QKeyEvent*>(event))) ||
           QWidget::eventFilter(watched, event);
}

// True when the key has done its work.
bool MealPlan::key_pressed(QObject& watched, const QKeyEvent& key) {
    if (&watched == ui_->Text1) return entry_key(key);
    if (&watched == ui_->calendar_grid) {
        if (calendar_key(key)) return true;
        if (is_enter(key)) {
            ui_->Toolbar2_1->trigger();
            return true;
        }
    }
    return scanner_key(static_cast<QWidget&>(watched), key);
}

// The keys of the calendar as long as the box is empty; with a text in it they edit that.
bool MealPlan::entry_key(const QKeyEvent& key) {
    const bool empty = ui_->Text1->text().isEmpty();
    if (is_enter(key) || (key.key() == Qt::Key_Tab && !empty)) {
        run([this] { take_entry(); });
        return true;
    }
    if (key.key() == Qt::Key_Escape && !empty) {
        ui_->Text1->clear();
        ui_->Text2->clear();
        return true;
    }
    const bool moves = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down ||
                       key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
    return (empty || moves) && calendar_key(key);
}

// A scanner types wherever the focus is. Digits and the full stop, with which the codes of some
// devices begin, go to the entry box from everywhere. Letters find rows in lists; those that may
// be the beginning of a recipe's code are kept besides, until the number comes.
bool MealPlan::scanner_key(QWidget& at, const QKeyEvent& key) {
    if (&at == ui_->FlatScrollBar2) return year_key(key);
    const QChar letter = written(key);
    if (letter.isNull()) {
        if (!is_part_of_letter(key)) ui_->Text2->clear();
        return false;
    }
    const bool finds_rows = qobject_cast<QAbstractItemView*>(&at) != nullptr || &at == ui_->Combo1;
    if (!finds_rows || letter.isDigit() || letter == QLatin1Char('.')) {
        start_entry(letter);
        return true;
    }
    const QString prefix = QStringLiteral("tvk");
    const QString held = ui_->Text2->text() + letter;
    const bool fits = prefix.startsWith(held, Qt::CaseInsensitive);
    const bool starts = prefix.startsWith(letter, Qt::CaseInsensitive);
    ui_->Text2->setText(fits ? held : starts ? QString(letter) : QString());
    return false;
}

// The fifth digit tells a code from a year; a letter does at once.
bool MealPlan::year_key(const QKeyEvent& key) {
    const QChar letter = written(key);
    if (letter.isNull()) {
        if (!is_part_of_letter(key)) year_digits_.clear();
        return false;
    }
    year_digits_ += letter;
    if (letter.isDigit() && year_digits_.size() <= year_letters) return false;
    const QString code = year_digits_;
    ui_->FlatScrollBar2->findChild<QLineEdit*>()->setText(QString::number(month_.year()));
    start_entry(code);
    return true;
}

void MealPlan::start_entry(const QString& text) {
    const QString held = ui_->Text2->text();
    ui_->Text1->setFocus(Qt::OtherFocusReason);
    ui_->Text2->setText(held);
    ui_->Text1->setText(text);
}

// --- codes -------------------------------------------------------------------------------------

void MealPlan::take_entry() {
    if (scanner_type == batch_scanner) return;
    ui_->Text2->setText(ui_->Text2->text() + ui_->Text1->text());
    std::string line(trim(typed_text(ui_->Text2->text())));
    ui_->Text1->clear();
    ui_->Text2->clear();
    if (scanner_type == no_scanner) {
        line = boxes().input("Enter Barcode", "Barcode Entry", line).value_or("");
    }
    if (trim(line).empty()) return;
    const std::string code = code_in_line(line);
    if (code.empty()) return say(tr("No barcode could be read. Please scan again."));
    plan_code(code);
}

void MealPlan::plan_code(const std::string& code) {
    if (!may_plan()) return;
    const ScannedCode meaning = meaning_of_code(code);
    if (!meaning.known()) {
        return say(tr("No recipe and no item has the barcode %1.").arg(shown_text(trim(code))));
    }
    plan_entry(meaning.recipe != 0, meaning.recipe != 0 ? meaning.recipe : meaning.item, 1.0);
}

void MealPlan::plan_entry(bool is_recipe, i16 number, f64 quantity) {
    if (!may_plan()) return;
    if (is_recipe) {
        tavernook::add_meal(number, quantity);
    } else {
        tavernook::Add_Item(number, quantity);
    }
    say_planned(is_recipe, number);
}

void MealPlan::say_planned(bool is_recipe, i16 number) {
    const QString name = is_recipe ? recipe_name(number) : item_name(number);
    const QString unit = is_recipe ? recipe_unit(number) : serving_unit(number);
    const QString quantity = shown_text(number_text(planned_quantity(is_recipe, number)));
    const QString amount = unit.isEmpty() ? quantity : quantity + QLatin1Char(' ') + unit;
    say(tr("%1 is planned on %2: %3 now.").arg(name, spoken_date(selected_date()), amount));
}

// --- dropping ----------------------------------------------------------------------------------

// On the dates of audited days it is refused.
bool MealPlan::may_drop(const QDate& date, const QString& text) {
    if (busy_ || dragged(text).number == 0) return false;
    for (const i16 slot : live_days_of(civil_date_of(date))) {
        if (days[slot].audited == 0) continue;
        say(tr("%1 is audited. Nothing can be dropped on it.").arg(spoken_date(date)));
        return false;
    }
    return true;
}

void MealPlan::drop(const QString& text) {
    const Dragged entry = dragged(text);
    if (entry.number != 0) plan_entry(entry.is_recipe, entry.number, 1.0);
}

bool MealPlan::drag_over_list(QEvent& event) {
    const bool drop_now = event.type() == QEvent::Drop;
    const bool over = event.type() == QEvent::DragEnter || event.type() == QEvent::DragMove;
    if (!drop_now && !over) return false;
    auto& dragging = static_cast<QDropEvent&>(event);
    const QString text = dragging.mimeData()->text();
    const bool fits = may_drop(selected_date(), text);
    dragging.setAccepted(fits);
    if (drop_now && fits) run([&] { drop(text); });
    return true;
}

}  // namespace tavernook
