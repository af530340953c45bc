// Which categories of a tree stand open. The rule is one for all of them: open, unless there are
// more leaves than one looks through, or as the user has said for all at once. What he opens or
// closes himself is an exception to the rule, kept by its key, so that it outlives the rows: the
// tree is filled anew all the time. While something is searched everything found is open, and
// nothing is noted. As long as there is no exception the rule goes by the present number of leaves.
#pragma once

#include <QSet>
#include <QString>

class QModelIndex;
class QTreeView;

namespace tavernook {

class CatagoryTreeModel;

class OpenCatagories {
  public:
    // The tree and its model outlive it.
    OpenCatagories(QTreeView& tree, const CatagoryTreeModel& model, int opens_up_to)
        : tree_(tree), model_(model), opens_up_to_(opens_up_to) {}

    // In a tree that was filled anew, where all categories are closed.
    void restore();

    // The user has opened or closed a category.
    void note(const QModelIndex& catagory, bool is_open);

    // All at once, and from now on.
    void set_all(bool is_open);

  private:
    QTreeView& tree_;
    const CatagoryTreeModel& model_;
    int opens_up_to_;
    QSet<QString> turned_;  // against the rule
    bool opens_by_rule_ = true;
    bool is_rule_chosen_ = false;  // by the user; the number of leaves has no say any more
};

}  // namespace tavernook
