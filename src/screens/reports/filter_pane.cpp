#include "screens/reports/filter_pane.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QTreeView>

#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "screens/reports/filter_rows_model.h"
#include "ui_filter_pane.h"

namespace tavernook {

FilterPane::FilterPane(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::FilterPane>()),
      model_(new FilterRowsModel(this)),
      rows_((ui_->setupUi(this), *ui_->row_list)) {
    set_up_rows();
    set_up_commands();
}

FilterPane::~FilterPane() = default;

// In their own order always, as each row is joined to the next one.
void FilterPane::set_up_rows() {
    dress_list(rows_);
    rows_.setSortingEnabled(false);
    rows_.setModel(model_);
    follow_font_size(rows_);
    rows_.header()->setSectionsMovable(false);
    rows_.header()->setStretchLastSection(true);
    rows_.header()->resizeSection(0, letters_wide(*this, 27));
    rows_.header()->resizeSection(1, letters_wide(*this, 20));
    rows_.setCurrentIndex(model_->index(0, 0));
    connect(model_, &FilterRowsModel::check_wanted, this, [this](int row, bool checked) {
        rows_.setCurrentIndex(model_->index(row - 1, 0));  // a check box alone selects no row
        Q_EMIT check_wanted(row, checked);
    });
}

void FilterPane::set_up_commands() {
    const auto asks_search = [this] { Q_EMIT search_string_wanted(selected_row()); };
    const auto asks_logic = [this] { Q_EMIT logic_string_wanted(selected_row()); };
    connect(&rows_, &QTreeView::activated, this, asks_search);
    for (QAction* action : {ui_->row_search, ui_->row_logic, ui_->row_check}) {
        ui_->row_menu->addAction(action);
    }
    connect(ui_->row_search, &QAction::triggered, this, asks_search);
    connect(ui_->row_logic, &QAction::triggered, this, asks_logic);
    connect(ui_->row_check, &QAction::triggered, this, &FilterPane::toggle_check);
    connect(ui_->search_str, &QPushButton::clicked, this, asks_search);
    connect(ui_->logic, &QPushButton::clicked, this, asks_logic);
    connect(ui_->view_none, &QPushButton::clicked, this, &FilterPane::view_wanted);
    connect(ui_->reset, &QPushButton::clicked, this, &FilterPane::reset_wanted);
    on_keys(rows_, Qt::Key_F2, asks_search);
    on_keys(rows_, Qt::Key_Space, [this] { toggle_check(); });
    connect(&rows_, &QWidget::customContextMenuRequested, this, &FilterPane::show_menu);
}

void FilterPane::show(const ReportFilter& filter) {
    model_->show(filter);
    if (rows_.currentIndex().isValid()) rows_.scrollTo(rows_.currentIndex());
    // With its letter: what the button says is what it does next.
    const QString caption = shown_text(view_button_caption(filter));
    ui_->view_none->setAccessibleName(caption);
    ui_->view_none->setText(filter.view_all_next != i16_false ? tr("View &All") : tr("View &None"));
}

void FilterPane::toggle_check() {
    const int row = selected_row();
    if (row == 0) return;
    const QModelIndex index = model_->index(row - 1, 0);
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    Q_EMIT check_wanted(row, !checked);
}

void FilterPane::show_menu(const QPoint& place) {
    if (selected_row() != 0) ui_->row_menu->popup(rows_.viewport()->mapToGlobal(place));
}

int FilterPane::selected_row() const {
    return FilterRowsModel::row_at(rows_.currentIndex());
}

}  // namespace tavernook
