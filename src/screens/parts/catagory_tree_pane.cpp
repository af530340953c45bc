#include "screens/parts/catagory_tree_pane.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "barcodes/scanners.h"
#include "core/project_data.h"
#include "screens/parts/guard.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/open_catagories.h"
#include "screens/parts/table_copy.h"

namespace tavernook {

namespace {

constexpr int milliseconds_to_open = 600;  // a closed category under something dragged
constexpr int letters_of_a_name = 20;

bool is_plain(const QKeyEvent& key) {
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

// A scanner that types may begin a code with it, which the find box looks for.
bool begins_code(const QKeyEvent& key) {
    const QString typed = key.text();
    return scanner_type == keyboard_wedge && is_plain(key) && typed.size() == 1 &&
           typed.front().isDigit();
}

// On some keyboards it takes Shift.
bool is_slash(const QKeyEvent& key) {
    const auto held = key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    return key.key() == Qt::Key_Slash && held == Qt::NoModifier;
}

}  // namespace

CatagoryTreePane::CatagoryTreePane(QWidget* parent) : QWidget(parent) {}

CatagoryTreePane::~CatagoryTreePane() = default;

void CatagoryTreePane::set_up(const TreeControls& controls, TreeContents contents,
                              TreeManner manner) {
    filter_ = &controls.filter;
    tree_ = &controls.tree;
    hint_ = &controls.hint;
    manner_ = std::move(manner);
    model_ = new CatagoryTreeModel(std::move(contents), this);
    open_ = std::make_unique<OpenCatagories>(*tree_, *model_, manner_.opens_up_to);
    tree_->setModel(model_);
    tree_->setAutoExpandDelay(milliseconds_to_open);
    copy_rows_by_keys(*tree_);
    space_rows(*tree_);
    follow_font_size(*tree_);
    if (model_->columnCount() > 1) set_up_columns();
    set_up_rename();
    connect_tree();
    for (QObject* watched : std::initializer_list<QObject*>{filter_, tree_, tree_->viewport()}) {
        watched->installEventFilter(this);
    }
    setFocusProxy(tree_);
}

void CatagoryTreePane::set_up_columns() {
    QHeaderView& header = *tree_->header();
    header.setStretchLastSection(false);
    header.setSectionsClickable(true);
    header.setSortIndicatorShown(true);
    header.setSortIndicator(CatagoryTreeModel::name_column, Qt::AscendingOrder);
    connect(&header, &QHeaderView::sectionClicked, this, &CatagoryTreePane::sort_by_header);
    connect(&header, &QHeaderView::sortIndicatorChanged, this, &CatagoryTreePane::sort_by_header);
}

void CatagoryTreePane::set_up_rename() {
    rename_ = new QAction(tr("Rename"), this);
    rename_->setObjectName(QStringLiteral("rename"));
    rename_->setShortcut(Qt::Key_F2);
    rename_->setShortcutContext(Qt::WidgetShortcut);
    rename_->setEnabled(false);
    tree_->addAction(rename_);
    connect(rename_, &QAction::triggered, this, &CatagoryTreePane::rename_marked);
}

// The view is still busy with its editor or with the drop when it tells.
void CatagoryTreePane::connect_tree() {
    connect(model_, &CatagoryTreeModel::changed, this, &end_of_step, Qt::QueuedConnection);
    connect(tree_->itemDelegate(), &QAbstractItemDelegate::closeEditor, this, &end_of_step,
            Qt::QueuedConnection);
    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        rename_->setEnabled(is_anything_marked());
        if (!is_arranging_) Q_EMIT chosen();
    });
    connect(tree_, &QTreeView::customContextMenuRequested, this, [this](const QPoint& place) {
        Q_EMIT menu_wanted(tree_->viewport()->mapToGlobal(place));
    });
    connect(tree_, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { note_turned(index, true); });
    connect(tree_, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { note_turned(index, false); });
    connect(filter_, &QLineEdit::textChanged, this, &CatagoryTreePane::narrow);
}

// --- what stands in it -----------------------------------------------------------------------

void CatagoryTreePane::populate(View view) {
    const QScopedValueRollback arranging(is_arranging_, true);
    const QString marked = marked_key();
    const int scrolled = tree_->verticalScrollBar()->value();
    model_->populate(view);
    restore_open();
    mark(marked);
    tree_->verticalScrollBar()->setValue(scrolled);
    tree_->setRootIsDecorated(view == View::tree);
}

void CatagoryTreePane::restore_open() {
    const QScopedValueRollback arranging(is_arranging_, true);
    open_->restore();
    if (model_->columnCount() > 1) span_catagories();
    update_hint();
}

// A category has nothing to show in the other columns.
void CatagoryTreePane::span_catagories() {
    for (const QModelIndex& row : model_->catagory_rows()) {
        tree_->setFirstColumnSpanned(row.row(), row.parent(), true);
    }
}

void CatagoryTreePane::note_turned(const QModelIndex& index, bool is_open) {
    if (!is_arranging_) open_->note(index, is_open);
}

void CatagoryTreePane::expand_all(bool is_open) {
    const QScopedValueRollback arranging(is_arranging_, true);
    open_->set_all(is_open);
}

void CatagoryTreePane::sort_by_header() {
    const QScopedValueRollback arranging(is_arranging_, true);
    const QHeaderView& header = *tree_->header();
    const QString marked = marked_key();
    model_->sort(header.sortIndicatorSection(), header.sortIndicatorOrder());
    restore_open();
    mark(marked);
}

// It takes what the other columns leave, and never too little for a name.
void CatagoryTreePane::fit_name_column() {
    int others = 0;
    for (int column = 1; column < model_->columnCount(); ++column) {
        others += tree_->columnWidth(column);
    }
    const int least = letters_wide(*this, letters_of_a_name);
    tree_->setColumnWidth(CatagoryTreeModel::name_column,
                          std::max(least, tree_->viewport()->width() - others));
}

void CatagoryTreePane::update_hint() {
    hint_->setVisible(model_->leaf_count() == 0);
    hint_->setText(model_->is_filtered() ? manner_.hint_when_none_match : manner_.hint_when_empty);
}

// --- what is marked in it --------------------------------------------------------------------

void CatagoryTreePane::mark(const QString& key) {
    const QScopedValueRollback arranging(is_arranging_, true);
    mark_row(*tree_, model_->index_of(key));
    rename_->setEnabled(is_anything_marked());
}

QString CatagoryTreePane::marked_key() const {
    return tree_->currentIndex().data(CatagoryTreeModel::key_role).toString();
}

QString CatagoryTreePane::key_beside_marked() const {
    const QModelIndex marked = tree_->currentIndex();
    const QModelIndex next = marked.siblingAtRow(marked.row() + 1);
    const QModelIndex before = marked.siblingAtRow(marked.row() - 1);
    const QModelIndex& beside = next.isValid() ? next : before.isValid() ? before : marked.parent();
    return beside.data(CatagoryTreeModel::key_role).toString();
}

i16 CatagoryTreePane::marked_leaf() const {
    return model_->leaf_at(tree_->currentIndex());
}

i16 CatagoryTreePane::marked_catagory() const {
    return tree_->currentIndex().isValid() ? model_->catagory_at(tree_->currentIndex()) : i16{0};
}

bool CatagoryTreePane::is_root_marked() const {
    return model_->is_root(tree_->currentIndex());
}

bool CatagoryTreePane::is_anything_marked() const {
    return tree_->currentIndex().isValid();
}

void CatagoryTreePane::reveal(const QString& key) {
    if (!model_->index_of(key).isValid()) filter_->clear();
    const QModelIndex index = model_->index_of(key);
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        tree_->expand(above);
    }
    tree_->scrollTo(index);
}

// --- finding ---------------------------------------------------------------------------------

void CatagoryTreePane::narrow(const QString& filter) {
    const QScopedValueRollback arranging(is_arranging_, true);
    const QString marked = on_show_.isEmpty() ? marked_key() : on_show_;
    model_->set_filter(filter);
    restore_open();
    mark(marked);
    Q_EMIT narrowed();
}

void CatagoryTreePane::find() {
    filter_->setFocus(Qt::ShortcutFocusReason);
    filter_->selectAll();
}

bool CatagoryTreePane::show_all() {
    const bool is_narrowed = !filter_->text().isEmpty();
    filter_->clear();
    return is_narrowed;
}

void CatagoryTreePane::leave_filter(bool shows_first) {
    QModelIndex first = model_->index(0, 0);
    while (first.isValid() && model_->leaf_at(first) == 0) first = tree_->indexBelow(first);
    tree_->setFocus(Qt::OtherFocusReason);
    const bool wanted = shows_first || !is_anything_marked();
    if (first.isValid() && wanted) tree_->setCurrentIndex(first);
}

// --- names and keys --------------------------------------------------------------------------

bool CatagoryTreePane::is_naming() const {
    const QModelIndex current = tree_->currentIndex();
    return current.isValid() &&
           tree_->isPersistentEditorOpen(current.siblingAtColumn(CatagoryTreeModel::name_column));
}

void CatagoryTreePane::rename_marked() {
    const QModelIndex current = tree_->currentIndex();
    if (!current.isValid()) return;
    const QModelIndex name = current.siblingAtColumn(CatagoryTreeModel::name_column);
    if (name.flags() & Qt::ItemIsEditable) {
        tree_->edit(name);
    } else {
        Q_EMIT rename_elsewhere();
    }
}

void CatagoryTreePane::enter_marked() {
    const QModelIndex current = tree_->currentIndex();
    if (marked_leaf() != 0) {
        Q_EMIT leaf_entered();
    } else if (current.isValid()) {
        tree_->setExpanded(current, !tree_->isExpanded(current));
    }
}

// The keys that a name being typed does not take come on to the tree.
bool CatagoryTreePane::tree_key(const QKeyEvent& key) {
    if (is_naming()) return false;
    if (is_slash(key)) {
        find();
    } else if (begins_code(key)) {
        find();
        filter_->insert(key.text());
    } else if (key.matches(QKeySequence::Delete)) {
        Q_EMIT delete_wanted();
    } else if (is_plain(key) && key.key() == Qt::Key_Insert) {
        Q_EMIT insert_wanted();
    } else if (is_plain(key) && is_enter(key)) {
        enter_marked();
    } else {
        return false;
    }
    return true;
}

bool CatagoryTreePane::filter_key(const QKeyEvent& key) {
    if (!is_plain(key)) return false;
    if (key.key() == Qt::Key_Escape) {
        filter_->clear();
        tree_->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (key.key() != Qt::Key_Down && !is_enter(key)) return false;
    leave_filter(is_enter(key));
    return true;
}

bool CatagoryTreePane::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == tree_->viewport()) {
        if (model_->columnCount() > 1) fit_name_column();
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (watched == tree_ && tree_key(key)) return true;
        if (watched == filter_ && filter_key(key)) return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tavernook
