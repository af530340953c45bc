// The line with which the recipe manager tells that the planner waits for a recipe, and for which
// date; out of sight while it does not.
#pragma once

#include <QDate>
#include <QLabel>
#include <optional>

namespace tavernook {

class PlannerNotice : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;

    void begin();  // for the date that the planner shows
    void end();

    // The date that waits.
    const std::optional<QDate>& date() const { return date_; }

  private:
    std::optional<QDate> date_;
};

}  // namespace tavernook
