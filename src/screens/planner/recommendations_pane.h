// The recommended meals of the planner: a caption, and the recipes that would use up what is past
// its date. The list is worked out again when lots, items or recipes have changed and on another
// day, not at every step; who has selected a row keeps it, and the list its place.
#pragma once

#include <QDate>
#include <QGroupBox>
#include <memory>
#include <string>
#include <vector>

#include "core/changes.h"
#include "planning/recommendations.h"
#include "screens/parts/rows_model.h"

class QTreeView;

namespace tavernook {

namespace Ui {
class RecommendationsPane;
}

class RecommendationsPane : public QGroupBox {
    Q_OBJECT

  public:
    explicit RecommendationsPane(QWidget* parent = nullptr);
    ~RecommendationsPane() override;

    void fill();
    void follow_changes();

    // The same while a word beside the caption says that it takes a moment.
    void fill_with_a_word();

    // Whether rows can be planned on the day shown.
    void set_may_plan(bool may);

    QWidget& list() const;
    std::vector<QWidget*> tab_order() const;

  Q_SIGNALS:
    // Of the selected row, "i" item ":" recipe. By a double click or Enter a quantity of 0 is none;
    // by the menu it is planned too.
    void plan_wanted(const std::string& key, bool zero_too);
    void item_wanted(const std::string& key);
    void recipe_wanted(const std::string& key);
    void refresh_wanted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::vector<RowsColumn> columns();
    void set_up_list();
    void set_up_commands();
    void show_rows(std::vector<RowId> rows);
    void show_popup();
    std::string selected_key() const;  // empty without a row
    void keep_caption_whole();

    std::unique_ptr<Ui::RecommendationsPane> ui_;
    QTreeView& list_;
    RowsModel* rows_;
    std::vector<f64> expiring_;  // of each item in the list, what is past its date
    QDate drawn_on_;
    Seen seen_{Subject::lots, Subject::items, Subject::recipes, Subject::settings};
};

}  // namespace tavernook
