#include "screens/parts/row_ranks.h"

#include <QCollator>
#include <QHash>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace tavernook {

namespace {

// Texts as the numbers of their first appearance, those that differ in capitals only as one.
struct Numbered {
    std::vector<std::size_t> number_of;  // of each text
    std::vector<QCollatorSortKey> keys;  // of each number
};

Numbered numbered(const QStringList& texts) {
    Numbered found;
    QHash<QString, std::size_t> known;
    const QCollator collator;
    for (const QString& text : texts) {
        const QString folded = text.toCaseFolded();
        const auto place = known.constFind(folded);
        const bool is_new = place == known.cend();
        found.number_of.push_back(is_new ? found.keys.size() : *place);
        if (!is_new) continue;
        known.insert(folded, found.keys.size());
        found.keys.push_back(collator.sortKey(folded));
    }
    return found;
}

// The place of each key among all of them; equal ones share theirs.
std::vector<f64> places_of(const std::vector<QCollatorSortKey>& keys) {
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return keys[a].compare(keys[b]) < 0; });
    std::vector<f64> places(keys.size());
    f64 place = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && keys[order[i - 1]].compare(keys[order[i]]) != 0) ++place;
        places[order[i]] = place;
    }
    return places;
}

std::vector<f64> text_ranks(const QStringList& texts) {
    const Numbered known = numbered(texts);
    const std::vector<f64> places = places_of(known.keys);
    std::vector<f64> ranks;
    ranks.reserve(known.number_of.size());
    for (const std::size_t number : known.number_of) ranks.push_back(places[number]);
    return ranks;
}

std::vector<f64> ranks_of(const RowsColumn& column, const std::vector<RowId>& rows) {
    if (column.number) {
        std::vector<f64> numbers;
        numbers.reserve(rows.size());
        for (const RowId row : rows) {
            const f64 number = asked(column.number, row);
            // What is no number at all can be compared with none.
            numbers.push_back(std::isnan(number) ? -std::numeric_limits<f64>::infinity() : number);
        }
        return numbers;
    }
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(rows.size()));
    for (const RowId row : rows) texts.append(asked(column.text, row));
    return text_ranks(texts);
}

// One row of each value that the part has, and which of these stands for each row.
struct SharedParts {
    std::vector<RowId> examples;
    std::vector<std::size_t> example_of;
};

SharedParts shared_parts(const std::vector<RowId>& rows, int part) {
    constexpr std::size_t values = 0x10000;
    constexpr std::size_t none = values;
    std::vector<std::size_t> example_with(values, none);
    SharedParts shared;
    shared.example_of.reserve(rows.size());
    for (const RowId row : rows) {
        std::size_t& example = example_with[static_cast<std::uint16_t>(part_of(row, part))];
        if (example == none) {
            example = shared.examples.size();
            shared.examples.push_back(row);
        }
        shared.example_of.push_back(example);
    }
    return shared;
}

}  // namespace

std::vector<f64> row_ranks(const RowsColumn& column, const std::vector<RowId>& rows) {
    if (column.part < 0) return ranks_of(column, rows);
    const SharedParts shared = shared_parts(rows, column.part);
    const std::vector<f64> of_examples = ranks_of(column, shared.examples);
    std::vector<f64> ranks;
    ranks.reserve(rows.size());
    for (const std::size_t example : shared.example_of) ranks.push_back(of_examples[example]);
    return ranks;
}

}  // namespace tavernook
