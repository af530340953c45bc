#include "screens/lookups/ReplaceItem.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/screen_memory.h"
#include "screens/parts/shown_text.h"
#include "ui_ReplaceItem.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 48;
constexpr int comfortable_lines = 24;

QString name_of(ReplacementType type, i16 row) {
    switch (type) {
        case ReplacementType::item:
            return shown_text(row_or_none(items, row).name.right_trimmed());
        case ReplacementType::store:
            return shown_text(row_or_none(stores, row).name.right_trimmed());
        case ReplacementType::unit:
            return shown_text(row_or_none(units, row).name.right_trimmed());
    }
    return {};
}

Subject table_of(ReplacementType type) {
    return type == ReplacementType::store  ? Subject::stores
           : type == ReplacementType::unit ? Subject::units
                                           : Subject::items;
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
    set_up_list();
    connect_commands();
    ui_->replace_button->setEnabled(false);
    resize(letters_wide(*this, comfortable_letters),
           fontMetrics().lineSpacing() * comfortable_lines);
}

ReplaceItem::~ReplaceItem() = default;

void ReplaceItem::set_up_list() {
    const auto name = [this](RowId row) { return name_of(type_, part_of(row, 0)); };
    model_ = new RowsModel({{.title = tr("Name"), .text = name}}, this);
    model_->set_key([](RowId row) { return QLatin1Char('t') + QString::number(row); });
    dress_list(*ui_->replacement_list);
    ui_->replacement_list->setModel(model_);
    ui_->replacement_list->header()->setStretchLastSection(true);
    connect(ui_->replacement_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] {
                const std::vector<RowId> rows = selected_rows(*ui_->replacement_list, *model_);
                const i16 row = rows.empty() ? i16{0} : part_of(rows.front(), 0);
                chosen_ = RowRef(table_of(type_), row);
                ui_->replace_button->setEnabled(row != 0);
            });
}

void ReplaceItem::connect_commands() {
    ui_->filter_box->installEventFilter(this);
    connect(ui_->close_button, &QPushButton::clicked, this, &QDialog::reject);
    on_keys(*this, Qt::Key_Escape, [this] { reject(); });  // from within the list as well
    connect(ui_->replace_button, &QPushButton::clicked, this, &ReplaceItem::replace_and_close);
    connect(ui_->replacement_list, &QTreeView::doubleClicked, this,
            &ReplaceItem::replace_and_close);
    connect(ui_->filter_box, &QLineEdit::textChanged, this, &ReplaceItem::narrow);
}

void ReplaceItem::set_type(i16 row, ReplacementType type) {
    type_ = type;
    replaced_ = RowRef(table_of(type), row);
    const Words words = words_for(type);
    setWindowTitle(words.title);
    ui_->question_label->setText(
        tr("What takes the place of \"%1\" wherever it is used?").arg(name_of(type, row)));
    ui_->replacement_list->setAccessibleName(words.plural);
}

void ReplaceItem::populate_list() {
    guarded([this] { fill(); });
}

// The rows whose name has what stands in the filter.
void ReplaceItem::fill() {
    const std::vector<i16> all = replacement_rows(replaced_.now(), type_);
    const QString part = ui_->filter_box->text();
    std::vector<RowId> found;
    std::copy_if(all.begin(), all.end(), std::back_inserter(found),
                 [&](i16 row) { return name_of(type_, row).contains(part, Qt::CaseInsensitive); });
    refill_in_place(*ui_->replacement_list, *model_, std::move(found));
    hint_when_empty(*ui_->replacement_list,
                    all.empty() ? words_for(type_).hint : tr("No name has this part."));
}

void ReplaceItem::narrow() {
    guarded([this] { fill(); });
}

void ReplaceItem::replace_index() {
    const i16 replaced = replaced_.now();
    const i16 chosen = chosen_.now();
    if (replaced == 0 || chosen == 0) return;
    project_modified = i16_true;
    replace_row(replaced, chosen, type_);
}

void ReplaceItem::replace_and_close() {
    if (chosen_.now() == 0) return;
    steps_.run([this] { replace_index(); });
    accept();
}

// From the filter straight into the list, and up and down in it.
bool ReplaceItem::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->filter_box && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
            ui_->replacement_list->setFocus();
            if (chosen_.now() == 0) ui_->replacement_list->setCurrentIndex(model_->index(0, 0));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void ReplacementScreen::ask_replacement(i16 row, i16 type) {
    guarded([&] {
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
    });
}

}  // namespace tavernook
