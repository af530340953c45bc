#include "platform_web/page_folder.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QVariantMap>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include "platform_web/page_bytes.h"

namespace tavernook {

namespace {

// With a host, so that "the page's own" means the folder in the policies of the templates.
QUrl address_of(const QString& name) {
    QUrl address;
    address.setScheme(QLatin1String(page_scheme));
    address.setHost(QStringLiteral("page"));
    address.setPath(QLatin1Char('/') + name, QUrl::DecodedMode);
    return address;
}

QString name_in(const QUrl& address) {
    const QString name = address.path(QUrl::FullyDecoded).mid(1);
    const bool is_plain = !name.isEmpty() && !name.contains(QLatin1Char('/')) && name[0] != u'.';
    return is_plain ? name : QString();
}

void answer(QWebEngineUrlRequestJob& job, const QByteArray& type, const QByteArray& bytes) {
    auto* buffer = new QBuffer(&job);
    buffer->setData(bytes);
    job.reply(type, buffer);
}

}  // namespace

void register_page_scheme() {
    QWebEngineUrlScheme scheme{QByteArray(page_scheme)};
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

void PageFolder::open(const QString& path) {
    const QFileInfo page(path);
    folder_ = page.path();
    address_ = address_of(page.fileName());
    asked_for_.clear();
}

QByteArray PageFolder::bytes_of(const QString& name) const {
    QFile file(folder_ + QLatin1Char('/') + name);
    return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly) ? file.readAll()
                                                                      : QByteArray();
}

QVariantMap PageFolder::shown_pictures() const {
    QVariantMap pictures;
    for (const QUrl& address : asked_for_) {
        const QString inside = data_address(bytes_of(name_in(address)));
        if (!inside.isEmpty()) pictures[address.toString(QUrl::FullyEncoded)] = inside;
    }
    return pictures;
}

void PageFolder::requestStarted(QWebEngineUrlRequestJob* job) {
    const QUrl asked = job->requestUrl();
    const QString name = name_in(asked);
    const QByteArray bytes = job->requestMethod() == "GET" ? bytes_of(name) : QByteArray();
    const QByteArray type = picture_type(bytes);
    if (asked == address_ && !bytes.isEmpty()) {
        answer(*job, "text/html; charset=windows-1252", with_policy(bytes));
    } else if (!type.isEmpty()) {
        asked_for_.insert(asked);
        answer(*job, type, bytes);
    } else {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    }
}

}  // namespace tavernook
