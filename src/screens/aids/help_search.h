// Full-text search in the pages of the help. A page is found when each of the words begins a word
// of it; small and capital letters are alike, and so are letters with and without accents.
#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace tavernook {

struct HelpHit {
    QUrl page;
    QString title;
    QString line;  // what stands around the first of the words
};

class HelpSearch {
  public:
    void add_page(const QUrl& page, const QString& html);
    bool is_empty() const { return pages_.isEmpty(); }

    // Pages with words in their titles come first, then those that have the words most often.
    // Nothing is found for no words.
    QList<HelpHit> find(const QString& words) const;

  private:
    struct Page {
        QUrl url;
        QString title;
        QString text;
        QString plain_title;  // these as they are compared, letter for letter
        QString plain_text;
    };

    QList<Page> pages_;
};

}  // namespace tavernook
