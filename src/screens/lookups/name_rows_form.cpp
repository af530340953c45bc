#include "screens/lookups/name_rows_form.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <algorithm>
#include <utility>

#include "core/program_state.h"
#include "platform/platform.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/shown_text.h"
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
    : Screen(parent),
      kind_(std::move(kind)),
      ui_(std::make_unique<Ui::NameRowsForm>()),
      seen_{kind_.table, Subject::items} {
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
    guarded([this] { refresh(); });
    stop_editing();
}

NameRowsForm::~NameRowsForm() = default;

void NameRowsForm::set_up_list() {
    const auto uses_of = [this](RowId row) { return uses_[index_of(part_of(row, 0))]; };
    model_ = new RowsModel(
        {{.title = tr("Name"),
          .text = [this](RowId row) { return shown_text(kind_.name_of(part_of(row, 0))); }},
         {.title = tr("Items with it"),
          .text = [uses_of](RowId row) { return QString::number(uses_of(row)); },
          .number = [uses_of](RowId row) { return f64(uses_of(row)); },
          .alignment = on_the_right}},
        this);
    model_->set_key([](RowId row) { return QLatin1Char('t') + QString::number(row); });
    dress_list(*ui_->name_list);
    ui_->name_list->setModel(model_);
    ui_->name_list->setAccessibleName(kind_.plural);
    QHeaderView* header = ui_->name_list->header();
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->resizeSection(1, letters_wide(*this, uses_letters));
    hint_when_empty(*ui_->name_list,
                    tr("No %1 yet: press \"New\" and type its name.").arg(kind_.one));
}

void NameRowsForm::connect_commands() {
    const auto runs = [this](void (NameRowsForm::*command)()) {
        return [this, command] { run([this, command] { (this->*command)(); }); };
    };
    on_command(ui_->new_button, [this] { new_name(); });
    on_command(ui_->accept_button, [this] { accept_name(); });
    on_command(ui_->delete_button, [this] { delete_names(); });
    connect(ui_->name_box, &QLineEdit::returnPressed, this, runs(&NameRowsForm::accept_name));
    connect(ui_->close_button, &QPushButton::clicked, this, [this] { close_screen(*this); });
    connect(ui_->name_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!filling_) turn_to_pick();
    });
    connect(ui_->name_list, &QTreeView::activated, this, &NameRowsForm::edit_name);
    on_keys(*ui_->name_list, Qt::Key_F2, [this] { edit_name(); });
    on_keys(*ui_->name_list, QKeySequence::Delete, runs(&NameRowsForm::delete_names));
    on_keys(*this, Qt::Key_Escape, [this] { guarded([this] { escape(); }); });
}

// --- commands ------------------------------------------------------------------------------------

void NameRowsForm::new_name() {
    if (!settle()) return;
    ui_->name_list->clearSelection();
    stop_editing();
    is_new_ = true;
    allow_typing(true);
    ui_->name_box->setFocus();
}

void NameRowsForm::accept_name() {
    const bool is_new = is_new_;
    if (!is_new && edited_.now() == 0) {
        stop_editing();
        return say(tr("This %1 is not there any more.").arg(kind_.one));
    }
    const std::string name = typed_text(ui_->name_box->text());
    const std::vector<std::string> before = names_now();
    allow_typing(false);
    ui_->delete_button->setEnabled(false);
    kind_.accept(name);
    const std::vector<std::string> after = names_now();
    ui_->name_list->clearSelection();
    stop_editing();
    refresh();
    const auto changed = std::mismatch(after.begin(), after.end(), before.begin());
    if (changed.first != after.end()) {
        project_modified = i16_true;
        stand_on(model_->place_of(static_cast<i16>(changed.first - after.begin())));
    }
    QWidget* next = ui_->name_list;
    if (is_new) next = ui_->new_button;
    next->setFocus();
}

// The row becomes the current one, in sight, and nothing is picked by that.
void NameRowsForm::stand_on(int row) {
    const QModelIndex place = model_->index(row, 0);
    ui_->name_list->selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
    ui_->name_list->scrollTo(place);
}

void NameRowsForm::delete_names() {
    const std::vector<int> rows = selected_in_map();
    if (rows.empty()) return;
    const std::vector<std::string> before = names_now();
    const RowId current = current_row(*ui_->name_list, *model_);
    const int above = ui_->name_list->currentIndex().row() - 1;
    kind_.delete_selected(rows);
    if (names_now() != before) project_modified = i16_true;
    refresh();
    if (model_->place_of(current) < 0) stand_on(std::max(0, above));
    if (!has_edits()) pick();
    ui_->name_list->setFocus();
}

// What was typed and not yet accepted goes first, the screen after it.
void NameRowsForm::escape() {
    if (!has_edits()) return close_screen(*this);
    drop_edits();
    ui_->name_list->setFocus();
}

// A question waits until the key or the mouse button has done its work. Another selection around
// the same row leaves the box alone.
void NameRowsForm::turn_to_pick() {
    if (!has_edits()) {
        guarded([this] { pick(); });
        return;
    }
    const bool is_same = !is_new_ && picked() == edited_.now();
    if (is_same || std::exchange(is_turning_, true)) return;
    const auto turn = [this] {
        is_turning_ = false;
        run([this] {
            const RowRef wanted(kind_.table, picked());
            const bool is_settled = settle();
            if (is_settled) edited_ = wanted;
            mark_edited();
            if (is_settled) return pick();
            ui_->name_box->setFocus();
        });
    };
    QMetaObject::invokeMethod(this, turn, Qt::QueuedConnection);
}

// The list's current row among those selected.
i16 NameRowsForm::picked() const {
    const std::vector<RowId> rows = selected_rows(*ui_->name_list, *model_);
    if (rows.empty()) return 0;
    const RowId current = current_row(*ui_->name_list, *model_);
    const bool among = std::find(rows.begin(), rows.end(), current) != rows.end();
    return part_of(among ? current : *std::min_element(rows.begin(), rows.end()), 0);
}

void NameRowsForm::pick() {
    edited_ = RowRef(kind_.table, picked());
    if (edited_.now() == 0) return stop_editing();
    show_edited();
}

void NameRowsForm::edit_name() {
    if (!ui_->name_box->isEnabled()) return;
    ui_->name_box->setFocus();
    ui_->name_box->selectAll();
}

// --- what was typed and not accepted -------------------------------------------------------------

bool NameRowsForm::is_typed() const {
    return ui_->name_box->isEnabled() && ui_->name_box->text().trimmed() != shown_.trimmed();
}

bool NameRowsForm::has_edits() const {
    return is_typed() && (is_new_ || edited_.now() != 0);
}

bool NameRowsForm::settle() {
    if (!has_edits()) return true;
    const QString name = is_new_ ? ui_->name_box->text().trimmed() : shown_;
    const QString question = is_new_ ? tr("Save the new %1 \"%2\"?").arg(kind_.one, name)
                                     : tr("Save the changes to \"%1\"?").arg(name);
    const Answer answer =
        boxes().message(typed_text(question), Buttons::yes_no_cancel, typed_text(windowTitle()));
    if (answer == Answer::cancel) return false;
    if (answer == Answer::yes) {
        accept_name();
    } else {
        drop_edits();
    }
    return true;
}

bool NameRowsForm::settle_edits() {
    bool is_settled = false;
    guarded([&] { is_settled = settle(); });
    return is_settled;
}

void NameRowsForm::drop_edits() {
    if (edited_.now() == 0) return stop_editing();
    show_edited();
}

// --- what is shown -------------------------------------------------------------------------------

void NameRowsForm::follow_changes() {
    if (!seen_.is_stale()) return;
    const bool was_editing = !is_new_ && edited_ != RowRef();
    refresh();
    if (!was_editing || is_typed()) return;
    if (edited_.now() == 0) return stop_editing();
    show_edited();
}

void NameRowsForm::refresh() {
    kind_.refresh_list();
    uses_.fill(0);
    kind_.count_uses(uses_);
    std::vector<RowId> slots;
    for (std::size_t row = 1; row < kind_.list_map.size() && kind_.list_map[row] != 0; ++row) {
        slots.push_back(kind_.list_map[row]);
    }
    filling_ = true;
    refill_in_place(*ui_->name_list, *model_, std::move(slots));
    filling_ = false;
    point_at_edited();
    seen_.renew();
}

// For the routines over the table.
void NameRowsForm::point_at_edited() {
    const int row = row_in_map(edited_.now());
    kind_.edit_mode = row >= 0 ? i16_true : i16_false;
    if (row >= 0) kind_.list_row = to_i16(row);
}

void NameRowsForm::show_edited() {
    is_new_ = false;
    point_at_edited();
    show_in_box(shown_text(kind_.name_of(edited_.now())));
    allow_typing(true);
    ui_->delete_button->setEnabled(true);
}

void NameRowsForm::stop_editing() {
    edited_ = {};
    is_new_ = false;
    kind_.edit_mode = 0;
    show_in_box({});
    allow_typing(false);
    ui_->delete_button->setEnabled(false);
}

void NameRowsForm::show_in_box(const QString& name) {
    shown_ = name;
    ui_->name_box->setText(name);
}

// What is being edited and nothing else is marked, without a pick.
void NameRowsForm::mark_edited() {
    filling_ = true;
    if (!select_row(*ui_->name_list, *model_, edited_.now())) ui_->name_list->clearSelection();
    filling_ = false;
}

void NameRowsForm::allow_typing(bool allowed) {
    ui_->name_box->setEnabled(allowed);
    ui_->accept_button->setEnabled(allowed);
}

int NameRowsForm::row_in_map(i16 slot) const {
    const auto found = std::find(kind_.list_map.begin() + 1, kind_.list_map.end(), slot);
    const bool listed = slot != 0 && found != kind_.list_map.end();
    return listed ? static_cast<int>(found - kind_.list_map.begin()) - 1 : -1;
}

std::vector<int> NameRowsForm::selected_in_map() const {
    std::vector<int> rows;
    for (const RowId slot : selected_rows(*ui_->name_list, *model_)) {
        const int row = row_in_map(part_of(slot, 0));
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
    bool may_close = false;
    run([&] { may_close = settle(); });
    if (may_close) guarded([this] { kind_.refresh_boxes(); });
    event->setAccepted(may_close);
}

}  // namespace tavernook
