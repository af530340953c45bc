#include "screens/lookups/ReplaceItem.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QSortFilterProxyModel>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_memory.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/slot_rows_model.h"
#include "ui_ReplaceItem.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 48;
constexpr int comfortable_lines = 24;

QString name_of(ReplacementType type, i16 row) {
    switch (type) {
        case ReplacementType::item:
            return shown_text(items[row].name.right_trimmed());
        case ReplacementType::store:
            return shown_text(stores[row].name.right_trimmed());
        case ReplacementType::unit:
            return shown_text(units[row].name.right_trimmed());
    }
    return {};
}

struct Words {
    QString title, plural, hint;
};

Words words_for(ReplacementType type) {
    switch (type) {
        case ReplacementType::store:
            return {QObject::tr("Replace Store"), QObject::tr("Stores"),
                    QObject::tr("There is no other store: add one first.")};
        case ReplacementType::unit:
            return {QObject::tr("Replace Unit"), QObject::tr("Units"),
                    QObject::tr("There is no other unit: add one first.")};
        case ReplacementType::item:
            break;
    }
    return {QObject::tr("Replace Item"), QObject::tr("Items"),
            QObject::tr("There is no other item: add one first.")};
}

}  // namespace

ReplaceItem::ReplaceItem(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::ReplaceItem>()) {
    ui_->setupUi(this);
    const auto name = [this](i16 row) -> QVariant { return name_of(type_, row); };
    model_ = new SlotRowsModel(QLatin1Char('t'), {{tr("Name"), name}}, this);
    set_up_list();
    ui_->filter_box->installEventFilter(this);
    ui_->replace_button->setEnabled(false);
    connect(ui_->close_button, &QPushButton::clicked, this, &QDialog::reject);
    on_keys(*this, Qt::Key_Escape, [this] { reject(); });  // from within the list as well
    connect(ui_->replace_button, &QPushButton::clicked, this, &ReplaceItem::replace_and_close);
    connect(ui_->replacement_list, &QTreeView::doubleClicked, this,
            &ReplaceItem::replace_and_close);
    connect(ui_->filter_box, &QLineEdit::textChanged, this, &ReplaceItem::narrow);
    connect(ui_->replacement_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { ui_->replace_button->setEnabled(selected_row() != 0); });
    resize(letters_wide(*this, comfortable_letters),
           fontMetrics().lineSpacing() * comfortable_lines);
}

ReplaceItem::~ReplaceItem() = default;

void ReplaceItem::set_up_list() {
    shown_ = sorted_rows_of(*model_, this);
    dress_list(*ui_->replacement_list);
    ui_->replacement_list->setModel(shown_);
    ui_->replacement_list->header()->setStretchLastSection(true);
}

void ReplaceItem::set_type(i16 row, ReplacementType type) {
    replace_slot_ = row;
    type_ = type;
    const Words words = words_for(type);
    setWindowTitle(words.title);
    ui_->question_label->setText(
        tr("What takes the place of \"%1\" wherever it is used?").arg(name_of(type, row)));
    ui_->replacement_list->setAccessibleName(words.plural);
}

void ReplaceItem::populate_list() {
    trap_in_screen([this] { model_->set_slots(replacement_rows(replace_slot_, type_)); });
    const Words words = words_for(type_);
    const QString hint = model_->rowCount() == 0 ? words.hint : tr("No name has this part.");
    hint_when_empty(*ui_->replacement_list, hint);
}

i16 ReplaceItem::selected_row() const {
    const QModelIndexList rows = ui_->replacement_list->selectionModel()->selectedRows();
    return rows.isEmpty() ? i16{0} : model_->slot_at(shown_->mapToSource(rows.first()).row());
}

// The view marks a neighbour of a row that goes from sight; nobody chose that one.
void ReplaceItem::narrow(const QString& part) {
    const i16 chosen = selected_row();
    shown_->setFilterFixedString(part);
    if (selected_row() != chosen) ui_->replacement_list->clearSelection();
}

void ReplaceItem::replace_index() {
    const i16 chosen = selected_row();
    if (chosen == 0) return;
    replace_row(replace_slot_, chosen, type_);
}

void ReplaceItem::replace_and_close() {
    if (selected_row() == 0) return;
    trap_in_screen([this] {
        project_modified = i16_true;
        replace_index();
    });
    accept();
}

// From the filter straight into the list, and up and down in it.
bool ReplaceItem::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->filter_box && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
            ui_->replacement_list->setFocus();
            if (selected_row() == 0) ui_->replacement_list->setCurrentIndex(shown_->index(0, 0));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void ReplacementScreen::ask_replacement(i16 row, i16 type) {
    QWidget* over = QApplication::activeModalWidget();
    if (over == nullptr) over = QApplication::activeWindow();
    auto* screen = new tavernook::ReplaceItem(over);
    const QPointer<QDialog> still_here(screen);
    screen->set_type(row, static_cast<ReplacementType>(type));
    screen->populate_list();
    restore_screen(*screen);
    screen->exec();
    if (still_here.isNull()) return;
    remember_screen(*screen);
    delete screen;
}

}  // namespace tavernook
