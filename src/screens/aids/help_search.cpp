#include "screens/aids/help_search.h"

#include <QStringList>
#include <QTextDocument>
#include <algorithm>
#include <utility>

namespace tavernook {

namespace {

QChar plain(QChar letter) {
    const QString parts = letter.decomposition();
    const QChar base = parts.isEmpty() || !parts[0].isLetter() ? letter : parts[0];
    return base.toCaseFolded();
}

// As long as the text, so that a place in one is a place in the other.
QString plain(const QString& text) {
    QString letters = text;
    for (QChar& letter : letters) letter = plain(letter);
    return letters;
}

qsizetype place_of(const QString& word, const QString& text, qsizetype from = 0) {
    for (qsizetype at = text.indexOf(word, from); at >= 0; at = text.indexOf(word, at + 1)) {
        if (at == 0 || !text[at - 1].isLetterOrNumber()) return at;
    }
    return -1;
}

int times(const QString& word, const QString& text) {
    int count = 0;
    for (qsizetype at = place_of(word, text); at >= 0; at = place_of(word, text, at + 1)) ++count;
    return count;
}

// Words are not cut.
QString around(qsizetype place, const QString& text) {
    constexpr qsizetype before = 20;
    constexpr qsizetype in_all = 80;
    qsizetype from = place <= before ? 0 : text.indexOf(QLatin1Char(' '), place - before) + 1;
    if (from > place) from = place;
    QString line = text.mid(from, in_all);
    const bool is_cut = from + line.size() < text.size();
    if (is_cut) line = line.left(std::max<qsizetype>(line.lastIndexOf(QLatin1Char(' ')), 1));
    return (from > 0 ? QStringLiteral("… ") : QString()) + line +
           (is_cut ? QStringLiteral(" …") : QString());
}

}  // namespace

void HelpSearch::add_page(const QUrl& page, const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    Page read{page,
              document.metaInformation(QTextDocument::DocumentTitle),
              document.toPlainText().simplified(),
              {},
              {}};
    // The heading says the title again.
    if (read.text.startsWith(read.title)) read.text = read.text.mid(read.title.size() + 1);
    read.plain_title = plain(read.title);
    read.plain_text = plain(read.text);
    pages_.append(read);
}

QList<HelpHit> HelpSearch::find(const QString& words) const {
    const QStringList wanted = plain(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (wanted.isEmpty()) return {};
    QList<std::pair<int, HelpHit>> found;
    for (const Page& page : pages_) {
        int weight = 0;
        bool has_all = true;
        for (const QString& word : wanted) {
            constexpr int weight_of_title = 1000;
            const int in_title = times(word, page.plain_title);
            const int in_text = times(word, page.plain_text);
            has_all = has_all && in_title + in_text > 0;
            weight += in_title * weight_of_title + in_text;
        }
        if (!has_all) continue;
        const qsizetype place = std::max<qsizetype>(place_of(wanted.first(), page.plain_text), 0);
        found.append({weight, {page.url, page.title, around(place, page.text)}});
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& one, const auto& other) { return one.first > other.first; });
    QList<HelpHit> hits;
    for (const auto& [weight, hit] : found) hits.append(hit);
    return hits;
}

}  // namespace tavernook
