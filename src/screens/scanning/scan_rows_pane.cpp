#include "screens/scanning/scan_rows_pane.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMenu>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "barcodes/scan_list.h"
#include "barcodes/scanners.h"
#include "basics/typed_numbers.h"
#include "core/project_data.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/shown_text.h"
#include "ui_scan_rows_pane.h"

namespace tavernook {

namespace {

constexpr ScanRow no_scan_row{};

const ScanRow& row_of(RowId id) {
    const ScanRow* row = scan_row(static_cast<i32>(id));
    return row != nullptr ? *row : no_scan_row;
}

RowsColumn column(const char* title, std::string ScanRow::*text) {
    return {.title = QObject::tr(title),
            .text = [text](RowId row) { return shown_text(row_of(row).*text); }};
}

std::vector<RowsColumn> columns() {
    std::vector<RowsColumn> made = {column("Barcode", &ScanRow::barcode),
                                    column("Item Name", &ScanRow::name),
                                    column("QTY scanned", &ScanRow::quantity),
                                    column("Units", &ScanRow::units), column("Lot", &ScanRow::lot)};
    made[0].icon = [](RowId row) {
        return icon(row_of(row).is_known ? QStringLiteral("label") : QStringLiteral("warning"));
    };
    made[2].alignment = on_the_right;
    made[2].number = [](RowId row) { return typed_number(row_of(row).quantity).value_or(0); };
    return made;
}

}  // namespace

ScanRowsPane::ScanRowsPane(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ScanRowsPane>()),
      rows_(new RowsModel(columns(), this)),
      list_((ui_->setupUi(this), *ui_->scan_list)),
      seen_{Subject::items, Subject::units} {
    set_up_list();
    set_up_commands();
    refresh_scan_rows();
    follow_changes();
}

ScanRowsPane::~ScanRowsPane() = default;

void ScanRowsPane::set_up_list() {
    dress_list(list_);
    list_.setModel(rows_);
    follow_font_size(list_);
    const int letters[] = {34, 40, 18, 18, 18};
    for (int column = 0; column < rows_->columnCount(); ++column) {
        list_.header()->resizeSection(column, letters_wide(list_, letters[column]));
    }
    list_.header()->setStretchLastSection(false);
    list_.header()->setSectionResizeMode(1, QHeaderView::Stretch);
    hint_when_empty(list_, tr("No codes yet. Scan what you have bought or used up, or import a "
                              "list of codes."));
}

void ScanRowsPane::set_up_commands() {
    ui_->Text1->set_collector(*ui_->Text2);
    ui_->Text1->set_batch_hint(tr("The codes come by \"Read Scanner\""));
    ui_->Text1->hand_over_unread_lines();
    ui_->Text1->setMinimumWidth(letters_wide(*this, 16));
    connect(ui_->Text1, &ScanEntry::scanned, this, &ScanRowsPane::scanned);
    connect(ui_->modify_quantity, &QAction::triggered, this, &ScanRowsPane::quantity_wanted);
    connect(ui_->change_lot, &QAction::triggered, this, &ScanRowsPane::lot_wanted);
    connect(&list_, &QTreeView::doubleClicked, this, &ScanRowsPane::open_wanted);
    connect(&list_, &QTreeView::customContextMenuRequested, this, &ScanRowsPane::show_popup);
    connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ScanRowsPane::follow_selection);
    connect(list_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ScanRowsPane::follow_current);
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        on_keys(list_, enter, [this] { press_enter(); });
        on_keys(list_, QKeySequence(Qt::ALT | enter), [this] { Q_EMIT open_wanted(); });
    }
    on_keys(list_, Qt::Key_F2, [this] { ui_->modify_quantity->trigger(); });
    on_keys(list_, QKeySequence::Delete, [this] { Q_EMIT remove_wanted(); });
}

// --- what is shown -------------------------------------------------------------------------------

void ScanRowsPane::follow_changes() {
    ui_->Text1->follow_scanner_type();
    if (seen_.is_stale()) refresh_scan_rows();
    seen_.renew();
    std::vector<RowId> ids;
    ids.reserve(scan_rows.size());
    for (const ScanRow& row : scan_rows) ids.push_back(row.id);
    is_filling_ = true;
    refill_in_place(list_, *rows_, std::move(ids));
    mark_new_rows();
    is_filling_ = false;
    follow_selection();
}

// The last one comes in sight and is the current one.
void ScanRowsPane::mark_new_rows() {
    if (scan_rows.empty() || scan_rows.back().id <= newest_) return;
    const i32 newest_before = std::exchange(newest_, scan_rows.back().id);
    const QModelIndex last = rows_->index(rows_->place_of(newest_), 0);
    list_.selectionModel()->setCurrentIndex(last, QItemSelectionModel::NoUpdate);
    mark_rows(list_, *rows_,
              [newest_before](RowId row) { return row > newest_before && row_of(row).is_marked; });
    list_.scrollTo(last);
}

void ScanRowsPane::follow_selection() {
    if (is_filling_) return;
    const std::vector<i32> rows = selected();
    const std::size_t marked = rows.size();
    mark_scan_rows(rows);
    const QString count =
        scan_rows.size() == 1 ? tr("1 code") : tr("%1 codes").arg(scan_rows.size());
    ui_->count_label->setText(scan_rows.empty() ? QString()
                                                : tr("%1, %2 marked").arg(count).arg(marked));
    follow_current();
}

void ScanRowsPane::follow_current() {
    for (QAction* action : {ui_->modify_quantity, ui_->change_lot}) {
        action->setEnabled(current() != 0);
    }
}

bool ScanRowsPane::is_empty() const {
    return scan_rows.empty();
}

std::vector<i32> ScanRowsPane::selected() const {
    std::vector<i32> ids;
    for (const RowId row : selected_rows(list_, *rows_)) ids.push_back(static_cast<i32>(row));
    return ids;
}

i32 ScanRowsPane::current() const {
    const auto row = static_cast<i32>(current_row(list_, *rows_));
    return row != 0 ? row : marked_one();
}

i32 ScanRowsPane::marked_one() const {
    const std::vector<i32> marked = selected();
    const auto row = static_cast<i32>(current_row(list_, *rows_));
    const bool among = std::find(marked.begin(), marked.end(), row) != marked.end();
    return among ? row : marked.empty() ? 0 : marked.front();
}

void ScanRowsPane::show_popup(const QPoint& place) {
    if (current() == 0) return;
    ui_->ScanList_POP->popup(list_.viewport()->mapToGlobal(place));
}

// --- scanning ------------------------------------------------------------------------------------

void ScanRowsPane::watch_for_codes(QWidget& screen) {
    ui_->Text1->watch(screen, {});
}

void ScanRowsPane::wait_for_codes(Qt::FocusReason reason) {
    ui_->Text1->abandon();
    if (scanner_type == batch_scanner) {
        list_.setFocus(reason);
    } else {
        ui_->Text1->setFocus(reason);
    }
}

void ScanRowsPane::focus_list() {
    list_.setFocus();
}

bool ScanRowsPane::discard_code() {
    const bool begun = ui_->Text1->has_begun();
    if (begun) ui_->Text1->discard();
    return begun;
}

void ScanRowsPane::press_enter() {
    if (scanner_type == no_scanner) return ui_->Text1->ask();
    if (current() != 0) Q_EMIT open_wanted();
}

}  // namespace tavernook
