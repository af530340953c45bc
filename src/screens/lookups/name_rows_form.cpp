#include "screens/lookups/name_rows_form.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <algorithm>
#include <utility>

#include "core/program_state.h"
#include "core/trap.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/slot_rows_model.h"
#include "ui_name_rows_form.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 64;
constexpr int uses_letters = 20;

std::size_t index_of(i16 slot) {
    return static_cast<std::size_t>(slot);
}

}  // namespace

NameRowsForm::NameRowsForm(NameRowsKind kind, QWidget* parent)
    : QWidget(parent), kind_(std::move(kind)), ui_(std::make_unique<Ui::NameRowsForm>()) {
    ui_->setupUi(this);
    ui_->content->setMaximumWidth(letters_wide(*this, comfortable_letters));
    ui_->name_label->setText(kind_.label);
    ui_->name_box->setMaxLength(kind_.longest_name);
    ui_->name_box->setAccessibleName(QString(kind_.label).remove(QLatin1Char('&')));
    ui_->new_button->setToolTip(tr("Begin a new %1.").arg(kind_.one));
    ui_->delete_button->setToolTip(tr("Delete what is selected (Delete)."));
    set_up_list();
    connect_commands();
    enter_presses_buttons(*this);
    setFocusProxy(ui_->name_list);
    refresh();
    stop_editing();
}

NameRowsForm::~NameRowsForm() = default;

void NameRowsForm::set_up_list() {
    const auto name = [this](i16 slot) -> QVariant { return shown_text(kind_.name_of(slot)); };
    const auto uses = [this](i16 slot) -> QVariant { return uses_[index_of(slot)]; };
    model_ = new SlotRowsModel(
        QLatin1Char('t'),
        {{tr("Name"), name}, {tr("Items with it"), uses, Qt::AlignRight | Qt::AlignVCenter}}, this);
    sorted_ = sorted_rows_of(*model_, this);
    dress_list(*ui_->name_list);
    ui_->name_list->setModel(sorted_);
    ui_->name_list->setAccessibleName(kind_.plural);
    QHeaderView* header = ui_->name_list->header();
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->resizeSection(1, letters_wide(*this, uses_letters));
    hint_when_empty(*ui_->name_list,
                    tr("No %1 yet: press \"New\" and type its name.").arg(kind_.one));
}

void NameRowsForm::connect_commands() {
    const auto runs = [this](void (NameRowsForm::*command)()) {
        return [this, command] { trap_in_screen([&] { (this->*command)(); }); };
    };
    connect(ui_->new_button, &QPushButton::clicked, this, runs(&NameRowsForm::new_name));
    connect(ui_->accept_button, &QPushButton::clicked, this, runs(&NameRowsForm::accept_name));
    connect(ui_->name_box, &QLineEdit::returnPressed, this, runs(&NameRowsForm::accept_name));
    connect(ui_->delete_button, &QPushButton::clicked, this, runs(&NameRowsForm::delete_names));
    connect(ui_->close_button, &QPushButton::clicked, this, [this] { close_screen(*this); });
    connect(ui_->name_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            runs(&NameRowsForm::pick));
    connect(ui_->name_list, &QTreeView::activated, this, runs(&NameRowsForm::edit_name));
    on_keys(*ui_->name_list, Qt::Key_F2, runs(&NameRowsForm::edit_name));
    on_keys(*ui_->name_list, QKeySequence::Delete, runs(&NameRowsForm::delete_names));
    on_keys(*this, Qt::Key_Escape, runs(&NameRowsForm::escape));
}

void NameRowsForm::new_name() {
    ui_->name_list->clearSelection();
    stop_editing();
    allow_typing(true);
    ui_->name_box->setFocus();
}

void NameRowsForm::accept_name() {
    const bool is_new = kind_.edit_mode == 0;
    const std::string name = typed_text(ui_->name_box->text());
    const std::vector<std::string> before = names_now();
    allow_typing(false);
    ui_->delete_button->setEnabled(false);
    kind_.accept(name);
    const std::vector<std::string> after = names_now();
    ui_->name_list->clearSelection();
    refresh();
    stop_editing();
    const auto changed = std::mismatch(after.begin(), after.end(), before.begin());
    if (changed.first != after.end()) {
        project_modified = i16_true;
        const int row = model_->row_of(static_cast<i16>(changed.first - after.begin()));
        const QModelIndex place = sorted_->mapFromSource(model_->index(row, 0));
        ui_->name_list->selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
        ui_->name_list->scrollTo(place);
    }
    QWidget* next = ui_->name_list;
    if (is_new) next = ui_->new_button;
    next->setFocus();
}

void NameRowsForm::delete_names() {
    const std::vector<int> rows = selected_rows();
    if (rows.empty()) return;
    const std::vector<std::string> before = names_now();
    kind_.delete_selected(rows);
    if (names_now() != before) project_modified = i16_true;
    refresh();
    pick();
    ui_->name_list->setFocus();
}

// What was typed and not yet accepted goes first, the screen after it.
void NameRowsForm::escape() {
    if (!ui_->name_box->isModified()) return close_screen(*this);
    pick();
    ui_->name_list->setFocus();
}

// The list's current row among those selected goes into the box.
void NameRowsForm::pick() {
    const std::vector<int> rows = selected_rows();
    if (rows.empty()) return stop_editing();
    const QModelIndex place = sorted_->mapToSource(ui_->name_list->currentIndex());
    const int current = row_in_map(model_->slot_at(place.row()));
    const bool among = std::find(rows.begin(), rows.end(), current) != rows.end();
    kind_.list_row = to_i16(among ? current : rows.front());
    kind_.edit_mode = i16_true;
    const i16 slot = kind_.list_map[index_of(kind_.list_row) + 1];
    ui_->name_box->setText(shown_text(kind_.name_of(slot)));
    allow_typing(true);
    ui_->delete_button->setEnabled(true);
}

void NameRowsForm::edit_name() {
    if (!ui_->name_box->isEnabled()) return;
    ui_->name_box->setFocus();
    ui_->name_box->selectAll();
}

void NameRowsForm::refresh() {
    kind_.refresh_list();
    uses_.fill(0);
    kind_.count_uses(uses_);
    std::vector<i16> slots;
    for (std::size_t row = 1; row < kind_.list_map.size() && kind_.list_map[row] != 0; ++row) {
        slots.push_back(kind_.list_map[row]);
    }
    model_->set_slots(slots);
}

void NameRowsForm::stop_editing() {
    kind_.edit_mode = 0;
    ui_->name_box->clear();
    allow_typing(false);
    ui_->delete_button->setEnabled(false);
}

void NameRowsForm::allow_typing(bool allowed) {
    ui_->name_box->setEnabled(allowed);
    ui_->accept_button->setEnabled(allowed);
}

// The map is the routines' own and is rebuilt by them, so that rows are looked up when needed.
int NameRowsForm::row_in_map(i16 slot) const {
    const auto found = std::find(kind_.list_map.begin() + 1, kind_.list_map.end(), slot);
    const bool listed = slot != 0 && found != kind_.list_map.end();
    return listed ? static_cast<int>(found - kind_.list_map.begin()) - 1 : -1;
}

std::vector<int> NameRowsForm::selected_rows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : ui_->name_list->selectionModel()->selectedRows()) {
        const int row = row_in_map(model_->slot_at(sorted_->mapToSource(index).row()));
        if (row >= 0) rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

// By slot.
std::vector<std::string> NameRowsForm::names_now() const {
    std::vector<std::string> names;
    for (i16 slot = 0; slot < static_cast<i16>(kind_.list_map.size()); ++slot) {
        names.emplace_back(kind_.name_of(slot));
    }
    return names;
}

void NameRowsForm::closeEvent(QCloseEvent* event) {
    trap_in_screen([this] { kind_.refresh_boxes(); });
    event->accept();
}

void NameRowsForm::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return;  // the desktop's doing; what was being typed stays
    trap_in_screen([this] {
        refresh();
        pick();
    });
}

}  // namespace tavernook
