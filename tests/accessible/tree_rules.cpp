#include "accessible/tree_rules.h"

#include <QRegularExpression>
#include <algorithm>
#include <functional>

namespace tavernook {

namespace {

void visit(const FarPart& part, const QString& above,
           const std::function<void(const FarPart&, const QString&)>& look) {
    const QString place =
        above + QLatin1Char('/') + (part.name.isEmpty() ? part.role_name : part.name.left(40));
    look(part, place);
    for (const FarPart& child : part.children) visit(child, place, look);
}

QString told(const FarPart& part, const QString& place) {
    return part.role_name + QLatin1String(" at ") + place;
}

bool is_cell(const FarPart& part) {
    return part.role == FarRole::table_cell || part.role == FarRole::list_item ||
           part.role == FarRole::tree_item;
}

std::vector<const FarPart*> cells_of(const FarPart& list) {
    std::vector<const FarPart*> found;
    for (const FarPart& child : list.children) {
        if (is_cell(child)) found.push_back(&child);
    }
    return found;
}

std::vector<std::size_t> nameless_columns(const FarPart& list) {
    std::vector<std::size_t> found;
    std::size_t column = 0;
    for (const FarPart& child : list.children) {
        if (child.role != FarRole::column_header) continue;
        if (child.name.isEmpty() && child.is(FarState::showing)) found.push_back(column);
        ++column;
    }
    return found;
}

bool speaks_in(const std::vector<const FarPart*>& cells, std::size_t column, std::size_t width) {
    for (std::size_t place = column; place < cells.size(); place += width) {
        if (!cells[place]->name.isEmpty()) return true;
    }
    return false;
}

QStringList long_words(const QString& text) {
    static const QRegularExpression between(QStringLiteral("[^\\w.]+"));
    QStringList words = text.toLower().split(between, Qt::SkipEmptyParts);
    words.erase(std::remove_if(words.begin(), words.end(),
                               [](const QString& word) { return word.size() < 3; }),
                words.end());
    return words;
}

QString plain(const QString& text) {
    return text.simplified().toLower();
}

}  // namespace

// An empty cell has its row's name to stand beside: `silent_rows` looks at those.
QStringList parts_without_a_name(const FarPart& root) {
    QStringList found;
    visit(root, {}, [&found](const FarPart& part, const QString& place) {
        const bool wants_name =
            part.is(FarState::focusable) && part.is(FarState::showing) && !is_cell(part);
        const bool names_itself = part.role != FarRole::combo_box && !part.name.isEmpty();
        if (!wants_name || names_itself || !part.labelled_by.isEmpty()) return;
        found << told(part, place);
    });
    return found;
}

QStringList values_as_names(const FarPart& root) {
    QStringList found;
    visit(root, {}, [&found](const FarPart& part, const QString& place) {
        if (!part.is(FarState::showing) || part.name.isEmpty()) return;
        const bool is_text = !part.text.isEmpty() && plain(part.text) == plain(part.name);
        if (is_text) found << told(part, place) + QLatin1String(": ") + part.text;
    });
    return found;
}

QStringList silent_rows(const FarPart& root) {
    QStringList found;
    visit(root, {}, [&found](const FarPart& part, const QString& place) {
        if (!part.is_table() || !part.is(FarState::showing)) return;
        const auto all = cells_of(part);
        const std::size_t width = static_cast<std::size_t>(std::max(part.columns, 1));
        for (const std::size_t column : nameless_columns(part)) {
            const bool is_used = column < width && speaks_in(all, column, width);
            if (is_used) found << QStringLiteral("column %1 of ").arg(column) + place;
        }
        for (std::size_t first = 0; first + width <= all.size(); first += width) {
            const auto from = all.begin() + static_cast<std::ptrdiff_t>(first);
            const bool speaks =
                std::any_of(from, from + static_cast<std::ptrdiff_t>(width),
                            [](const FarPart* cell) { return !cell->name.isEmpty(); });
            if (!speaks) found << QStringLiteral("row %1 of ").arg(first / width) + place;
        }
    });
    return found;
}

QStringList unheard(const FarPart& root, const QStringList& seen) {
    QStringList heard;
    visit(root, {}, [&heard](const FarPart& part, const QString&) {
        heard << part.name.toLower() + QLatin1Char(' ') + part.text.toLower() + QLatin1Char(' ') +
                     part.description.toLower();
    });
    QStringList missing;
    for (const QString& words : seen) {
        const QStringList wanted = long_words(words);
        const bool is_heard =
            std::any_of(heard.begin(), heard.end(), [&wanted](const QString& part) {
                return std::all_of(wanted.begin(), wanted.end(),
                                   [&part](const QString& word) { return part.contains(word); });
            });
        if (!is_heard) missing << words;
    }
    return missing;
}

QStringList cells(const FarPart& root, const QString& list) {
    QStringList found;
    visit(root, {}, [&](const FarPart& part, const QString&) {
        if (!part.is_table() || part.name != list) return;
        for (const FarPart* cell : cells_of(part)) found << written(*cell).trimmed();
    });
    return found;
}

}  // namespace tavernook
