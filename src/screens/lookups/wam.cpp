#include "screens/lookups/wam.h"

#include <QStringListModel>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "core/weights_and_measures.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/slot_rows_model.h"
#include "screens/parts/table_copy.h"
#include "ui_wam.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 80;
constexpr int longest_side = 30000;  // two of them and the sign between fit into a file

QVariant line_text(i16 slot) {
    return shown_text(wams[slot].text);
}

}  // namespace

wam::wam(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::wam>()),
      wam_slots_(new SlotRowsModel(QLatin1Char('t'), {{tr("Measure"), line_text}}, this)) {
    ui_->setupUi(this);
    ui_->content->setMaximumWidth(letters_wide(*this, comfortable_letters));
    ui_->left_field->setMaxLength(longest_side);
    ui_->right_field->setMaxLength(longest_side);
    ui_->accept_button->setEnabled(false);
    set_up_lists();
    connect_commands();
    enter_presses_buttons(*this);
    setFocusProxy(ui_->tabs);
    PopulateWamList();
}

wam::~wam() = default;

void wam::set_up_lists() {
    QStringList fixed;
    for (const std::string_view line : fixed_measures) fixed.append(shown_text(line));
    ui_->fixed_list->setModel(new QStringListModel(fixed, this));
    ui_->own_list->setModel(wam_slots_);
    for (QListView* list : {ui_->fixed_list, ui_->own_list}) {
        space_rows(*list);
        copy_rows_by_keys(*list);
    }
    hint_when_empty(*ui_->own_list, tr("No measures of your own yet: press \"New\" and type one."));
}

void wam::connect_commands() {
    const auto runs = [this](void (wam::*command)()) {
        return [this, command] { trap_in_screen([&] { (this->*command)(); }); };
    };
    const auto picks = [this](const QModelIndex& row) {
        if (!quiet_ && row.isValid()) trap_in_screen([&] { pick(row.row()); });
    };
    connect(ui_->new_button, &QPushButton::clicked, this, runs(&wam::new_line));
    connect(ui_->accept_button, &QPushButton::clicked, this, runs(&wam::accept_line));
    connect(ui_->delete_button, &QPushButton::clicked, this, runs(&wam::delete_line));
    connect(ui_->close_button, &QPushButton::clicked, this, [this] { close_screen(*this); });
    connect(ui_->own_list, &QListView::clicked, this, picks);
    connect(ui_->own_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [picks](const QItemSelection& selected) { picks(selected.indexes().value(0)); });
    connect(ui_->own_list, &QListView::activated, this, runs(&wam::edit_line));
    connect(ui_->left_field, &QLineEdit::returnPressed, ui_->right_field,
            [this] { ui_->right_field->setFocus(); });
    connect(ui_->right_field, &QLineEdit::returnPressed, ui_->accept_button, &QPushButton::click);
    on_keys(*ui_->own_list, Qt::Key_F2, runs(&wam::edit_line));
    on_keys(*ui_->own_list, QKeySequence::Delete, runs(&wam::delete_line));
    on_keys(*this, Qt::Key_Escape, runs(&wam::escape));
}

void wam::PopulateWamList() {
    trap_in_screen([this] {
        quietly([this] { wam_slots_->set_slots(live_wams()); });
        show_mode();
    });
}

void wam::new_line() {
    wam_is_new_ = i16_true;
    set_fields({}, {});
    ui_->accept_button->setEnabled(true);
    show_mode();
    ui_->left_field->setFocus();
}

// Without a free slot nothing is stored and the fields keep their text.
void wam::accept_line() {
    const std::string line =
        join_measure(typed_text(ui_->left_field->text()), typed_text(ui_->right_field->text()));
    const bool was_new = wam_is_new_ != 0;
    i16 slot = current_wam_;
    if (was_new) {
        slot = GetFreeWam();
        if (slot == 0) return;
        wams[slot].in_use = i16_true;
        wam_is_new_ = i16_false;
    }
    wams[slot].text = line;
    project_modified = i16_true;
    set_fields({}, {});
    ui_->accept_button->setEnabled(false);
    PopulateWamList();
    select_line();
    ui_->own_list->scrollTo(wam_slots_->index(wam_slots_->row_of(slot), 0));
    QWidget* next = ui_->own_list;
    if (was_new) next = ui_->new_button;
    next->setFocus();
}

void wam::delete_line() {
    if (current_wam_ != 0 && wams[current_wam_].in_use != 0) project_modified = i16_true;
    wams[current_wam_] = {};
    set_fields({}, {});
    ui_->accept_button->setEnabled(false);
    PopulateWamList();
    select_line();
    ui_->own_list->setFocus();
}

// The left field keeps the blank in front of "=": kept, so that a line accepted unchanged grows.
void wam::pick(int row) {
    current_wam_ = wam_slots_->slot_at(row);
    const MeasureParts parts = split_measure(wams[current_wam_].text);
    set_fields(shown_text(parts.left), shown_text(parts.right));
    ui_->accept_button->setEnabled(true);
    show_mode();
}

void wam::edit_line() {
    const QModelIndex row = ui_->own_list->currentIndex();
    if (!row.isValid()) return;
    if (!ui_->accept_button->isEnabled()) pick(row.row());
    ui_->left_field->setFocus();
    ui_->left_field->selectAll();
}

// What was typed and not yet accepted goes first, the screen after it.
void wam::escape() {
    if (!ui_->left_field->isModified() && !ui_->right_field->isModified()) {
        return close_screen(*this);
    }
    const int row = wam_slots_->row_of(current_wam_);
    if (wam_is_new_ == 0 && row >= 0) {
        pick(row);
    } else {
        set_fields({}, {});
    }
    ui_->own_list->setFocus();
}

void wam::quietly(const std::function<void()>& work) {
    quiet_ = true;
    trap_in_screen(work);
    quiet_ = false;
}

// What is marked in the list is what Delete deletes.
void wam::select_line() {
    quietly([this] {
        const int row = wam_slots_->row_of(current_wam_);
        if (row >= 0) {
            ui_->own_list->setCurrentIndex(wam_slots_->index(row, 0));
        } else {
            ui_->own_list->clearSelection();
        }
    });
}

void wam::set_fields(const QString& left, const QString& right) {
    ui_->left_field->setText(left);
    ui_->right_field->setText(right);
}

void wam::show_mode() {
    const bool typing = ui_->accept_button->isEnabled();
    const int row = wam_slots_->row_of(current_wam_);
    ui_->mode_label->setText(!typing ? tr("Pick a line to change it, or press \"New\".")
                             : wam_is_new_ != 0 || row < 0 ? tr("A new line:")
                                                           : tr("Change line %1:").arg(row + 1));
}

}  // namespace tavernook
