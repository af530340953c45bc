#include "platform_qt/web_library.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QOpenGLContext>
#include <utility>

#include "basics/fault.h"
#include "platform_qt/qt_text.h"

// Exported by Qt, declared in no header of its public ones.
Q_DECL_IMPORT void qt_gl_set_global_share_context(QOpenGLContext* context);

namespace tavernook {

namespace {

// The engine wants to find a context that is shared, though it draws by itself when that has never
// been created. The other way, an attribute before the application, makes every start slower.
void give_shared_context() {
    if (QOpenGLContext::globalShareContext() != nullptr) return;
    qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
}

QString library_in(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        const QString path = path_to_qstring(folder) + QStringLiteral("/libtavernook_web.so");
        if (QFileInfo::exists(path)) return path;
    }
    throw Fault(fault_number::file_not_found,
                "The preview is missing from this installation. Install Tavernook again.");
}

template <typename Service>
Service* service_of(QLibrary& library, const char* entry) {
    const QFunctionPointer found = library.resolve(entry);
    if (found == nullptr) {
        throw Fault(fault_number::file_not_found,
                    "The preview is of another version of Tavernook. Install Tavernook again.");
    }
    return reinterpret_cast<Service* (*)()>(found)();
}

}  // namespace

WebLibrary::WebLibrary(std::vector<std::string> folders) : folders_(std::move(folders)) {}

// It stays loaded as long as the program runs.
void WebLibrary::load() {
    if (views_ != nullptr) return;
    QLibrary library(library_in(folders_));
    give_shared_context();
    if (!library.load()) {
        throw Fault(
            fault_number::file_not_found,
            "The preview needs the packages libqt6webenginewidgets6 and libqt6pdf6. Install "
            "them and try again.");
    }
    prompt_ = service_of<PrintPrompt>(library, print_prompt_entry);
    views_ = service_of<HtmlViews>(library, html_views_entry);
}

std::unique_ptr<HtmlView> WebLibrary::make() {
    load();
    return views_->make();
}

std::shared_ptr<QPrinter> WebLibrary::ask(QWidget& over, const std::string& title, bool is_wide) {
    load();
    return prompt_->ask(over, title, is_wide);
}

std::vector<std::string> web_library_folders() {
    const std::string program = qstring_to_path(QCoreApplication::applicationDirPath());
    return {program, program + "/../lib/tavernook"};
}

}  // namespace tavernook
