// The one folder that a view sees: its page and the pictures beside it, under a scheme of their
// own. Whatever else is asked for is not there.
#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

namespace tavernook {

inline constexpr char page_scheme[] = "tavernook-page";

// Once, before the engine is used.
void register_page_scheme();

class PageFolder : public QWebEngineUrlSchemeHandler {
  public:
    // From now on that of the page in this file.
    void open(const QString& path);

    // Of the page.
    const QUrl& address() const { return address_; }

    // The pictures that the page has asked for: the address of each, and one that holds it.
    QVariantMap shown_pictures() const;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

  private:
    QByteArray bytes_of(const QString& name) const;

    QString folder_;
    QUrl address_;
    QSet<QUrl> asked_for_;
};

}  // namespace tavernook
