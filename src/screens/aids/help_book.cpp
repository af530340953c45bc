#include "screens/aids/help_book.h"

#include <QDir>
#include <QFileInfo>
#include <QHelpContentModel>
#include <QHelpEngine>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <utility>

namespace tavernook {

namespace {

QUrl url_of(const QString& file) {
    return QUrl(QStringLiteral("qthelp://tavernook.help/help/") + file);
}

}  // namespace

HelpBook::HelpBook(QStringList folders) : folders_(std::move(folders)) {}

HelpBook::~HelpBook() = default;

QString HelpBook::collection() const {
    for (const QString& folder : folders_) {
        const QString found = QDir(folder).filePath(QStringLiteral("tvk.qhc"));
        const QString pages = QDir(folder).filePath(QStringLiteral("tvk.hlp"));
        if (QFileInfo(found).isFile() && QFileInfo(pages).isFile()) return found;
    }
    return {};
}

bool HelpBook::open() {
    if (engine_ != nullptr) return true;
    const QString path = collection();
    if (path.isEmpty()) return false;
    engine_ = std::make_unique<QHelpEngine>(path);
    engine_->setReadOnly(true);
    engine_->setUsesFilterEngine(true);
    const bool is_whole = engine_->setupData() && !bytes(contents_page()).isEmpty();
    if (!is_whole) engine_.reset();
    return is_whole;
}

QUrl HelpBook::contents_page() const {
    return url_of(QStringLiteral("index.html"));
}

QUrl HelpBook::page_of(const QString& screen) const {
    const QUrl url = url_of(screen + QLatin1String(".html"));
    return bytes(url).isEmpty() ? QUrl() : url;
}

QList<QUrl> HelpBook::pages() const {
    return engine_->files(QStringLiteral("tavernook.help"), QString(), QStringLiteral("html"));
}

QByteArray HelpBook::bytes(const QUrl& url) const {
    return engine_->fileData(url.adjusted(QUrl::RemoveFragment));
}

QAbstractItemModel& HelpBook::contents() const {
    QHelpContentModel* model = engine_->contentModel();
    if (model->rowCount() == 0) model->createContents(QString());
    return *model;
}

QAbstractItemModel& HelpBook::index() const {
    QHelpIndexModel* model = engine_->indexModel();
    if (model->rowCount() == 0) model->createIndex(QString());
    return *model;
}

QUrl HelpBook::page_at(const QModelIndex& place) const {
    const QHelpContentItem* item = engine_->contentModel()->contentItemAt(place);
    return item == nullptr ? QUrl() : item->url();
}

QUrl HelpBook::page_about(const QString& word_of_index) const {
    const QList<QHelpLink> found = engine_->documentsForKeyword(word_of_index, QString());
    return found.isEmpty() ? QUrl() : found.first().url;
}

}  // namespace tavernook
