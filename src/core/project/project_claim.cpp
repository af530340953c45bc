#include "core/project/project_claim.h"

#include <set>

#include "basics/code_page.h"
#include "basics/text.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

std::set<std::string> claimed;

}  // namespace

bool claim_project(const std::string& path) {
    if (project_lock().acquire(path)) {
        claimed.insert(path);
        return true;
    }
    boxes().message("The project " + text_from_utf8(file_name_part(path)) +
                    " is already open in another Tavernook window.  Close it there first, then "
                    "open it here.");
    return false;
}

void keep_only_claim(const std::string& path) {
    for (const std::string& other : claimed) {
        if (other != path) project_lock().release(other);
    }
    const bool held = claimed.contains(path);
    claimed.clear();
    if (held) claimed.insert(path);
}

void release_claims() {
    keep_only_claim({});
}

}  // namespace tavernook
