#include "screens/grocery/list_pane.h"

#include <QHeaderView>
#include <QMenu>
#include <QStringList>
#include <QTreeView>
#include <algorithm>

#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/grocery/list_columns.h"
#include "screens/parts/drag_text.h"
#include "screens/parts/guard.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/sign_words.h"
#include "shopping/list_rows.h"
#include "ui_list_pane.h"

namespace tavernook {

namespace {

constexpr const char* section = "Screens";
constexpr const char* sort_key = "ShoppingList.Sort";
constexpr int name_letters = 16;  // at least

// "3,4-": by column 3, on top of it by column 4 downwards.
std::string text_of(const std::vector<RowsModel::SortStep>& steps) {
    QStringList parts;
    for (const auto& [column, order] : steps) {
        parts << QString::number(column) + QLatin1String(order == Qt::DescendingOrder ? "-" : "");
    }
    return parts.join(QLatin1Char(',')).toStdString();
}

std::vector<RowsModel::SortStep> steps_of(const std::string& text) {
    std::vector<RowsModel::SortStep> steps;
    for (QString part : QString::fromStdString(text).split(',', Qt::SkipEmptyParts)) {
        const bool down = part.endsWith(QLatin1Char('-'));
        if (down) part.chop(1);
        bool is_number = false;
        const int column = part.toInt(&is_number);
        if (!is_number || static_cast<std::size_t>(column) >= list_columns.size()) continue;
        steps.push_back({column, down ? Qt::DescendingOrder : Qt::AscendingOrder});
    }
    if (steps.size() > list_columns.size()) steps.resize(list_columns.size());
    return steps;
}

QFont larger(QFont font, double times) {
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * times);
    return font;
}

}  // namespace

ListPane::ListPane(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ListPane>()),
      rows_(new RowsModel(shopping_list_columns(), this)),
      list_((ui_->setupUi(this), *ui_->shopping_list)),
      seen_{Subject::items,  Subject::catagories, Subject::units,
            Subject::stores, Subject::lots,       Subject::settings} {
    set_up_list();
    set_up_columns();
    set_up_footer();
    set_up_scanning();
    set_up_commands();
}

ListPane::~ListPane() = default;

void ListPane::set_up_list() {
    rows_->set_key([](RowId row) { return shown_text(list_key(part_of(row, 0))); });
    rows_->set_drag_text([](RowId row) { return text_of_dragged_item(part_of(row, 0)); });
    rows_->set_drop_rule([](const QString& text) { return tavernook::dragged(text).number != 0; });
    dress_list(list_);
    list_.setModel(rows_);
    recall_sort();
    list_.setDropIndicatorShown(false);
    follow_font_size(list_);
    show_sign_words(list_);
    list_.viewport()->installEventFilter(this);
    const int letters[] = {name_letters, 19, 15, 5, 19, 10, 12, 10};
    for (int column = 0; column < rows_->columnCount(); ++column) {
        list_.header()->resizeSection(column, letters_wide(*this, letters[column]));
    }
    hint_when_empty(list_, tr("Nothing to buy. Items that run low come here by themselves; add "
                              "others from the Quick Pick List."));
}

// A column is shown or not by the header alone, which the screen's memory keeps.
void ListPane::set_up_columns() {
    int column = 1;
    for (QAction* action : ui_->viewmenu->actions()) {
        action->setCheckable(true);
        action->setChecked(true);
        connect(action, &QAction::toggled, this,
                [this, column](bool shown) { switch_column(column, shown); });
        ++column;
    }
    connect(ui_->columns_button, &QPushButton::clicked, this, [this] {
        const QWidget& button = *ui_->columns_button;
        ui_->viewmenu->popup(button.mapToGlobal(QPoint(0, button.height())));
    });
    QHeaderView* header = list_.header();
    header->setSectionsMovable(false);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::sortIndicatorChanged, this, &ListPane::store_sort);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint& at) { ui_->viewmenu->popup(header->mapToGlobal(at)); });
}

void ListPane::set_up_footer() {
    for (QLabel* label : {ui_->count_label, ui_->tax_label, ui_->total_label}) {
        label->setTextFormat(Qt::PlainText);
    }
    ui_->tax_label->setAccessibleName(ui_->tax_caption->text());
    ui_->total_label->setAccessibleName(ui_->total_caption->text());
    ui_->total_label->setFont(larger(ui_->total_label->font(), 1.6));
}

void ListPane::set_up_scanning() {
    ui_->Text1->set_collector(*ui_->Text2);
    ui_->Text1->setMinimumWidth(letters_wide(*this, 16));
    connect(ui_->Text1, &ScanEntry::scanned, this, &ListPane::scanned);
}

void ListPane::set_up_commands() {
    connect(ui_->pop2_add, &QAction::triggered, this, &ListPane::add_wanted);
    connect(ui_->pop2_remove, &QAction::triggered, this, &ListPane::remove_wanted);
    connect(ui_->pop2_qty, &QAction::triggered, this, &ListPane::quantity_wanted);
    connect(ui_->pop2_so, &QAction::triggered, this, &ListPane::store_order_wanted);
    connect(&list_, &QTreeView::activated, this, &ListPane::view_wanted);
    connect(&list_, &QTreeView::customContextMenuRequested, this, &ListPane::show_popup);
    connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ListPane::follow_selection);
    connect(list_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ListPane::follow_selection);
    connect(rows_, &RowsModel::dropped, this, &ListPane::dropped);
    on_keys(list_, Qt::Key_F2, [this] { ui_->pop2_qty->trigger(); });
    on_keys(list_, QKeySequence::Delete, [this] { ui_->pop2_remove->trigger(); });
    on_keys(list_, Qt::Key_Insert, [this] { ui_->pop2_add->trigger(); });
}

// --- what is shown -------------------------------------------------------------------------------

void ListPane::fill() {
    fill_rows();
    show_totals();
    follow_selection();
    seen_.renew();
}

void ListPane::fill_rows() {
    collect_list_items();
    std::vector<RowId> listed;
    for (i16 row = 1; row <= list_count; ++row) listed.push_back(list_items[row]);
    refill_in_place(list_, *rows_, std::move(listed));
}

void ListPane::show_totals() {
    ui_->total_label->setText(shown_text(total_text));
    ui_->tax_label->setText(shown_text(tax_label()));
    ui_->count_label->setText(list_count == 1 ? tr("1 item") : tr("%1 items").arg(list_count));
}

void ListPane::follow_changes() {
    ui_->Text1->follow_scanner_type();
    if (seen_.is_stale()) fill();
    mark_wanted();
}

void ListPane::mark_wanted() {
    if (to_mark_ != 0) select_row(list_, *rows_, to_mark_);
    if (marks_next_ && list_.currentIndex().isValid()) list_.setCurrentIndex(list_.currentIndex());
    to_mark_ = 0;
    marks_next_ = false;
}

std::vector<i16> ListPane::selected_items() const {
    std::vector<i16> found;
    for (const RowId row : selected_rows(list_, *rows_)) found.push_back(part_of(row, 0));
    return found;
}

ShownColumns ListPane::columns_shown() const {
    ShownColumns shown{};
    for (std::size_t column = 0; column < shown.size(); ++column) {
        shown[column] = !list_.header()->isSectionHidden(static_cast<int>(column) + 1);
    }
    return shown;
}

void ListPane::show_columns(const ShownColumns& shown) {
    const QList<QAction*> actions = ui_->viewmenu->actions();
    for (std::size_t column = 0; column < shown.size(); ++column) {
        actions[static_cast<qsizetype>(column)]->setChecked(shown[column]);
    }
}

std::vector<ListColumn> ListPane::shown_columns() const {
    std::vector<ListColumn> shown;
    for (std::size_t column = 0; column < list_columns.size(); ++column) {
        const bool hidden = list_.header()->isSectionHidden(static_cast<int>(column));
        if (!hidden) shown.push_back(list_columns[column]);
    }
    return shown;
}

std::vector<i16> ListPane::shown_items() const {
    std::vector<i16> shown;
    for (const RowId row : rows_->rows()) shown.push_back(part_of(row, 0));
    return shown;
}

void ListPane::follow_selection() {
    const std::vector<i16> selected = selected_items();
    const i16 current = part_of(current_row(list_, *rows_), 0);
    const bool among = std::find(selected.begin(), selected.end(), current) != selected.end();
    selected_list_item = among ? current : selected.empty() ? i16{0} : selected.front();
    selected_ = RowRef(Subject::items, selected_list_item);
    for (QAction* action : {ui_->pop2_remove, ui_->pop2_qty, ui_->pop2_so}) {
        action->setEnabled(!selected.empty());
    }
}

void ListPane::show_popup(const QPoint& place) {
    if (selected_list_item == 0) return;
    ui_->popmenu2->popup(list_.viewport()->mapToGlobal(place));
}

// --- columns and sort ----------------------------------------------------------------------------

// The names get the room that the other columns leave.
void ListPane::fit_names() {
    const int others = list_.header()->length() - list_.columnWidth(0);
    const int room = list_.viewport()->width() - others;
    list_.header()->resizeSection(0, std::max(room, letters_wide(*this, name_letters)));
}

void ListPane::switch_column(int column, bool shown) {
    QHeaderView* header = list_.header();
    if (header->isSectionHidden(column) != shown) return;
    header->setSectionHidden(column, !shown);
    fit_names();
    guarded([this] { fill(); });
}

void ListPane::follow_header() {
    QHeaderView* header = list_.header();
    header->setSectionHidden(0, false);
    int column = 1;
    for (QAction* action : ui_->viewmenu->actions()) {
        action->setChecked(!header->isSectionHidden(column));
        ++column;
    }
    fit_names();
}

// Before the header's own memory, which brings back the latest sort alone.
void ListPane::recall_sort() {
    quietly([this] {
        const auto steps = steps_of(settings_store().get(section, sort_key));
        if (steps.empty()) return;
        rows_->set_sort_steps(steps);
        list_.header()->setSortIndicator(steps.back().column, steps.back().order);
    });
}

void ListPane::store_sort() {
    quietly([this] { settings_store().set(section, sort_key, text_of(rows_->sort_steps())); });
}

bool ListPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == list_.viewport() && event->type() == QEvent::Resize) fit_names();
    return QWidget::eventFilter(watched, event);
}

// --- scanning ------------------------------------------------------------------------------------

void ListPane::watch_for_codes(QWidget& screen, QWidget& letters_for) {
    ui_->Text1->watch(screen, {.keeps_letters = {&list_, &letters_for}, .keeps_digits = {}});
}

void ListPane::take_code_line(const QString& line) {
    ui_->Text1->take_line(line);
}

void ListPane::wait_for_codes(Qt::FocusReason reason) {
    ui_->Text1->abandon();
    ui_->Text1->setFocus(reason);
}

bool ListPane::discard_code() {
    const bool begun = ui_->Text1->has_begun();
    if (begun) ui_->Text1->discard();
    return begun;
}

}  // namespace tavernook
