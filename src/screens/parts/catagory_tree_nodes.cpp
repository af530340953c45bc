#include "screens/parts/catagory_tree_nodes.h"

#include <algorithm>

#include "core/project_data.h"

namespace tavernook {

namespace {

constexpr i16 gone = -1;  // a category that the filter leaves out

bool by_name(const TreeLeaf& a, const TreeLeaf& b) {
    const int order = a.sort_text.compare(b.sort_text);
    return order != 0 ? order < 0 : a.number < b.number;
}

// Those of one rank stay as they stood.
void sort_by_rank(std::vector<TreeLeaf>& leaves, const std::function<LeafRank(i16)>& rank) {
    std::vector<std::pair<LeafRank, std::size_t>> ranked;
    ranked.reserve(leaves.size());
    for (std::size_t place = 0; place < leaves.size(); ++place) {
        ranked.emplace_back(rank(leaves[place].number), place);
    }
    std::sort(ranked.begin(), ranked.end());
    std::vector<TreeLeaf> sorted;
    sorted.reserve(leaves.size());
    for (const auto& [ignored, place] : ranked) sorted.push_back(std::move(leaves[place]));
    leaves = std::move(sorted);
}

bool matches(const TreeLeaf& leaf, const QStringList& words) {
    return std::all_of(words.begin(), words.end(),
                       [&leaf](const QString& word) { return leaf.search_text.contains(word); });
}

}  // namespace

void sort_leaves(std::vector<TreeLeaf>& leaves, const std::function<LeafRank(i16)>& rank,
                 bool is_backwards) {
    std::sort(leaves.begin(), leaves.end(), by_name);
    if (rank) sort_by_rank(leaves, rank);
    if (is_backwards) std::reverse(leaves.begin(), leaves.end());
}

CatagoryTreeNodes::CatagoryTreeNodes(CatagoryKind is_shown) : is_shown_(is_shown) {
    clear();
}

void CatagoryTreeNodes::clear() {
    nodes_.clear();
    nodes_.push_back({TreeNode::Kind::root, 0, root, 0, {}});
    leaf_count_ = 0;
}

void CatagoryTreeNodes::build(const std::vector<i16>& sorted, const std::vector<TreeLeaf>& leaves,
                              const QStringList& words) {
    clear();
    std::vector<int> place_of_catagory(catagory_capacity + 1, root);
    add_catagories(0, root, sorted, place_of_catagory);
    add_leaves(leaves, words, place_of_catagory);
    if (!words.isEmpty()) drop_empty_catagories();
}

void CatagoryTreeNodes::add_catagories(i16 above, int parent, const std::vector<i16>& sorted,
                                       std::vector<int>& place_of_catagory) {
    for (const i16 row : sorted) {
        if (catagory_above(row, is_shown_) != above) continue;
        const int added = add(TreeNode::Kind::catagory, row, parent);
        place_of_catagory[static_cast<std::size_t>(row)] = added;
        add_catagories(row, added, sorted, place_of_catagory);
    }
}

void CatagoryTreeNodes::add_leaves(const std::vector<TreeLeaf>& leaves, const QStringList& words,
                                   const std::vector<int>& place_of_catagory) {
    nodes_.reserve(nodes_.size() + leaves.size());
    for (const TreeLeaf& leaf : leaves) {
        if (!matches(leaf, words)) continue;
        const bool is_placed = leaf.catagory > 0 && leaf.catagory <= catagory_capacity;
        const auto home = is_placed ? static_cast<std::size_t>(leaf.catagory) : std::size_t{0};
        add(TreeNode::Kind::leaf, leaf.number, place_of_catagory[home]);
        ++leaf_count_;
    }
}

// From the last node to the first, so that a category goes after all beneath it have gone.
void CatagoryTreeNodes::drop_empty_catagories() {
    for (std::size_t place = nodes_.size(); place-- > 1;) {
        const TreeNode& dropped = nodes_[place];
        if (dropped.kind != TreeNode::Kind::catagory || !dropped.children.empty()) continue;
        std::vector<int>& siblings = nodes_[static_cast<std::size_t>(dropped.parent)].children;
        siblings.erase(siblings.begin() + dropped.row);
        nodes_[place].number = gone;
        for (std::size_t row = 0; row < siblings.size(); ++row) {
            nodes_[static_cast<std::size_t>(siblings[row])].row = static_cast<int>(row);
        }
    }
}

int CatagoryTreeNodes::add(TreeNode::Kind kind, i16 number, int parent) {
    const int place = static_cast<int>(nodes_.size());
    std::vector<int>& siblings = nodes_[static_cast<std::size_t>(parent)].children;
    const int row = static_cast<int>(siblings.size());
    siblings.push_back(place);
    nodes_.push_back({kind, number, parent, row, {}});
    return place;
}

std::optional<int> CatagoryTreeNodes::place_of(TreeNode::Kind kind, int number) const {
    for (std::size_t place = 1; place < nodes_.size(); ++place) {
        const TreeNode& found = nodes_[place];
        // All categories come first.
        if (kind == TreeNode::Kind::catagory && found.kind == TreeNode::Kind::leaf) break;
        if (found.number == number && found.kind == kind) return static_cast<int>(place);
    }
    return std::nullopt;
}

std::vector<int> CatagoryTreeNodes::catagory_places() const {
    std::vector<int> places;
    for (std::size_t place = 1; place < nodes_.size(); ++place) {
        if (nodes_[place].kind == TreeNode::Kind::leaf) break;
        if (nodes_[place].number != gone) places.push_back(static_cast<int>(place));
    }
    return places;
}

}  // namespace tavernook
