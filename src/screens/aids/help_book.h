// The help as it lies on the disk: "tvk.hlp" with its pages, and beside it "tvk.qhc", which says
// what is in it. Both are only read. Nothing is opened before the first call of `open`.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <memory>

class QAbstractItemModel;
class QHelpEngine;
class QModelIndex;

namespace tavernook {

class HelpBook {
  public:
    // The first of the folders that has the files is taken.
    explicit HelpBook(QStringList folders);
    ~HelpBook();

    // False where the files are missing or damaged; a later call tries again. Everything below is
    // for a book that is open.
    bool open();

    QUrl contents_page() const;
    QUrl page_of(const QString& screen) const;  // empty where there is none
    QList<QUrl> pages() const;                  // but not what the pages are dressed with
    QByteArray bytes(const QUrl& url) const;    // empty where there is nothing

    // Both are filled in the background, soon after they are first asked for.
    QAbstractItemModel& contents() const;
    QAbstractItemModel& index() const;  // the words, one a row

    QUrl page_at(const QModelIndex& place) const;         // of the contents
    QUrl page_about(const QString& word_of_index) const;  // empty where there is none

  private:
    QString collection() const;  // its path, or empty

    QStringList folders_;
    std::unique_ptr<QHelpEngine> engine_;
};

}  // namespace tavernook
