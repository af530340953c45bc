// One page in the engine, from its loading to the next: it goes nowhere, opens nothing, runs none
// of its scripts and reaches nothing but its folder. What is done to it are commands of ours, which
// run in a world of their own.
#pragma once

#include <QJsonArray>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <functional>
#include <memory>
#include <vector>

#include "platform_web/page_folder.h"

namespace tavernook {

// Stops every request but those for the folder of the page and pictures inside it.
class RequestWall : public QWebEngineUrlRequestInterceptor {
  public:
    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

// What pages live in: a folder to see, and a profile that keeps nothing and allows nothing.
struct PageWorld {
    PageWorld();

    RequestWall wall;
    PageFolder folder;
    QWebEngineProfile profile;
};

// Behind `new_page`, so that the world of a page goes after the page.
class ShownPage : public QWebEnginePage {
  public:
    explicit ShownPage(QWebEngineProfile& profile);

    // Once. `loaded` hears whether the page is there; it is out of sight until then, as it would be
    // drawn anew with every row that comes in.
    void show(const QUrl& address, std::function<void(bool)> loaded);
    bool is_loaded() const { return is_loaded_; }

    // Calls the function of that text with the values; behind the loading, if that is still to
    // come.
    void command(const char* function, const QJsonArray& values,
                 std::function<void(const QVariant&)> answer = {});

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main_frame) override;
    QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
    QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override {
        return {};
    }
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                  const QString&) override {}

  private:
    void finish_loading(bool succeeded);
    void look_for_end();

    QUrl awaited_;
    bool is_loaded_ = false;
    QTimer looks_;
    std::function<void(bool)> loaded_;
    std::vector<std::function<void()>> behind_loading_;
};

std::shared_ptr<ShownPage> new_page(std::shared_ptr<PageWorld> world);

}  // namespace tavernook
