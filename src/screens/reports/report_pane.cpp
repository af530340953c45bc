#include "screens/reports/report_pane.h"

#include <QAction>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QTreeView>
#include <algorithm>
#include <utility>
#include <vector>

#include "basics/number_text.h"
#include "platform/platform.h"
#include "screens/parts/guard.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/shown_text.h"
#include "screens/reports/column_widths.h"
#include "screens/reports/report_rows_model.h"
#include "ui_report_pane.h"

namespace tavernook {

namespace {

constexpr const char* section = "Screens";
constexpr const char* sort_key = "Reports.Sort";  // column, order and whether it is on: "4,1,-1"

constexpr int widest_letters = 36;  // of a column that nobody has resized
constexpr int rows_measured = 100;

class BusyPointer {
  public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

std::string text_of(const ReportSort& sort) {
    return std::to_string(sort.key) + "," + std::to_string(sort.order) + "," +
           std::to_string(sort.sorted);
}

// What is no such text means no sort.
ReportSort sort_of(std::string_view text) {
    const QStringList parts = shown_text(text).split(QLatin1Char(','));
    if (parts.size() != 3) return {};
    const int key = parts[0].toInt();
    if (key < 0 || key >= ReportRowsModel::most_columns) return {};
    return {static_cast<i16>(key), static_cast<i16>(parts[1] == QLatin1String("1") ? 1 : 0),
            truth(parts[2] == QLatin1String("-1"))};
}

// The columns that a saved report knows, and those behind, which keep their places.
std::vector<int> order_by_position(const ColumnPositions& positions) {
    std::vector<std::pair<int, int>> placed;
    for (int column = 0; column < ReportRowsModel::most_columns; ++column) {
        const auto entry = static_cast<std::size_t>(column) + 1;
        placed.emplace_back(entry < positions.size() ? positions[entry] : column + 1, column);
    }
    std::stable_sort(placed.begin(), placed.end());
    std::vector<int> order;
    for (const auto& [position, column] : placed) order.push_back(column);
    return order;
}

}  // namespace

ReportPane::ReportPane(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ReportPane>()),
      model_(new ReportRowsModel(this)),
      view_((ui_->setupUi(this), *ui_->report_list)),
      header_(*view_.header()) {
    set_up_list();
    set_up_commands();
}

ReportPane::~ReportPane() = default;

// A click on a header is told: the list sorts by itself.
void ReportPane::set_up_list() {
    ui_->count_label->setTextFormat(Qt::PlainText);
    dress_list(view_);
    view_.setSortingEnabled(false);
    view_.setModel(model_);
    follow_font_size(view_);
    header_.setSectionsClickable(true);
    header_.setSectionsMovable(true);
    header_.setFirstSectionMovable(true);
    header_.setSortIndicatorShown(true);
    header_.setSortIndicatorClearable(false);
    header_.setMinimumSectionSize(letters_wide(*this, 3));
    hint_when_empty(view_, tr("No item matches. Change a search string and press Run, or press "
                              "Reset to see all items."));
    recall_sort();
}

void ReportPane::set_up_commands() {
    connect(&header_, &QHeaderView::sectionClicked, this, [this](int column) {
        Q_EMIT sort_wanted(column);
        show_sort();
    });
    connect(&header_, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { keep_width(column, width); });
    connect(&view_, &QTreeView::activated, this, &ReportPane::view_wanted);
    connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ReportPane::selection_changed);
    connect(ui_->report_view, &QAction::triggered, this, &ReportPane::view_wanted);
    connect(ui_->report_usage, &QAction::triggered, this, &ReportPane::usage_wanted);
    connect(ui_->sort_item_name, &QAction::triggered, this, [this] { Q_EMIT sort_wanted(0); });
    connect(ui_->sort_manufacturer, &QAction::triggered, this,
            [this] { Q_EMIT sort_wanted(manufacturer_column()); });
    connect(&view_, &QWidget::customContextMenuRequested, this, &ReportPane::show_menu);
}

// --- what is shown -------------------------------------------------------------------------------

const ReportList& ReportPane::list() const {
    return model_->list();
}

void ReportPane::fill(const ReportFilter& filter) {
    const auto item_at = [this](int row) { return RowId{list().item(row)}; };
    keep_place(view_, item_at, [&] {
        model_->fill(filter);
        dress_columns();
        return true;
    });
    filled_at_look_ = looks_so_far();
    show_count({});
}

void ReportPane::show_count(const QString& remark) {
    ui_->count_label->setText(QString::number(list().rows()) + remark);
}

void ReportPane::show_outdated() {
    show_count(tr(" - columns or filter have been changed, press Run (F5)"));
}

void ReportPane::follow_changes() {
    const bool has_changed = seen_.is_stale() && looks_so_far() != filled_at_look_ + 1;
    seen_.renew();
    if (!has_changed) return;
    show_count(tr(" - the stock has changed since, press Run (F5)"));
}

bool ReportPane::has_selection() const {
    return view_.selectionModel()->hasSelection();
}

i16 ReportPane::selected_item() const {
    const QItemSelectionModel& marks = *view_.selectionModel();
    if (!marks.hasSelection()) return 0;
    const QModelIndex current = view_.currentIndex();
    const bool among = marks.isSelected(current);
    return list().item(among ? current.row() : marks.selection().front().top());
}

// --- columns -------------------------------------------------------------------------------------

void ReportPane::dress_columns() {
    is_dressing_ = true;
    const int shown = list().columns();
    for (int column = 0; column < ReportRowsModel::most_columns; ++column) {
        header_.setSectionHidden(column, column >= shown);
        if (column >= shown) continue;
        const auto width = remembered_width(model_->column(column));
        header_.resizeSection(column, width ? *width : fitting_width(column));
    }
    show_sort();
    is_dressing_ = false;
}

// As wide as its title and the texts of the first rows.
int ReportPane::fitting_width(int column) const {
    const QFontMetrics metrics = view_.fontMetrics();
    const int air = metrics.height();
    const int title = header_.fontMetrics().horizontalAdvance(shown_text(list().title(column)));
    int width = title + 2 * air;  // the sort's mark beside it
    for (int row = 0; row < std::min(list().rows(), rows_measured); ++row) {
        const QString text = shown_text(list().cell(row, column));
        width = std::max(width, metrics.horizontalAdvance(text) + air);
    }
    return std::min(width, letters_wide(view_, widest_letters));
}

// Only what the user does: the screen comes up with widths of its own.
void ReportPane::keep_width(int column, int width) {
    if (is_dressing_ || !isVisible() || header_.isSectionHidden(column)) return;
    remember_width(model_->column(column), width);
}

ReportLook ReportPane::look() const {
    ReportLook look;
    for (int column = 0; column < report_rows; ++column) {
        look.column_positions[static_cast<std::size_t>(column) + 1] =
            static_cast<i16>(header_.visualIndex(column) + 1);
    }
    look.sort = list().sort;
    return look;
}

void ReportPane::set_look(const ReportLook& look) {
    int place = 0;
    for (const int column : order_by_position(look.column_positions)) {
        header_.moveSection(header_.visualIndex(column), place++);
    }
    model_->set_sort(look.sort);
    store_sort();
}

void ReportPane::follow_header() {
    dress_columns();
}

// --- sort ----------------------------------------------------------------------------------------

void ReportPane::sort_by(int column) {
    const BusyPointer busy;
    model_->sort_by(column);
    show_sort();
    store_sort();
}

void ReportPane::show_sort() {
    const ReportSort& sort = list().sort;
    const bool shown = sort.sorted != i16_false && sort.key < list().columns();
    header_.setSortIndicator(shown ? sort.key : -1,
                             sort.order == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void ReportPane::recall_sort() {
    quietly([this] { model_->set_sort(sort_of(settings_store().get(section, sort_key))); });
}

void ReportPane::store_sort() const {
    quietly([this] { settings_store().set(section, sort_key, text_of(list().sort)); });
}

// --- the menu ------------------------------------------------------------------------------------

void ReportPane::show_menu(const QPoint& place) {
    for (QAction* action : {ui_->report_view, ui_->report_usage}) {
        action->setEnabled(has_selection());
    }
    fill_sort_menu();
    ui_->report_menu->popup(view_.viewport()->mapToGlobal(place));
}

// Name and manufacturer, which can be had by letters, and then the other columns as they stand: a
// header cannot be reached by keys.
void ReportPane::fill_sort_menu() {
    QMenu& menu = *ui_->Reports_Popup;
    menu.clear();
    menu.addActions({ui_->sort_item_name, ui_->sort_manufacturer});
    menu.addSeparator();
    const int maker = manufacturer_column();
    ui_->sort_manufacturer->setEnabled(maker != 0);
    for (int at = 0; at < header_.count(); ++at) {
        const int column = header_.logicalIndex(at);
        if (header_.isSectionHidden(column) || column == 0 || column == maker) continue;
        QAction* entry = menu.addAction(without_mnemonics(shown_text(list().title(column))));
        connect(entry, &QAction::triggered, this, [this, column] { Q_EMIT sort_wanted(column); });
    }
    menu.setEnabled(list().columns() > 0);
}

int ReportPane::manufacturer_column() const {
    for (int column = 1; column < list().columns(); ++column) {
        if (list().title(column) == "Manufacturer") return column;
    }
    return 0;
}

}  // namespace tavernook
