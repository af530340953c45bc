#include "screens/text/page_scan.h"

#include <QString>
#include <algorithm>
#include <array>

namespace tavernook {

namespace {

constexpr qsizetype most_characters = 40'000'000;  // pictures that it carries included
constexpr qsizetype most_style_characters = 200'000;
constexpr int most_tags = 20'000;
constexpr int deepest_tag = 200;
constexpr int most_pictures = 200;
constexpr qsizetype most_cells = 20'000;
constexpr qsizetype too_many_cells = most_cells + 1;
constexpr qsizetype widest_cell = 100;

template <std::size_t N>
bool is_one_of(QStringView name, const std::array<const char*, N>& names) {
    return std::any_of(names.begin(), names.end(), [&](const char* one) {
        return name.compare(QLatin1String(one), Qt::CaseInsensitive) == 0;
    });
}

// Tags that need no end: they stand alone, or the next one of their kind ends them.
bool needs_no_end(QStringView name) {
    static constexpr std::array names = {"br",   "img", "hr",    "meta",  "link",  "input", "col",
                                         "p",    "li",  "dt",    "dd",    "td",    "th",    "tr",
                                         "base", "wbr", "thead", "tbody", "tfoot", "option"};
    return is_one_of(name, names);
}

class PageScan {
  public:
    explicit PageScan(QStringView html) : html_(html) {}

    bool is_light() {
        if (html_.size() > most_characters) return false;
        for (qsizetype place = html_.indexOf(u'<'); place >= 0;
             place = html_.indexOf(u'<', place)) {
            place = behind_tag(place + 1);
            if (!is_light_so_far()) return false;
        }
        return true;
    }

  private:
    bool is_light_so_far() const {
        // Every row of a table has as many cells as the widest.
        return tags_ <= most_tags && deepest_ <= deepest_tag && pictures_ <= most_pictures &&
               styles_ <= most_style_characters && rows_ * widest_row_ <= most_cells;
    }

    qsizetype behind_tag(qsizetype start) {
        if (html_.mid(start).startsWith(u"!--")) {
            const qsizetype end = html_.indexOf(u"-->", start);
            return end < 0 ? html_.size() : end + 3;
        }
        qsizetype end = html_.indexOf(u'>', start);
        if (end < 0) end = html_.size();
        take(html_.mid(start, end - start));
        return end;
    }

    void take(QStringView tag) {
        ++tags_;
        const bool is_end = tag.startsWith(u'/');
        if (is_end) tag = tag.mid(1);
        const auto is_of_name = [](QChar character) { return character.isLetterOrNumber(); };
        const auto name_end = std::find_if_not(tag.begin(), tag.end(), is_of_name);
        const QStringView name = tag.left(name_end - tag.begin());
        if (name.isEmpty()) return;
        if (!needs_no_end(name)) depth_ = std::max(depth_ + (is_end ? -1 : 1), 0);
        deepest_ = std::max(deepest_, depth_);
        if (!is_end) take_start(name, tag);
    }

    void take_start(QStringView name, QStringView tag) {
        const auto is = [&](const char* one) {
            return name.compare(QLatin1String(one), Qt::CaseInsensitive) == 0;
        };
        if (is("img")) ++pictures_;
        if (is("style")) {
            const qsizetype start = tag.end() - html_.begin();
            const qsizetype end = html_.indexOf(u"</style", start, Qt::CaseInsensitive);
            styles_ += (end < 0 ? html_.size() : end) - start;
        }
        if (is("tr")) {
            rows_ += 1;
            row_ = 0;
        }
        if (is("td") || is("th")) {
            row_ += spanned(tag, u"colspan");
            rows_ += spanned(tag, u"rowspan") - 1;
            widest_row_ = std::max(widest_row_, row_);
        }
    }

    // At least 1; more than any page has where the number is absurd.
    static qsizetype spanned(QStringView tag, QStringView attribute) {
        const qsizetype found = tag.indexOf(attribute, 0, Qt::CaseInsensitive);
        if (found < 0) return 1;
        const QStringView rest = tag.mid(found + attribute.size());
        const auto digit = std::find_if(rest.begin(), rest.end(),
                                        [](QChar character) { return character.isDigit(); });
        const auto end = std::find_if_not(digit, rest.end(),
                                          [](QChar character) { return character.isDigit(); });
        if (end - digit > 4) return too_many_cells;
        const qsizetype told = QStringView(digit, end).toInt();
        return told > widest_cell ? too_many_cells : std::max<qsizetype>(told, 1);
    }

    QStringView html_;
    int tags_ = 0;
    int depth_ = 0;
    int deepest_ = 0;
    int pictures_ = 0;
    qsizetype styles_ = 0;
    qsizetype rows_ = 0;
    qsizetype row_ = 0;
    qsizetype widest_row_ = 0;
};

}  // namespace

bool is_light_page(QStringView html) {
    return PageScan(html).is_light();
}

}  // namespace tavernook
