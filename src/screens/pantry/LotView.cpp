#include "screens/pantry/LotView.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QHeaderView>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <utility>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "inventory/shown_quantity.h"
#include "platform/platform.h"
#include "screens/pantry/lots_model.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "ui_LotView.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 120;

QDate today() {
    const CivilDate now = civil_from_date(platform_clock().now());
    return {now.year, now.month, now.day};
}

// "[*]" in a name is no placeholder for a mark of changes.
QString caption_of(i16 item) {
    QString name = shown_text(items[item].name.right_trimmed());
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    return QLatin1String("Lot View - ") + name;
}

// Under the cell, or above it, wholly on the screen.
QPoint place_beside(const QWidget& list, const QRect& cell, const QSize& size) {
    const QRect screen = list.screen()->availableGeometry();
    QPoint place = list.mapToGlobal(cell.bottomLeft());
    if (place.y() + size.height() > screen.bottom()) {
        place.setY(list.mapToGlobal(cell.topLeft()).y() - size.height());
    }
    const int furthest = std::max(screen.left(), screen.right() - size.width());
    return {std::clamp(place.x(), screen.left(), furthest), std::max(place.y(), screen.top())};
}

}  // namespace

void show_lot_view(i16 item) {
    if (auto* screen = qobject_cast<LotView*>(load_screen(QStringLiteral("LotView")))) {
        screen->set_index(item);
        show_screen(QStringLiteral("LotView"));
    }
}

LotView::LotView(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::LotView>()),
      model_(new LotsModel(this)),
      sorted_(sorted_rows_of(*model_, this)) {
    ui_->setupUi(this);
    ui_->content->setMaximumWidth(letters_wide(*this, comfortable_letters));
    set_up_list();
    set_up_calendar();
    connect_commands();
    enter_presses_buttons(*this);
    setFocusProxy(ui_->lot_list);
    follow_selection();
}

// The focus may still move while the parts go.
LotView::~LotView() {
    disconnect(qApp, nullptr, this, nullptr);
}

void LotView::set_up_list() {
    sorted_->setSortRole(LotsModel::sort_role);
    dress_list(*ui_->lot_list);
    ui_->lot_list->setModel(sorted_);
    ui_->lot_list->setAccessibleName(tr("Lots"));
    QHeaderView* header = ui_->lot_list->header();
    header->setStretchLastSection(true);
    const std::pair<int, int> widths[] = {{LotsModel::name, 14},
                                          {LotsModel::created, 12},
                                          {LotsModel::quantity, 15},
                                          {LotsModel::expires, 12}};
    for (const auto& [column, letters] : widths) {
        header->resizeSection(column, letters_wide(*this, letters));
    }
}

void LotView::set_up_calendar() {
    calendar_box_ = new QFrame(this, Qt::Popup);
    calendar_box_->setObjectName(QStringLiteral("calendar_box"));
    calendar_box_->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    calendar_label_ = new QLabel(calendar_box_);
    calendar_label_->setObjectName(QStringLiteral("calendar_label"));
    calendar_label_->setTextFormat(Qt::PlainText);
    calendar_ = new QCalendarWidget(calendar_box_);
    calendar_->setObjectName(QStringLiteral("calendar"));
    calendar_->setAccessibleName(tr("Calendar"));
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // Red weekends are hard to read, and mean nothing here.
    calendar_->setWeekdayTextFormat(Qt::Saturday, {});
    calendar_->setWeekdayTextFormat(Qt::Sunday, {});
    calendar_box_->setFocusProxy(calendar_);
    auto* layout = new QVBoxLayout(calendar_box_);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addWidget(calendar_label_);
    layout->addWidget(calendar_);
    const auto take = [this](const QDate& day) { trap_in_screen([&] { take_date(day); }); };
    connect(calendar_, &QCalendarWidget::clicked, this, take);
    connect(calendar_, &QCalendarWidget::activated, this, take);
}

void LotView::connect_commands() {
    bind(ui_->lot_delete, ui_->delete_button, &LotView::DeleteLot);
    bind(ui_->lot_quantity, ui_->quantity_button, &LotView::ModQuantity);
    bind(ui_->lot_creation, ui_->creation_button, &LotView::ModCreationDate);
    bind(ui_->lot_expiration, ui_->expiration_button, &LotView::ModExpirationDate);
    bind(ui_->lot_current, ui_->current_button, &LotView::set_current);
    connect(ui_->close_button, &QPushButton::clicked, this, [this] { close_screen(*this); });
    connect(ui_->lot_list, &QTreeView::activated, ui_->lot_quantity, &QAction::trigger);
    connect(ui_->lot_list, &QTreeView::customContextMenuRequested, this, &LotView::show_popup);
    connect(ui_->lot_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LotView::follow_selection);
    on_keys(*ui_->lot_list, Qt::Key_F2, [this] { ui_->lot_quantity->trigger(); });
    on_keys(*ui_->lot_list, QKeySequence::Delete, [this] { ui_->lot_delete->trigger(); });
    on_keys(*ui_->lot_list, QKeySequence(Qt::SHIFT | Qt::Key_F10), [this] { show_popup(); });
    on_keys(*this, QKeySequence::Refresh, [this] { populate_list(); });
    on_keys(*this, Qt::Key_Escape, [this] { escape(); });
    connect(qApp, &QApplication::focusChanged, this, &LotView::follow_focus);
}

void LotView::bind(QAction* action, QPushButton* button, void (LotView::*command)()) {
    action->setToolTip(button->toolTip());
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::triggered, this,
            [this, command] { trap_in_screen([&] { (this->*command)(); }); });
}

void LotView::set_index(i16 item) {
    item_ = item;
    trap_in_screen([this] {
        ensure_lot_record(item_);
        setWindowTitle(caption_of(item_));
    });
    populate_list();
    trap_in_screen([this] { select_place(lots[item_].current_lot); });
}

void LotView::populate_list() {
    trap_in_screen([this] { fill_list(); });
}

void LotView::fill_list() {
    model_->fill(item_);
    show_total();
}

void LotView::show_total() {
    const auto& quantities = lots[item_].lot_quantity;
    const auto filled = lot_places - std::count(quantities.begin(), quantities.end(), 0.0);
    const i16 unit = items[item_].qty_units;
    QString total = shown_text(number_text(lot_total(item_)));
    if (unit >= 1 && unit <= unit_capacity) {
        total += QLatin1Char(' ') + shown_text(units[unit].name.right_trimmed());
    }
    ui_->total_label->setText(filled == 1 ? tr("In stock: %1, in one lot").arg(total)
                              : filled == 0
                                  ? tr("Nothing in stock.")
                                  : tr("In stock: %1, in %2 lots").arg(total).arg(filled));
}

i16 LotView::selected_place() const {
    const QModelIndexList rows = ui_->lot_list->selectionModel()->selectedRows();
    if (rows.isEmpty()) return -1;
    return to_i16(rows.first().data(LotsModel::key_role).toString().mid(1).toInt());
}

void LotView::select_place(i16 place) {
    const QModelIndex row = sorted_->mapFromSource(model_->index(place, 0));
    ui_->lot_list->setCurrentIndex(row);
}

// The item's stock is the sum of its lots; an item that has gone meanwhile has none to change.
void LotView::change(const std::function<void()>& work) {
    if (items[item_].in_use != 1) return populate_list();
    const LotRecord before = lots[item_];
    work();
    items[item_].quantity = lot_total(item_);
    if (!(lots[item_] == before)) project_modified = i16_true;
    populate_list();
    refresh_shown_quantity(item_);
}

void LotView::DeleteLot() {
    const i16 place = selected_place();
    if (place < 0) return;
    change([&] { delete_lot(item_, place); });
}

void LotView::ModQuantity() {
    const i16 place = selected_place();
    if (place < 0) return;
    const f64 present = lots[item_].lot_quantity[static_cast<std::size_t>(place)];
    const QPointer<LotView> still_here(this);
    const std::optional<std::string> typed =
        boxes().input("Type new Quantity", "Modify Quantity", number_text(present));
    if (!typed || still_here.isNull()) return;
    const std::optional<f64> quantity = typed_number(*typed);
    if (quantity) return change([&] { set_lot_quantity(item_, *quantity, place); });
    main_window().set_status(message_panel,
                             "\"" + *typed + "\" is not a number; the lot keeps its quantity.");
}

void LotView::set_current() {
    const i16 place = selected_place();
    if (place < 0) return;
    change([&] { set_current_lot(item_, place); });
}

void LotView::ModCreationDate() {
    ask_date(EditedDate::creation);
}

void LotView::ModExpirationDate() {
    ask_date(EditedDate::expiration);
}

void LotView::ask_date(EditedDate which) {
    const i16 place = selected_place();
    if (place < 0) return;
    edited_date_ = which;
    const bool creation = which == EditedDate::creation;
    const QModelIndex row = ui_->lot_list->currentIndex();
    const QString lot = row.siblingAtColumn(LotsModel::name).data().toString();
    calendar_label_->setText(creation ? tr("Creation date of %1").arg(lot)
                                      : tr("Expiration date of %1").arg(lot));
    calendar_->setAccessibleName(calendar_label_->text());
    calendar_->setSelectedDate(today());
    const int column = creation ? LotsModel::created : LotsModel::expires;
    const QRect cell = ui_->lot_list->visualRect(row.siblingAtColumn(column));
    calendar_box_->adjustSize();
    calendar_box_->move(place_beside(*ui_->lot_list->viewport(), cell, calendar_box_->size()));
    calendar_box_->show();
    calendar_->setFocus();
}

void LotView::take_date(const QDate& day) {
    const EditedDate which = std::exchange(edited_date_, EditedDate::none);
    const i16 place = selected_place();
    calendar_box_->hide();
    if (which == EditedDate::none || place < 0) return;
    const Date date = date_from_civil(day.year(), day.month(), day.day());
    change([&] {
        LotRecord& record = lots[item_];
        auto& dates = which == EditedDate::creation ? record.creation_date : record.expiration_date;
        dates[static_cast<std::size_t>(place)] = date;
    });
}

// What was opened last goes first.
void LotView::escape() {
    if (calendar_box_->isVisible()) {
        calendar_box_->hide();
    } else {
        close_screen(*this);
    }
}

void LotView::show_popup() {
    if (selected_place() < 0) return;
    const QRect cell = ui_->lot_list->visualRect(ui_->lot_list->currentIndex());
    ui_->LotviewpOP->popup(ui_->lot_list->viewport()->mapToGlobal(cell.bottomLeft()));
}

// Stock may have moved while the user was elsewhere. No box here: it would move the focus again.
void LotView::follow_focus(const QWidget* before, const QWidget* now) {
    const auto is_inside = [this](const QWidget* widget) {
        return widget != nullptr && isAncestorOf(widget);
    };
    if (item_ == 0 || !is_inside(now) || is_inside(before)) return;
    trap([this] { fill_list(); }, [](const Fault&) {});
}

void LotView::follow_selection() {
    const bool any = selected_place() >= 0;
    for (QAction* action : ui_->LotviewpOP->actions()) action->setEnabled(any);
    for (QPushButton* button : {ui_->quantity_button, ui_->creation_button, ui_->expiration_button,
                                ui_->current_button, ui_->delete_button}) {
        button->setEnabled(any);
    }
}

}  // namespace tavernook
