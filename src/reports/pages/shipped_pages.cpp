#include "reports/pages/shipped_pages.h"

#include "core/shipped_file.h"

namespace tavernook {

bool lay_out_pages(const std::function<std::string(const std::string& name)>& bytes) noexcept {
    bool complete = true;
    for (const ShippedPage& page : shipped_pages) {
        const std::string name = std::string(page.folder) + "/" + page.name;
        complete = place_shipped_file(name, [&] { return bytes(page.name); }) && complete;
    }
    return complete;
}

}  // namespace tavernook
