#include "screens/planner/calendar_pane.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QToolButton>
#include <map>
#include <utility>

#include "planning/planner_state.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/menu_key.h"
#include "screens/parts/toolbar_parts.h"
#include "screens/planner/selected_day.h"
#include "ui_calendar_pane.h"

namespace tavernook {

namespace {

constexpr int months_in_year = 12;

}  // namespace

CalendarPane::CalendarPane(QWidget* parent)
    : QWidget(parent), ui_(laid_out<Ui::CalendarPane>(*this)) {
    set_up_month_bar();
    set_up_grid();
}

CalendarPane::~CalendarPane() = default;

void CalendarPane::set_up_month_bar() {
    const int line = fontMetrics().height();
    fill_toolbar(*this, *ui_->Toolbar1, {{1, "print_week"}, {2, "today"}, {3, "print_month"}});
    ui_->Toolbar1->setIconSize(QSize(line, line));
    ui_->Toolbar1->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(ui_->Toolbar1_1, &QAction::triggered, this, [this] { Q_EMIT page_wanted(false); });
    connect(ui_->Toolbar1_2, &QAction::triggered, this, &CalendarPane::today_wanted);
    connect(ui_->Toolbar1_3, &QAction::triggered, this, [this] { Q_EMIT page_wanted(true); });
    const std::pair<QToolButton*, const char*> steps[] = {{ui_->previous_month, "previous"},
                                                          {ui_->next_month, "next"}};
    for (const auto& [button, name] : steps) {
        button->setIcon(icon(QLatin1String(name)));
        button->setIconSize(QSize(line, line));
    }
    for (int month = 1; month <= months_in_year; ++month) {
        ui_->Combo1->addItem(QLocale().standaloneMonthName(month));
    }
    auto* year = ui_->FlatScrollBar2->findChild<QLineEdit*>();
    year->setObjectName(QStringLiteral("Label11"));
    year->setAccessibleName(ui_->FlatScrollBar2->accessibleName());
    connect(ui_->Combo1, &QComboBox::activated, this,
            [this](int month) { choose_month(QDate(month_.year(), month + 1, 1)); });
    connect(ui_->FlatScrollBar2, &QSpinBox::valueChanged, this,
            [this](int year) { choose_month(QDate(year, month_.month(), 1)); });
    connect(ui_->previous_month, &QToolButton::clicked, this,
            [this] { choose_month(month_.addMonths(-1)); });
    connect(ui_->next_month, &QToolButton::clicked, this,
            [this] { choose_month(month_.addMonths(1)); });
    ui_->Combo1->installEventFilter(this);
    ui_->FlatScrollBar2->installEventFilter(this);
}

void CalendarPane::set_up_grid() {
    CalendarGrid& grid = *ui_->calendar_grid;
    connect(&grid, &CalendarGrid::chosen, this,
            [this](int cell) { Q_EMIT date_chosen(date_at(cell)); });
    connect(&grid, &CalendarGrid::menu_wanted, this, [this](int cell, const QPoint& place) {
        ui_->calendar_grid->choose(cell);
        Q_EMIT menu_wanted(place);
    });
    connect(&grid, &CalendarGrid::dropped, this,
            [this](int cell, const QString& text) { Q_EMIT dropped(date_at(cell), text); });
    grid.installEventFilter(this);
}

std::vector<QWidget*> CalendarPane::tab_order() const {
    std::vector<QWidget*> order{ui_->previous_month, ui_->Combo1, ui_->FlatScrollBar2,
                                ui_->next_month};
    for (QAction* action : ui_->Toolbar1->actions()) {
        order.push_back(ui_->Toolbar1->widgetForAction(action));
    }
    order.push_back(ui_->calendar_grid);
    return order;
}

QWidget& CalendarPane::year_box() const {
    return *ui_->FlatScrollBar2;
}

void CalendarPane::set_drop_rule(DropRule rule) {
    ui_->calendar_grid->set_drop_rule(
        [this, rule = std::move(rule)](int cell, const QString& text) {
            return rule(date_at(cell), text);
        });
}

void CalendarPane::take_keys_of(QLineEdit& box) {
    box_ = &box;
    box.installEventFilter(this);
}

// --- what is shown -----------------------------------------------------------------------------

void CalendarPane::show_month(const QDate& date) {
    month_ = QDate(date.year(), date.month(), 1);
    draw();
}

void CalendarPane::draw() {
    if (!month_.isValid()) month_ = QDate(selected_year, selected_month, 1);
    drawn_on_ = todays_date();
    ui_->calendar_grid->set_cells(calendar_cells(month_, drawn_on_));
    mark(selected_date());
    const QSignalBlocker no_month(ui_->Combo1);
    const QSignalBlocker no_year(ui_->FlatScrollBar2);
    ui_->Combo1->setCurrentIndex(month_.month() - 1);
    ui_->FlatScrollBar2->setValue(month_.year());
    seen_.renew();
}

void CalendarPane::follow_changes() {
    if (month_.isValid() && (seen_.is_stale() || drawn_on_ != todays_date())) draw();
}

void CalendarPane::mark(const QDate& date) {
    ui_->calendar_grid->select_cell(static_cast<int>(date_at(0).daysTo(date)));
}

QString CalendarPane::told_date() const {
    return ui_->calendar_grid->cell_name(ui_->calendar_grid->selected_cell());
}

QDate CalendarPane::date_at(int cell) const {
    return ui_->calendar_grid->cell(cell).date;
}

void CalendarPane::choose_month(const QDate& first) {
    const bool in_range = first.year() >= ui_->FlatScrollBar2->minimum() &&
                          first.year() <= ui_->FlatScrollBar2->maximum();
    if (in_range && first != month_) Q_EMIT month_chosen(first);
}

// --- keys --------------------------------------------------------------------------------------

bool CalendarPane::eventFilter(QObject* watched, QEvent* event) {
    // The wheel changes no month or year that the pointer happens to pass.
    const bool chooser = watched == ui_->Combo1 || watched == ui_->FlatScrollBar2;
    if (chooser && event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore();
        return true;
    }
    const bool takes_keys = watched == ui_->calendar_grid || watched == box_;
    if (takes_keys && event->type() == QEvent::KeyPress &&
        key_pressed(*watched, *static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// True when the key has done its work. With a text in the box most keys edit that.
bool CalendarPane::key_pressed(const QObject& watched, const QKeyEvent& key) {
    if (&watched == box_) {
        const bool moves = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down ||
                           key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
        if (!moves && !box_->text().isEmpty()) return false;
    } else if (is_enter(key)) {
        Q_EMIT recipes_wanted();
        return true;
    }
    return shortcut(watched, key) || step(key);
}

bool CalendarPane::shortcut(const QObject& watched, const QKeyEvent& key) {
    if (key.matches(QKeySequence::Copy)) {
        Q_EMIT copy_wanted();
    } else if (key.matches(QKeySequence::Cut)) {
        Q_EMIT cut_wanted();
    } else if (key.matches(QKeySequence::Paste) && !pastes_text(watched)) {
        Q_EMIT paste_wanted();
    } else if (&watched == box_ && are_menu_keys(key)) {
        ask_for_menu(*ui_->calendar_grid);
    } else {
        return false;
    }
    return true;
}

// A code from another program goes into the box, as long as no day waits to be pasted.
bool CalendarPane::pastes_text(const QObject& watched) const {
    return !day_clipboard.filled && &watched == box_ &&
           !QGuiApplication::clipboard()->text().isEmpty();
}

bool CalendarPane::step(const QKeyEvent& key) {
    static const std::map<int, int> days_of = {
        {Qt::Key_Left, -1}, {Qt::Key_Right, 1}, {Qt::Key_Up, -7}, {Qt::Key_Down, 7}};
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    if (key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown) {
        choose_month(month_.addMonths(key.key() == Qt::Key_PageUp ? -1 : 1));
    } else if (key.key() == Qt::Key_Delete) {
        Q_EMIT delete_wanted();
    } else if (const auto days = days_of.find(key.key()); days != days_of.end()) {
        const int cell = ui_->calendar_grid->selected_cell() + days->second;
        if (cell >= 0 && cell < calendar_cell_count) ui_->calendar_grid->choose(cell);
    } else {
        return false;
    }
    return true;
}

}  // namespace tavernook
