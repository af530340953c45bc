#include "screens/parts/catagory_places.h"

#include <algorithm>
#include <utility>

#include "core/project_data.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

QString folded(const QString& text) {
    const bool plain =
        std::all_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() < 0x80; });
    if (plain) return text.toLower();
    QString result;
    for (const QChar letter : text.normalized(QString::NormalizationForm_KD)) {
        if (letter.category() != QChar::Mark_NonSpacing) result += letter.toLower();
    }
    return result;
}

i16 catagory_above(i16 row, CatagoryKind is_shown) {
    const i16 above = catagories[row].parent;
    if (!is_shown(above)) return 0;
    i16 step = above;
    for (int steps = 0; steps < catagory_capacity && is_shown(step); ++steps) {
        if (step == row) return 0;
        step = catagories[step].parent;
    }
    return above;
}

std::vector<i16> sorted_catagories(CatagoryKind is_shown) {
    std::vector<std::pair<QString, i16>> named;
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        if (!is_shown(row)) continue;
        named.emplace_back(folded(shown_text(catagories[row].name.trimmed())), row);
    }
    std::sort(named.begin(), named.end());
    std::vector<i16> rows;
    for (const auto& [name, row] : named) rows.push_back(row);
    return rows;
}

}  // namespace tavernook
