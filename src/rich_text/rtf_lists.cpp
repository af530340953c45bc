#include "rich_text/rtf_lists.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace tavernook::rtf {

namespace {

constexpr int twips_in_list_level = 720;
constexpr std::size_t most_forms = 20'000;
constexpr int largest_roman = 4999;
constexpr int letters = 26;

bool is_roman(const QString& number) {
    return std::all_of(number.begin(), number.end(), [](QChar letter) {
        return QStringLiteral("ivxlcdm").contains(letter.toLower());
    });
}

bool is_upper(ListKind kind) {
    return kind == ListKind::upper_letter || kind == ListKind::upper_roman;
}

bool is_bullet(ListKind kind) {
    return kind == ListKind::disc || kind == ListKind::circle || kind == ListKind::square;
}

QString letters_of(int number) {
    QString text;
    for (; number > 0; number = (number - 1) / letters) {
        text.prepend(QChar(u'a' + (number - 1) % letters));
    }
    return text;
}

QString roman_of(int number) {
    static constexpr std::pair<int, const char*> signs[] = {
        {1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"}, {90, "xc"}, {50, "l"},
        {40, "xl"},  {10, "x"},   {9, "ix"},  {5, "v"},    {4, "iv"},  {1, "i"}};
    if (number > largest_roman) return QStringLiteral("?");
    QString text;
    for (const auto& [value, sign] : signs) {
        for (; number >= value; number -= value) text += QLatin1String(sign);
    }
    return text;
}

int number_of_letters(const QString& text) {
    int number = 0;
    for (const QChar letter : text) {
        if (letter < u'a' || letter > u'z' || number > 1'000'000) return 0;
        number = number * letters + letter.unicode() - u'a' + 1;
    }
    return number;
}

int number_of_roman(const QString& text) {
    static const QString signs = QStringLiteral("ivxlcdm");
    static constexpr int values[] = {1, 5, 10, 50, 100, 500, 1000};
    int number = 0;
    int before = 0;
    for (auto sign = text.rbegin(); sign != text.rend() && number <= largest_roman; ++sign) {
        const qsizetype place = signs.indexOf(*sign);
        if (place < 0) return 0;
        const int value = values[place];
        number += value < before ? -value : value;
        before = std::max(before, value);
    }
    return number;
}

bool shows_word(const QString& marker) {
    return std::any_of(marker.begin(), marker.end(),
                       [](QChar character) { return character.isLetterOrNumber(); });
}

// The one word in a marker; empty where there is none or are more.
QString only_word(const QString& marker) {
    const auto is_of_word = [](QChar character) { return character.isLetterOrNumber(); };
    const auto first = std::find_if(marker.begin(), marker.end(), is_of_word);
    const auto last = std::find_if_not(first, marker.end(), is_of_word);
    if (std::any_of(last, marker.end(), is_of_word)) return {};
    return QString(first, last - first);
}

ListKind kind_of_number_form(int form) {
    switch (form) {
        case 0:
        case 5:
        case 22:
            return ListKind::decimal;
        case 1:
            return ListKind::upper_roman;
        case 2:
            return ListKind::lower_roman;
        case 3:
            return ListKind::upper_letter;
        case 4:
            return ListKind::lower_letter;
        case 23:
            return ListKind::disc;
        default:
            return ListKind::none;
    }
}

}  // namespace

bool is_numbered(ListKind kind) {
    return kind != ListKind::none && !is_bullet(kind);
}

QString number_text(ListKind kind, int number) {
    if (!is_numbered(kind)) return {};
    if (kind == ListKind::decimal) return QString::number(number);
    const bool is_letter = kind == ListKind::lower_letter || kind == ListKind::upper_letter;
    const QString text = is_letter ? letters_of(number) : roman_of(number);
    return is_upper(kind) ? text.toUpper() : text;
}

std::optional<int> number_in(const QString& marker, ListKind kind) {
    const QString word = only_word(marker);
    if (word.isEmpty() || !is_numbered(kind)) return std::nullopt;
    int number = 0;
    if (kind == ListKind::decimal) {
        number = word.toInt();
    } else {
        const bool is_letter = kind == ListKind::lower_letter || kind == ListKind::upper_letter;
        const QString small = word.toLower();
        number = is_letter ? number_of_letters(small) : number_of_roman(small);
        if (number_text(kind, number) != word) return std::nullopt;
    }
    return number > 0 ? std::optional(number) : std::nullopt;
}

ListKind list_kind_of_marker(const QString& marker) {
    QString number;
    for (const QChar character : marker) {
        if (character.isLetterOrNumber()) number += character;
    }
    if (number.isEmpty()) {
        if (marker == QChar(u'\u25CB') || marker == QChar(u'\u25E6')) return ListKind::circle;
        const bool square = marker == QChar(u'\u25AA') || marker == QChar(u'\u25A0');
        return square ? ListKind::square : ListKind::disc;
    }
    if (number.front().isDigit()) return ListKind::decimal;
    if (marker == QStringLiteral("o")) return ListKind::circle;
    const bool upper = number.front().isUpper();
    const bool counts_as_roman =
        is_roman(number) && (number.size() > 1 || number.toLower() == u'i');
    if (counts_as_roman) return upper ? ListKind::upper_roman : ListKind::lower_roman;
    return upper ? ListKind::upper_letter : ListKind::lower_letter;
}

int list_indent(const ParagraphLook& look) {
    if (look.list_level >= 0) return look.list_level + 1;
    return std::clamp(look.left / twips_in_list_level, 1, 9);
}

// --- the tables ------------------------------------------------------------------------------

void ListTable::take(std::string_view word, int parameter) {
    if (word == "list" || word == "listoverride") {
        in_overrides_ = word == "listoverride";
        override_ = {};
        if (!in_overrides_ && forms_.size() < most_forms) forms_.emplace_back();
    } else if (word == "listid") {
        override_.id = parameter;
        if (!in_overrides_ && !forms_.empty()) form_of_id_[parameter] = forms_.size() - 1;
    } else if (word == "listlevel") {
        if (!in_overrides_ && !forms_.empty()) ++forms_.back().levels_told;
    } else if (word == "lfolevel") {
        ++override_.levels_told;
    } else if (word == "levelnfc" || word == "levelnfcn") {
        take_kind(parameter);
    } else if (word == "levelstartat") {
        take_start(parameter);
    } else if (word == "ls" && in_overrides_ && overrides_.size() < most_forms) {
        overrides_[parameter] = override_;
    }
}

void ListTable::take_kind(int kind) {
    if (in_overrides_ || forms_.empty()) return;
    Form& form = forms_.back();
    const int place = form.levels_told - 1;
    if (place < 0 || place >= levels) return;
    form.level[static_cast<std::size_t>(place)].kind = kind_of_number_form(kind);
}

void ListTable::take_start(int start) {
    const int told =
        in_overrides_ ? override_.levels_told : (forms_.empty() ? 0 : forms_.back().levels_told);
    if (told < 1 || told > levels) return;
    const auto place = static_cast<std::size_t>(told - 1);
    (in_overrides_ ? override_.start[place] : forms_.back().level[place].start) = start;
}

std::optional<ListTable::Level> ListTable::level(int list, int level) const {
    const auto found = overrides_.find(list);
    if (found == overrides_.end()) return std::nullopt;
    const Override& override = found->second;
    const auto form = form_of_id_.find(override.id);
    if (form == form_of_id_.end()) return std::nullopt;
    const auto place = static_cast<std::size_t>(std::clamp(level, 0, levels - 1));
    Level result = forms_[form->second].level[place];
    if (override.start[place] != 0) result.start = override.start[place];
    return result;
}

// --- paragraphs to lists ---------------------------------------------------------------------

namespace {

class ListSettler {
  public:
    explicit ListSettler(const ListTable& table) : table_(table) {}

    void take(Paragraph& paragraph) {
        decide_kind(paragraph);
        if (paragraph.look.list == ListKind::none) {
            around_.clear();
            was_entry_ = false;
            return;
        }
        leave_deeper(list_indent(paragraph.look));
        if (is_numbered(paragraph.look.list)) {
            settle_numbered(paragraph);
        } else {
            paragraph.list_index = beside(paragraph.look).value_or(-1);
            enter(paragraph);
        }
        was_entry_ = true;
    }

  private:
    struct List {
        ListKind kind = ListKind::none;
        int indent = 0;
        int entries = 0;
    };
    // The list's number in the table, or any; its indent; its kind.
    using Key = std::tuple<int, int, ListKind>;
    static constexpr int any_list = -1;

    static Key key_of(int list, const ParagraphLook& look) {
        return {list, list_indent(look), look.list};
    }

    void decide_kind(Paragraph& paragraph) const {
        ParagraphLook& look = paragraph.look;
        const QString& marker = paragraph.marker;
        if (look.list_number != 0) {
            const auto level = table_.level(look.list_number, look.list_level);
            if (level && level->kind != ListKind::none) {
                look.list = level->kind;
                look.list_start = level->start;
                if (is_numbered(look.list)) return;
                const ListKind shown = list_kind_of_marker(marker);
                if (is_bullet(shown)) look.list = shown;
                return;
            }
        }
        // The list's form says no more than "bullet"; the bullet itself says which.
        const bool marker_decides = look.list == ListKind::none || look.list == ListKind::disc;
        if (marker_decides && !marker.isEmpty()) look.list = list_kind_of_marker(marker);
    }

    void leave_deeper(int indent) {
        while (!around_.empty() && list(around_.back()).indent > indent) around_.pop_back();
    }

    // The list of this kind and indent that the entry before is in, or around.
    std::optional<int> beside(const ParagraphLook& look) const {
        if (around_.empty()) return std::nullopt;
        const List& last = list(around_.back());
        const bool fits = last.kind == look.list && last.indent == list_indent(look) &&
                          last.entries < most_entries;
        return fits ? std::optional(around_.back()) : std::nullopt;
    }

    void settle_numbered(Paragraph& paragraph) {
        const ParagraphLook& look = paragraph.look;
        const Key key = key_of(look.list_number, look);
        const int number = number_of(paragraph, key);
        last_number_[key] = number;
        forget_deeper(key);
        const bool has_list = number == 1 || list_before(paragraph, number);
        if (!has_list) return make_text(paragraph, number);
        enter(paragraph);
        latest_[key] = paragraph.list_index;
        latest_[key_of(any_list, look)] = paragraph.list_index;
    }

    // 0 for a marker that shows none.
    int number_of(const Paragraph& paragraph, const Key& key) const {
        if (shows_word(paragraph.marker)) {
            return number_in(paragraph.marker, paragraph.look.list).value_or(0);
        }
        const auto last = last_number_.find(key);
        const bool goes_on =
            last != last_number_.end() && (paragraph.look.list_number != 0 || was_entry_);
        const int before = goes_on ? last->second : paragraph.look.list_start - 1;
        return std::clamp(before, 0, 1'000'000) + 1;
    }

    // Deeper numbers begin again behind an entry of their list.
    void forget_deeper(const Key& key) {
        const auto [list, indent, kind] = key;
        const auto first = last_number_.lower_bound({list, indent + 1, ListKind::none});
        const auto last = last_number_.upper_bound(
            {list, std::numeric_limits<int>::max(), ListKind::upper_roman});
        last_number_.erase(first, last);
    }

    // Whether a list has come to the number before; it becomes the paragraph's.
    bool list_before(Paragraph& paragraph, int number) const {
        for (const int owner : {paragraph.look.list_number, any_list}) {
            const auto found = latest_.find(key_of(owner, paragraph.look));
            if (found == latest_.end() || number > most_entries) continue;
            if (list(found->second).entries + 1 != number) continue;
            paragraph.list_index = found->second;
            return true;
        }
        return false;
    }

    // Into the list that it has, or a new one.
    void enter(Paragraph& paragraph) {
        const int indent = list_indent(paragraph.look);
        if (paragraph.list_index < 0) {
            paragraph.list_index = static_cast<int>(lists_.size());
            lists_.push_back({paragraph.look.list, indent, 0});
        }
        ++lists_[static_cast<std::size_t>(paragraph.list_index)].entries;
        if (!around_.empty() && list(around_.back()).indent == indent) around_.pop_back();
        around_.push_back(paragraph.list_index);
    }

    void make_text(Paragraph& paragraph, int number) {
        QString text = paragraph.marker;
        if (text.isEmpty()) text = number_text(paragraph.look.list, number) + u'.';
        paragraph.look.list = ListKind::none;
        CharacterLook look;
        if (!paragraph.runs.empty()) look = paragraph.runs.front().look;
        paragraph.runs.insert(paragraph.runs.begin(), Run{look, text + u'\t', -1});
        around_.clear();
    }

    const List& list(int index) const { return lists_[static_cast<std::size_t>(index)]; }

    const ListTable& table_;
    std::vector<List> lists_;
    std::vector<int> around_;  // the lists that the paragraph before was in, from the outermost
    std::map<Key, int> latest_;
    std::map<Key, int> last_number_;
    bool was_entry_ = false;
};

}  // namespace

void settle_lists(std::vector<Paragraph>& paragraphs, const ListTable& table) {
    ListSettler settler(table);
    for (Paragraph& paragraph : paragraphs) settler.take(paragraph);
}

}  // namespace tavernook::rtf
