// What stands where in a list of categories with leaves beneath them, as plain numbers: nodes, each
// of which knows its parent, its row among its siblings and its children. `CatagoryTreeModel` shows
// them; nothing here knows of columns, keys or views.
//
// `build` places everything anew: the top, then the categories, each after the one above it, then
// the leaves in the order given. A place is a node's number in that order and holds until the next
// `build`. A filter leaves out leaves, and then, from the last place to the first, categories in
// which nothing is left. Those keep their places, which no row leads to any more, so that all
// others keep theirs: no node moves once it has been placed.
//
// A leaf stands at the top when its category is not among those given, or is none at all. Placing
// a leaf takes no search: 10,000 of them take a few milliseconds.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "basics/values.h"
#include "screens/parts/catagory_places.h"

namespace tavernook {

struct TreeLeaf {
    i16 number;
    i16 catagory;         // beneath which it stands; the top where that is not shown
    QString sort_text;    // folded
    QString search_text;  // folded; every word of a filter has to be in it
};

// By the number, then by the text.
using LeafRank = std::pair<f64, QString>;

// By rank, and by name within one; by name alone without a rank. Each leaf is ranked once; what
// ranking throws is let out, and the leaves stay all there.
void sort_leaves(std::vector<TreeLeaf>& leaves, const std::function<LeafRank(i16 leaf)>& rank,
                 bool is_backwards);

struct TreeNode {
    enum class Kind { root, catagory, leaf };

    Kind kind;
    i16 number;  // of the category or leaf
    int parent;  // its place
    int row;
    std::vector<int> children;  // their places
};

class CatagoryTreeNodes {
  public:
    static constexpr int root = 0;

    // Nothing but the top.
    explicit CatagoryTreeNodes(CatagoryKind is_shown);

    // Categories and leaves come in the order in which they are to stand. Without categories the
    // leaves are one list. Only leaves in which every word is found; no words show all, empty
    // categories as well.
    void build(const std::vector<i16>& sorted, const std::vector<TreeLeaf>& leaves,
               const QStringList& words);

    const TreeNode& at(int place) const { return nodes_[static_cast<std::size_t>(place)]; }
    int leaf_count() const { return leaf_count_; }

    // Of a category or leaf that is shown; numbers count from 1.
    std::optional<int> place_of(TreeNode::Kind kind, int number) const;

    // Of all that are shown, each after the one above it.
    std::vector<int> catagory_places() const;

  private:
    void clear();
    void add_catagories(i16 above, int parent, const std::vector<i16>& sorted,
                        std::vector<int>& place_of_catagory);
    void add_leaves(const std::vector<TreeLeaf>& leaves, const QStringList& words,
                    const std::vector<int>& place_of_catagory);
    void drop_empty_catagories();
    int add(TreeNode::Kind kind, i16 number, int parent);

    CatagoryKind is_shown_;
    std::vector<TreeNode> nodes_;  // the root, then categories, then leaves
    int leaf_count_ = 0;
};

}  // namespace tavernook
