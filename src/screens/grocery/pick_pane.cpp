#include "screens/grocery/pick_pane.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeView>
#include <algorithm>
#include <iterator>
#include <utility>

#include "barcodes/scanned_code.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "screens/parts/catagory_places.h"
#include "screens/parts/drag_text.h"
#include "screens/parts/guard.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/scan_entry.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/sign_words.h"
#include "screens/parts/stock_sign.h"
#include "shopping/list_rows.h"
#include "ui_pick_pane.h"

namespace tavernook {

namespace {

QString name_of(RowId row) {
    return shown_text(row_or_none(items, part_of(row, 0)).name.trimmed());
}

std::vector<RowsColumn> columns() {
    const auto text = [](RowId row) {
        return shown_text(cell_text(ListColumn::item, part_of(row, 0)));
    };
    const auto words = [](RowId row) { return stock_words(part_of(row, 0)); };
    return {{.title = shown_text(column_title(ListColumn::item)),
             .text = text,
             .description = words,
             .sign = [](RowId row) { return stock_sign_of(part_of(row, 0)); }}};
}

bool is_plain(const QKeyEvent& key) {
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

}  // namespace

PickPane::PickPane(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::PickPane>()),
      rows_(new RowsModel(columns(), this)),
      list_((ui_->setupUi(this), *ui_->quick_pick_list)),
      seen_{Subject::items, Subject::lots, Subject::settings} {
    set_up_list();
    ui_->find_box->setMinimumWidth(letters_wide(*this, 14));
    ui_->find_box->installEventFilter(this);
    connect(ui_->find_box, &QLineEdit::textChanged, this, &PickPane::narrow);
    connect(ui_->close_button, &QPushButton::clicked, this, &PickPane::close_wanted);
}

PickPane::~PickPane() = default;

void PickPane::set_up_list() {
    rows_->set_key([](RowId row) { return shown_text(list_key(part_of(row, 0))); });
    rows_->set_drag_text([](RowId row) { return text_of_dragged_item(part_of(row, 0)); });
    dress_list(list_);
    list_.setModel(rows_);
    list_.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_.setMouseTracking(true);
    follow_font_size(list_);
    show_sign_words(list_);
    connect(&list_, &QTreeView::activated, this, &PickPane::pick);
    connect(&list_, &QTreeView::entered, this, &PickPane::show_tip);
    connect(&list_, &QTreeView::viewportEntered, this, [this] { show_tip({}); });
}

QWidget& PickPane::list() const {
    return list_;
}

void PickPane::fill() {
    const QStringList words =
        folded(ui_->find_box->text()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const std::vector<i16> all = quick_pick_items();
    std::vector<RowId> found;
    std::copy_if(all.begin(), all.end(), std::back_inserter(found), [&words](RowId row) {
        const QString name = words.isEmpty() ? QString() : folded(name_of(row));
        return std::all_of(words.begin(), words.end(),
                           [&name](const QString& word) { return name.contains(word); });
    });
    refill_in_place(list_, *rows_, std::move(found));
    hint_when_empty(list_, all.empty() ? tr("No items yet. Press \"Add Items\".")
                                       : tr("No item has this in its name."));
    seen_.renew();
}

void PickPane::follow_changes() {
    if (seen_.is_stale()) fill();
}

void PickPane::narrow() {
    guarded([this] { fill(); });
    const bool narrowed = !ui_->find_box->text().isEmpty();
    list_.setCurrentIndex(narrowed ? rows_->index(0, 0) : QModelIndex());
}

void PickPane::wait_for_names(Qt::FocusReason reason) {
    ui_->find_box->setFocus(reason);
}

void PickPane::find() {
    wait_for_names(Qt::ShortcutFocusReason);
    ui_->find_box->selectAll();
}

bool PickPane::show_all() {
    const bool narrowed = !ui_->find_box->text().isEmpty();
    if (narrowed) ui_->find_box->clear();
    return narrowed;
}

void PickPane::pick() {
    const std::vector<RowId> marked = selected_rows(list_, *rows_);
    if (!marked.empty()) Q_EMIT picked(part_of(marked.front(), 0));
}

// A name that looks like a page of the web is shown as it is.
void PickPane::show_tip(const QModelIndex& index) {
    const i16 item = part_of(rows_->row_at(index.row()), 0);
    const QString tip = item == 0 ? QString() : shown_text(quick_pick_tip(item));
    list_.setToolTip(Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip);
}

// --- the keys of the find box --------------------------------------------------------------------

bool PickPane::eventFilter(QObject* watched, QEvent* event) {
    const bool is_key = watched == ui_->find_box && event->type() == QEvent::KeyPress;
    if (is_key && take_key(*static_cast<QKeyEvent*>(event))) return true;
    return QWidget::eventFilter(watched, event);
}

// Up and down mark what Enter adds.
bool PickPane::take_key(const QKeyEvent& key) {
    if (!is_plain(key)) return false;
    if (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down) {
        move_mark(key.key() == Qt::Key_Down ? 1 : -1);
        return true;
    }
    const bool ends_code = is_enter(key) || key.key() == Qt::Key_Tab;
    if (ends_code && take_code()) return true;
    if (!is_enter(key)) return false;
    pick();
    ui_->find_box->selectAll();
    return true;
}

void PickPane::move_mark(int rows) {
    const int next = list_.currentIndex().row() + rows;
    if (next >= 0 && next < rows_->rowCount()) list_.setCurrentIndex(rows_->index(next, 0));
}

// What no name has, or an item bears as its barcode, was typed by a scanner.
bool PickPane::take_code() {
    const QString typed = ui_->find_box->text();
    if (!ScanEntry::is_typed_into() || typed.isEmpty()) return false;
    const bool is_code = rows_->rowCount() == 0 || find_scanned_item(typed_text(typed)) != 0;
    if (!is_code) return false;
    ui_->find_box->clear();
    Q_EMIT code_typed(typed);
    return true;
}

}  // namespace tavernook
