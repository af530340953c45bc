#include "screens/parts/open_catagories.h"

#include <QTreeView>

#include "screens/parts/catagory_tree_model.h"

namespace tavernook {

void OpenCatagories::restore() {
    if (!is_rule_chosen_ && turned_.isEmpty()) {
        opens_by_rule_ = model_.leaf_count() <= opens_up_to_;
    }
    if (opens_by_rule_ || model_.is_filtered()) tree_.expandAll();
    if (model_.is_filtered()) return;
    for (const QString& key : turned_) {
        const QModelIndex catagory = model_.index_of(key);
        if (catagory.isValid()) tree_.setExpanded(catagory, !opens_by_rule_);
    }
}

void OpenCatagories::note(const QModelIndex& catagory, bool is_open) {
    if (model_.is_filtered()) return;
    const QString key = catagory.data(CatagoryTreeModel::key_role).toString();
    if (is_open == opens_by_rule_) {
        turned_.remove(key);
    } else {
        turned_.insert(key);
    }
}

void OpenCatagories::set_all(bool is_open) {
    turned_.clear();
    opens_by_rule_ = is_open;
    is_rule_chosen_ = true;
    if (is_open) {
        tree_.expandAll();
    } else {
        tree_.collapseAll();
    }
}

}  // namespace tavernook
