#include "reports/pages/shipped_pages.h"

#include "core/program_folders.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

bool lay_out_pages(const std::function<std::string(const std::string& name)>& bytes) noexcept {
    bool complete = true;
    for (const ShippedPage& page : shipped_pages) {
        const std::string path =
            in_program_folder(std::string(page.folder) + "/" + std::string(page.name));
        const bool placed = tried([&] {
            if (!files().is_taken(path)) replace_file(path, bytes(page.name));
        });
        complete = placed && complete;
    }
    return complete;
}

}  // namespace tavernook
