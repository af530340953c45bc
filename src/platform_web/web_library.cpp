// The entries of the library. Nothing of the program's own state lives here: it is handed what it
// needs and gives back what the port says.
#include <QQuickWindow>
#include <unistd.h>

#include "platform_web/page_folder.h"
#include "platform_web/qt_print_prompt.h"
#include "platform_web/web_view.h"

namespace tavernook {

namespace {

// The engine leaves its sandbox out only where it would not start with one: for root.
void prepare_engine() {
    constexpr char no_sandbox[] = "QTWEBENGINE_DISABLE_SANDBOX";
    if (::geteuid() == 0) qputenv(no_sandbox, "1");
    // Pages are drawn without the graphics card: they need none, and its drivers have their faults.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    register_page_scheme();
}

class WebViews : public HtmlViews {
  public:
    WebViews() { prepare_engine(); }
    std::unique_ptr<HtmlView> make() override { return std::make_unique<WebView>(); }
};

}  // namespace

extern "C" Q_DECL_EXPORT HtmlViews* tavernook_html_views() {
    static WebViews views;
    return &views;
}

extern "C" Q_DECL_EXPORT PrintPrompt* tavernook_print_prompt() {
    static QtPrintPrompt prompt;
    return &prompt;
}

}  // namespace tavernook
