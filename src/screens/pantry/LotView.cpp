#include "screens/pantry/LotView.h"

#include <QHeaderView>
#include <QMenu>
#include <algorithm>
#include <optional>
#include <utility>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/parts/date_popup.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "ui_LotView.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 120;

// "[*]" in a name is no placeholder for a mark of changes.
QString caption_of(i16 item) {
    QString name = shown_text(row_or_none(items, item).name.right_trimmed());
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    return QLatin1String("Lot View - ") + name;
}

void say_gone() {
    say(LotView::tr("The item has been deleted; nothing was changed."));
}

// The item's stock is the sum of its lots; an item that has gone meanwhile has none to change.
void change_lots(const RowRef& held, const std::function<void(i16 item)>& work) {
    const i16 item = held.now();
    if (item == 0) return say_gone();
    ensure_lot_record(item);
    const LotRecord before = lots[item];
    work(item);
    items[item].quantity = lot_total(item);
    if (!(lots[item] == before)) project_modified = i16_true;
}

}  // namespace

void show_lot_view(i16 item) {
    if (auto* screen = qobject_cast<LotView*>(load_screen(QStringLiteral("LotView")))) {
        screen->set_index(item);
        show_screen(QStringLiteral("LotView"));
    }
}

LotView::LotView(QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::LotView>()),
      model_(new RowsModel(lots_shown_.columns(), this)),
      calendar_(new DatePopup(*this, {"calendar_box", "calendar"})) {
    ui_->setupUi(this);
    ui_->content->setMaximumWidth(letters_wide(*this, comfortable_letters));
    calendar_->set_heading(tr("Calendar"));
    set_up_list();
    connect_commands();
    enter_presses_buttons(*this);
    setFocusProxy(ui_->lot_list);
    update_commands();
}

LotView::~LotView() = default;

void LotView::set_up_list() {
    model_->set_key([](RowId row) { return QStringLiteral("l%1").arg(LotRows::place_of(row)); });
    dress_list(*ui_->lot_list);
    ui_->lot_list->setModel(model_);
    ui_->lot_list->setAccessibleName(tr("Lots"));
    QHeaderView* header = ui_->lot_list->header();
    header->setStretchLastSection(true);
    const std::pair<int, int> widths[] = {{LotRows::name, 14},
                                          {LotRows::created, 12},
                                          {LotRows::quantity, 15},
                                          {LotRows::expires, 12}};
    for (const auto& [column, letters] : widths) {
        header->resizeSection(column, letters_wide(*this, letters));
    }
}

void LotView::connect_commands() {
    bind(ui_->lot_delete, ui_->delete_button, &LotView::DeleteLot);
    bind(ui_->lot_quantity, ui_->quantity_button, &LotView::ModQuantity);
    bind(ui_->lot_creation, ui_->creation_button, &LotView::ModCreationDate);
    bind(ui_->lot_expiration, ui_->expiration_button, &LotView::ModExpirationDate);
    bind(ui_->lot_current, ui_->current_button, &LotView::set_current);
    on_command(ui_->close_button, [this] { close_screen(*this); });
    connect(ui_->lot_list, &QTreeView::activated, ui_->lot_quantity, &QAction::trigger);
    connect(ui_->lot_list, &QTreeView::customContextMenuRequested, this, &LotView::show_popup);
    connect(ui_->lot_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LotView::update_commands);
    connect(calendar_, &DatePopup::picked, this,
            [this](const QDate& day) { run([&] { take_date(day); }); });
    on_keys(*ui_->lot_list, Qt::Key_F2, [this] { ui_->lot_quantity->trigger(); });
    on_keys(*ui_->lot_list, QKeySequence::Delete, [this] { ui_->lot_delete->trigger(); });
    on_keys(*this, QKeySequence::Refresh, [this] { run([this] { fill_list(); }); });
    on_keys(*this, Qt::Key_Escape, [this] { escape(); });
}

void LotView::bind(QAction* action, QPushButton* button, void (LotView::*command)()) {
    action->setToolTip(button->toolTip());
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::triggered, this, [this, command] { (this->*command)(); });
}

// --- what is shown ---------------------------------------------------------------------------

void LotView::set_index(i16 item) {
    item_ = RowRef(Subject::items, item);
    calendar_->hide();
    populate_list();
    quietly([this] { select_place(lots[item_.now()].current_lot); });
}

void LotView::populate_list() {
    guarded([this] { fill_list(); });
}

// What cannot be shown is told once, not at the end of every step.
void LotView::fill_list() {
    seen_.renew();
    const i16 item = item_.now();
    setWindowTitle(caption_of(item));
    if (item != 0) ensure_lot_record(item);
    lots_shown_.read(item);
    refill_in_place(*ui_->lot_list, *model_, lots_shown_.rows());
    show_total(item);
}

void LotView::show_total(i16 item) {
    if (item == 0) return ui_->total_label->setText(tr("This item has been deleted."));
    const auto& quantities = lots[item].lot_quantity;
    const auto filled = lot_places - std::count(quantities.begin(), quantities.end(), 0.0);
    QString total = shown_text(number_text(lot_total(item)));
    const UnitRecord& unit = row_or_none(units, items[item].qty_units);
    if (!unit.name.blank()) total += QLatin1Char(' ') + shown_text(unit.name.right_trimmed());
    ui_->total_label->setText(filled == 1 ? tr("In stock: %1, in one lot").arg(total)
                              : filled == 0
                                  ? tr("Nothing in stock.")
                                  : tr("In stock: %1, in %2 lots").arg(total).arg(filled));
}

void LotView::follow_changes() {
    if (!seen_.is_stale()) return;
    if (item_.now() == 0) calendar_->hide();
    fill_list();
}

void LotView::update_commands() {
    const bool any = selected_place() >= 0;
    for (QAction* action : ui_->LotviewpOP->actions()) action->setEnabled(any);
    for (QPushButton* button : {ui_->quantity_button, ui_->creation_button, ui_->expiration_button,
                                ui_->current_button, ui_->delete_button}) {
        button->setEnabled(any);
    }
}

i16 LotView::selected_place() const {
    const std::vector<RowId> rows = selected_rows(*ui_->lot_list, *model_);
    return LotRows::place_of(rows.empty() ? no_row : rows.front());
}

void LotView::select_place(i16 place) {
    select_row(*ui_->lot_list, *model_, LotRows::row_of(place));
}

// --- commands --------------------------------------------------------------------------------

void LotView::on_selected_lot(const std::function<void(i16 place)>& command) {
    run([&] {
        const i16 place = selected_place();
        if (place >= 0) command(place);
    });
}

void LotView::DeleteLot() {
    on_selected_lot(
        [this](i16 place) { change_lots(item_, [place](i16 item) { delete_lot(item, place); }); });
}

void LotView::set_current() {
    on_selected_lot([this](i16 place) {
        change_lots(item_, [place](i16 item) { set_current_lot(item, place); });
    });
}

void LotView::ModQuantity() {
    on_selected_lot([this](i16 place) { ask_quantity(place); });
}

// Behind the box neither the item nor the screen need be there any more.
void LotView::ask_quantity(i16 place) {
    const RowRef held = item_;
    if (held.now() == 0) return say_gone();
    const f64 present = lots[held.now()].lot_quantity[static_cast<std::size_t>(place)];
    const std::optional<std::string> typed =
        boxes().input("Type new Quantity", "Modify Quantity", number_text(present));
    if (!typed) return;
    const std::optional<f64> quantity = typed_number(*typed);
    if (!quantity) return say("\"" + *typed + "\" is not a number; the lot keeps its quantity.");
    if (*quantity < 0) return say(*typed + " is less than 0; the lot keeps its quantity.");
    change_lots(held, [&](i16 item) { set_lot_quantity(item, *quantity, place); });
}

void LotView::ModCreationDate() {
    on_selected_lot([this](i16 place) { ask_date(EditedDate::creation, place); });
}

void LotView::ModExpirationDate() {
    on_selected_lot([this](i16 place) { ask_date(EditedDate::expiration, place); });
}

void LotView::ask_date(EditedDate which, i16 place) {
    if (item_.now() == 0) return say_gone();
    edited_date_ = which;
    const bool creation = which == EditedDate::creation;
    const QModelIndex row = model_->index(model_->place_of(LotRows::row_of(place)), LotRows::name);
    const QString lot = row.data().toString();
    const int column = creation ? LotRows::created : LotRows::expires;
    QRect cell = ui_->lot_list->visualRect(row.siblingAtColumn(column));
    cell.translate(ui_->lot_list->viewport()->pos());
    calendar_->ask(
        *ui_->lot_list, cell,
        creation ? tr("Creation date of %1").arg(lot) : tr("Expiration date of %1").arg(lot));
}

void LotView::take_date(const QDate& day) {
    const i16 place = selected_place();
    if (place < 0) return;
    const Date date = date_of(day);
    change_lots(item_, [&](i16 item) {
        LotRecord& record = lots[item];
        auto& dates =
            edited_date_ == EditedDate::creation ? record.creation_date : record.expiration_date;
        dates[static_cast<std::size_t>(place)] = date;
    });
}

// What was opened last goes first.
void LotView::escape() {
    if (calendar_->isVisible()) {
        calendar_->hide();
    } else {
        run([this] { close_screen(*this); });
    }
}

void LotView::show_popup(const QPoint& place) {
    if (selected_place() < 0) return;
    ui_->LotviewpOP->popup(ui_->lot_list->viewport()->mapToGlobal(place));
}

}  // namespace tavernook
