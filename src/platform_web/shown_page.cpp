#include "platform_web/shown_page.h"

#include <QJsonDocument>
#include <QPointer>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <utility>

namespace tavernook {

namespace {

constexpr QWebEngineSettings::WebAttribute forbidden[] = {
    QWebEngineSettings::JavascriptEnabled,
    QWebEngineSettings::JavascriptCanOpenWindows,
    QWebEngineSettings::JavascriptCanAccessClipboard,
    QWebEngineSettings::LocalStorageEnabled,
    QWebEngineSettings::LocalContentCanAccessRemoteUrls,
    QWebEngineSettings::LocalContentCanAccessFileUrls,
    QWebEngineSettings::HyperlinkAuditingEnabled,
    QWebEngineSettings::ErrorPageEnabled,
    QWebEngineSettings::PluginsEnabled,
    QWebEngineSettings::FullScreenSupportEnabled,
    QWebEngineSettings::ScreenCaptureEnabled,
    QWebEngineSettings::WebGLEnabled,
    QWebEngineSettings::AutoLoadIconsForPage,
    QWebEngineSettings::TouchIconsEnabled,
    QWebEngineSettings::DnsPrefetchEnabled,
    QWebEngineSettings::PdfViewerEnabled,
    QWebEngineSettings::NavigateOnDropEnabled,
    QWebEngineSettings::AllowRunningInsecureContent,
    QWebEngineSettings::AllowGeolocationOnInsecureOrigins};

}  // namespace

void RequestWall::interceptRequest(QWebEngineUrlRequestInfo& request) {
    const QString scheme = request.requestUrl().scheme();
    const bool is_picture_inside =
        scheme == QLatin1String("data") &&
        request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeImage;
    request.block(scheme != QLatin1String(page_scheme) && !is_picture_inside);
}

PageWorld::PageWorld() {
    for (const auto attribute : forbidden) profile.settings()->setAttribute(attribute, false);
    profile.settings()->setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
    profile.setHttpCacheType(QWebEngineProfile::NoCache);
    profile.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile.cookieStore()->setCookieFilter([](const auto&) { return false; });
    profile.setUrlRequestInterceptor(&wall);
    profile.installUrlSchemeHandler(page_scheme, &folder);
    QObject::connect(&profile, &QWebEngineProfile::downloadRequested, &profile,
                     [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

ShownPage::ShownPage(QWebEngineProfile& profile) : QWebEnginePage(&profile) {
    connect(this, &QWebEnginePage::loadFinished, this, &ShownPage::finish_loading);
    connect(&looks_, &QTimer::timeout, this, &ShownPage::look_for_end);
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.reject(); });
}

void ShownPage::show(const QUrl& address, std::function<void(bool)> loaded) {
    awaited_ = address;
    loaded_ = std::move(loaded);
    setVisible(false);
    load(address);
    constexpr int between_looks_ms = 500;
    looks_.start(between_looks_ms);
}

// Films and sounds, which are never fetched, are given up only in a page that is in sight, and hold
// its end up till then. It comes into sight once all of its text is there.
void ShownPage::look_for_end() {
    runJavaScript(QStringLiteral("document.readyState"), QWebEngineScript::ApplicationWorld,
                  [this, alive = QPointer<ShownPage>(this)](const QVariant& state) {
                      if (alive.isNull() || state.toString() != QLatin1String("interactive"))
                          return;
                      looks_.stop();
                      if (loaded_) setVisible(true);
                  });
}

// Once: the page does not go to itself either.
bool ShownPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool is_main_frame) {
    return is_main_frame && url == std::exchange(awaited_, QUrl());
}

// Navigations that were refused report a failure as well, later. Who hears of the end may do away
// with the page.
void ShownPage::finish_loading(bool succeeded) {
    const auto heard = std::exchange(loaded_, nullptr);
    if (!heard) return;
    looks_.stop();
    is_loaded_ = succeeded;
    for (const auto& command : std::exchange(behind_loading_, {})) command();
    heard(succeeded);
}

void ShownPage::command(const char* function, const QJsonArray& values,
                        std::function<void(const QVariant&)> answer) {
    const QString script =
        QLatin1Char('(') + QString::fromUtf8(function) + QStringLiteral(").apply(null, ") +
        QString::fromUtf8(QJsonDocument(values).toJson(QJsonDocument::Compact)) + QLatin1Char(')');
    const auto run = [this, script, answer = std::move(answer)] {
        runJavaScript(
            script, QWebEngineScript::ApplicationWorld, answer ? answer : [](const QVariant&) {});
    };
    if (loaded_) {
        behind_loading_.push_back(run);
    } else {
        run();
    }
}

std::shared_ptr<ShownPage> new_page(std::shared_ptr<PageWorld> world) {
    auto* page = new ShownPage(world->profile);
    return {page, [world](ShownPage* going) { delete going; }};
}

}  // namespace tavernook
