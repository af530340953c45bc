#include "screens/planner/recommendations_pane.h"

#include <QHeaderView>
#include <QMenu>
#include <QResizeEvent>
#include <algorithm>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/sign_words.h"
#include "screens/parts/stock_sign.h"
#include "screens/planner/planner_parts.h"
#include "screens/planner/selected_day.h"
#include "ui_recommendations_pane.h"

namespace tavernook {

namespace {

enum Column { meal_column, item_column, quantity_column };

constexpr int item_part = 0;
constexpr int recipe_part = 1;

i16 item_of(RowId row) {
    return part_of(row, item_part);
}

i16 recipe_of(RowId row) {
    return part_of(row, recipe_part);
}

QString key_of(RowId row) {
    return shown_text(
        recommendation_key({.item = item_of(row), .recipe = recipe_of(row), .quantity = 0}));
}

QString hint() {
    return RecommendationsPane::tr("Recipes that use up what is past its date come here.");
}

// Rows that are equal stand in the order of the recommendations, whatever they were sorted by
// before.
class Rows : public RowsModel {
  public:
    using RowsModel::RowsModel;
    void sort(int column, Qt::SortOrder order) override { set_sort_steps({{column, order}}); }
};

}  // namespace

RecommendationsPane::RecommendationsPane(QWidget* parent)
    : QGroupBox(parent),
      ui_(laid_out<Ui::RecommendationsPane>(*this)),
      list_(*ui_->recommendations),
      rows_(new Rows(columns(), this)),
      expiring_(item_capacity + 1),
      drawn_on_(todays_date()) {
    rows_->set_key(key_of);
    set_up_list();
    set_up_commands();
}

RecommendationsPane::~RecommendationsPane() = default;

std::vector<RowsColumn> RecommendationsPane::columns() {
    const QIcon recipe = icon(QStringLiteral("recipes"));
    const auto quantity = [this](RowId row) {
        return expiring_[static_cast<std::size_t>(item_of(row))];
    };
    const auto past = [](RowId) { return tr("Expired"); };
    return {{.title = tr("Meal"),
             .text = [](RowId row) { return recipe_name(recipe_of(row)); },
             .icon = [recipe](RowId) { return recipe; },
             .part = recipe_part},
            {.title = QStringLiteral("Item"),
             .text = [](RowId row) { return item_name(item_of(row)); },
             .part = item_part},
            {.title = QStringLiteral("Quantity"),
             .text = [quantity](RowId row) { return shown_text(number_text(quantity(row))); },
             .number = quantity,
             .alignment = on_the_right,
             .tip = past,
             .description = past,
             .sign = [](RowId) { return StockSign::past_date; },
             .part = item_part}};
}

void RecommendationsPane::set_up_list() {
    dress_list(list_);
    follow_font_size(list_);
    list_.setModel(rows_);
    hint_when_empty(list_, hint());
    show_sign_words(list_);
    list_.setMinimumHeight(list_.fontMetrics().height() * 4);
    list_.setMinimumWidth(letters_wide(*this, 30));
    QHeaderView& header = *list_.header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(meal_column, QHeaderView::Stretch);
    give_columns_room(list_, {{item_column, 32}, {quantity_column, 17}});
    mark_first_row_when_entered(list_);
    ui_->Label4->installEventFilter(this);
}

void RecommendationsPane::set_up_commands() {
    const auto with_key = [this](auto tell) {
        return [this, tell] {
            if (const std::string key = selected_key(); !key.empty()) tell(key);
        };
    };
    const auto plan = [this](bool zero_too) {
        return [this, zero_too](const std::string& key) { Q_EMIT plan_wanted(key, zero_too); };
    };
    connect(&list_, &QTreeView::activated, this, with_key(plan(false)));
    connect(ui_->Recommend_Add_Meal, &QAction::triggered, this, with_key(plan(true)));
    connect(ui_->Recommend_View_Item, &QAction::triggered, this,
            with_key([this](const std::string& key) { Q_EMIT item_wanted(key); }));
    connect(ui_->Recommend_View_Meal, &QAction::triggered, this,
            with_key([this](const std::string& key) { Q_EMIT recipe_wanted(key); }));
    connect(&list_, &QTreeView::customContextMenuRequested, this, &RecommendationsPane::show_popup);
    connect(ui_->Command2, &QPushButton::clicked, this, &RecommendationsPane::refresh_wanted);
}

std::vector<QWidget*> RecommendationsPane::tab_order() const {
    return {ui_->Command2, &list_};
}

QWidget& RecommendationsPane::list() const {
    return list_;
}

void RecommendationsPane::set_may_plan(bool may) {
    ui_->Recommend_Add_Meal->setEnabled(may);
}

void RecommendationsPane::fill() {
    const MealRecommendations found = meal_recommendations();
    std::vector<RowId> rows;
    rows.reserve(found.rows.size());
    for (const Recommendation& row : found.rows) {
        rows.push_back(row_id(row.item, row.recipe));
        expiring_[static_cast<std::size_t>(row.item)] = row.quantity;
    }
    ui_->Label4->setText(shown_text(found.caption));
    keep_caption_whole();
    show_rows(std::move(rows));
    const QString behind = rows_->rows().empty() ? QLatin1Char(' ') + hint() : QString();
    list_.setAccessibleDescription(ui_->Label4->text() + behind);
    drawn_on_ = todays_date();
    seen_.renew();
}

// Rows that stand as they did are read anew when they are painted. To tell the view of all of them
// would have it look at each, which takes longer than to work them out.
void RecommendationsPane::show_rows(std::vector<RowId> rows) {
    const bool as_before = rows_->sort_steps().empty() && rows == rows_->rows();
    if (as_before) return list_.viewport()->update();
    refill_in_place(list_, *rows_, std::move(rows));
}

void RecommendationsPane::follow_changes() {
    if (seen_.is_stale() || drawn_on_ != todays_date()) fill();
}

void RecommendationsPane::fill_with_a_word() {
    ui_->refresh_marker->show();
    ui_->refresh_marker->repaint();
    fill();
    ui_->refresh_marker->hide();
}

void RecommendationsPane::show_popup() {
    if (selected_key().empty()) return;
    const QRect row = list_.visualRect(list_.currentIndex());
    ui_->Recommendations_POPUP->popup(list_.viewport()->mapToGlobal(row.bottomLeft()));
}

std::string RecommendationsPane::selected_key() const {
    const QModelIndexList rows = list_.selectionModel()->selectedRows();
    return rows.isEmpty() ? "" : rows.first().data(RowsModel::key_role).toString().toStdString();
}

bool RecommendationsPane::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool needs_other_room =
        type == QEvent::Resize || type == QEvent::Show || type == QEvent::FontChange;
    if (watched == ui_->Label4 && needs_other_room) keep_caption_whole();
    return QGroupBox::eventFilter(watched, event);
}

// The caption breaks into more lines where it is narrow, and a splitter would cut them off. Before
// it is laid out it has no width of its own, and would ask for room that nobody gives back.
void RecommendationsPane::keep_caption_whole() {
    QLabel& caption = *ui_->Label4;
    if (!caption.isVisible()) return;
    // Not the label's own answer, which is never less than its present minimum.
    const QRect room(0, 0, caption.width(), QWIDGETSIZE_MAX);
    const int wanted =
        caption.fontMetrics().boundingRect(room, Qt::TextWordWrap, caption.text()).height();
    if (caption.minimumHeight() != wanted) caption.setMinimumHeight(wanted);
}

}  // namespace tavernook
