#include "screens/lookups/wam.h"

#include <QCloseEvent>
#include <QStringListModel>
#include <utility>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/weights_and_measures.h"
#include "platform/platform.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/table_copy.h"
#include "ui_wam.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 80;
constexpr int longest_side = 30000;  // two of them and the sign between fit into a file

QString line_text(RowId row) {
    return shown_text(row_or_none(wams, part_of(row, 0)).text);
}

}  // namespace

wam::wam(QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::wam>()),
      lines_(new RowsModel({{.title = tr("Measure"), .text = line_text}}, this)),
      seen_{Subject::measures} {
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
    lines_->set_key([](RowId row) { return QLatin1Char('t') + QString::number(row); });
    QStringList fixed;
    for (const std::string_view line : fixed_measures) fixed.append(shown_text(line));
    ui_->fixed_list->setModel(new QStringListModel(fixed, this));
    ui_->own_list->setModel(lines_);
    for (QListView* list : {ui_->fixed_list, ui_->own_list}) {
        space_rows(*list);
        copy_rows_by_keys(*list);
    }
    hint_when_empty(*ui_->own_list, tr("No measures of your own yet: press \"New\" and type one."));
}

void wam::connect_commands() {
    const auto picks = [this](const QModelIndex& row) {
        if (!filling_ && row.isValid()) turn_to(part_of(lines_->row_at(row.row()), 0));
    };
    const auto edits = [this] { guarded([this] { edit_line(); }); };
    on_command(ui_->new_button, [this] { new_line(); });
    on_command(ui_->accept_button, [this] { accept_line(); });
    on_command(ui_->delete_button, [this] { delete_line(); });
    connect(ui_->close_button, &QPushButton::clicked, this, [this] { close_screen(*this); });
    connect(ui_->own_list, &QListView::clicked, this, picks);
    connect(ui_->own_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [picks](const QItemSelection& selected) { picks(selected.indexes().value(0)); });
    connect(ui_->own_list, &QListView::activated, this, edits);
    connect(ui_->left_field, &QLineEdit::returnPressed, ui_->right_field,
            [this] { ui_->right_field->setFocus(); });
    connect(ui_->right_field, &QLineEdit::returnPressed, ui_->accept_button, &QPushButton::click);
    on_keys(*ui_->own_list, Qt::Key_F2, edits);
    on_keys(*ui_->own_list, QKeySequence::Delete, [this] { run([this] { delete_line(); }); });
    on_keys(*this, Qt::Key_Escape, [this] { guarded([this] { escape(); }); });
}

// --- commands ------------------------------------------------------------------------------------

void wam::new_line() {
    if (!settle()) return;
    is_new_ = true;
    set_fields({}, {});
    ui_->accept_button->setEnabled(true);
    show_mode();
    ui_->left_field->setFocus();
}

// Without a free slot nothing is stored and the fields keep their text.
void wam::accept_line() {
    const std::string line =
        join_measure(typed_text(ui_->left_field->text()), typed_text(ui_->right_field->text()));
    const bool was_new = is_new_;
    const i16 slot = slot_to_write();
    if (slot == 0) return;
    wams[slot].in_use = i16_true;
    wams[slot].text = line;
    project_modified = i16_true;
    is_new_ = false;
    stop_editing();
    fill();
    select_line();
    ui_->own_list->scrollTo(lines_->index(lines_->place_of(slot), 0));
    QWidget* next = ui_->own_list;
    if (was_new) next = ui_->new_button;
    next->setFocus();
}

i16 wam::slot_to_write() {
    if (is_new_) return GetFreeWam();
    const i16 slot = current_.now();
    if (slot == 0) say(tr("This line is not there any more."));
    return slot;
}

// A new line that was typed is not the one to be deleted.
void wam::delete_line() {
    if (is_new_ && !settle()) return;
    const i16 slot = current_.now();
    if (slot != 0) {
        wams[slot] = {};
        project_modified = i16_true;
    }
    stop_editing();
    fill();
    select_line();
    ui_->own_list->setFocus();
}

// A question waits until the key or the mouse button has done its work. The line that is being
// edited stays as it was typed.
void wam::turn_to(i16 slot) {
    if (!has_edits()) {
        guarded([&] { pick(slot); });
        return;
    }
    const bool is_same = !is_new_ && slot == current_.now();
    if (is_same || std::exchange(is_turning_, true)) return;
    const auto turn = [this, wanted = RowRef(Subject::measures, slot)] {
        is_turning_ = false;
        run([&] {
            const bool is_settled = settle();
            if (is_settled) pick(wanted.now());
            select_line();
            if (!is_settled) ui_->left_field->setFocus();
        });
    };
    QMetaObject::invokeMethod(this, turn, Qt::QueuedConnection);
}

void wam::pick(i16 slot) {
    current_ = RowRef(Subject::measures, slot);
    if (slot != 0) show_line(slot);
}

void wam::edit_line() {
    const QModelIndex row = ui_->own_list->currentIndex();
    if (!row.isValid()) return;
    if (!is_editing()) pick(part_of(lines_->row_at(row.row()), 0));
    ui_->left_field->setFocus();
    ui_->left_field->selectAll();
}

// What was typed and not yet accepted goes first, the screen after it.
void wam::escape() {
    if (!has_edits()) return close_screen(*this);
    drop_edits();
    ui_->own_list->setFocus();
}

// --- what was typed and not accepted -------------------------------------------------------------

bool wam::is_typed() const {
    return is_editing() &&
           (ui_->left_field->text() != left_shown_ || ui_->right_field->text() != right_shown_);
}

bool wam::has_edits() const {
    return is_typed() && (is_new_ || current_.now() != 0);
}

bool wam::settle() {
    if (!has_edits()) return true;
    const QString typed = ui_->left_field->text() + QLatin1String(" = ") + ui_->right_field->text();
    const QString question = is_new_
                                 ? tr("Save the new measure \"%1\"?").arg(typed)
                                 : tr("Save the changes to \"%1\"?").arg(line_text(current_.now()));
    const Answer answer =
        boxes().message(typed_text(question), Buttons::yes_no_cancel, typed_text(windowTitle()));
    if (answer == Answer::cancel) return false;
    if (answer == Answer::yes) {
        accept_line();
    } else {
        drop_edits();
    }
    return !has_edits();
}

bool wam::settle_edits() {
    bool is_settled = false;
    guarded([&] { is_settled = settle(); });
    return is_settled;
}

void wam::drop_edits() {
    const i16 slot = is_new_ ? i16{0} : current_.now();
    if (slot != 0) return show_line(slot);
    is_new_ = false;
    stop_editing();
    show_mode();
}

void wam::closeEvent(QCloseEvent* event) {
    bool may_close = false;
    run([&] { may_close = settle(); });
    event->setAccepted(may_close);
}

// --- what is shown -------------------------------------------------------------------------------

void wam::PopulateWamList() {
    guarded([this] { fill(); });
}

void wam::fill() {
    const std::vector<i16> live = live_wams();
    filling_ = true;
    refill_in_place(*ui_->own_list, *lines_, {live.begin(), live.end()});
    filling_ = false;
    show_mode();
    seen_.renew();
}

// What was typed stays; a line that nobody has touched follows, or goes with its record.
void wam::follow_changes() {
    if (!seen_.is_stale()) return;
    fill();
    if (!is_editing() || is_new_ || is_typed()) return;
    if (const i16 slot = current_.now(); slot != 0) return show_line(slot);
    stop_editing();
    show_mode();
}

bool wam::is_editing() const {
    return ui_->accept_button->isEnabled();
}

// The left field keeps the blank in front of "=": kept, so that a line accepted unchanged grows.
void wam::show_line(i16 slot) {
    const MeasureParts parts = split_measure(row_or_none(wams, slot).text);
    set_fields(shown_text(parts.left), shown_text(parts.right));
    ui_->accept_button->setEnabled(true);
    show_mode();
}

// What is marked in the list is what Delete deletes.
void wam::select_line() {
    filling_ = true;
    if (!select_row(*ui_->own_list, *lines_, current_.now())) ui_->own_list->clearSelection();
    filling_ = false;
}

void wam::stop_editing() {
    set_fields({}, {});
    ui_->accept_button->setEnabled(false);
}

void wam::set_fields(const QString& left, const QString& right) {
    left_shown_ = left;
    right_shown_ = right;
    ui_->left_field->setText(left);
    ui_->right_field->setText(right);
}

void wam::show_mode() {
    const int row = lines_->place_of(current_.now());
    ui_->mode_label->setText(!is_editing() ? tr("Pick a line to change it, or press \"New\".")
                             : is_new_ || row < 0 ? tr("A new line:")
                                                  : tr("Change line %1:").arg(row + 1));
}

}  // namespace tavernook
