#include "core/file_rights.h"

#include "platform/platform.h"

namespace tavernook {

// A file that is not there is made with the rights alone, one that is there takes everything.
void make_with_rights_of(const std::string& model, const std::string& path) noexcept {
    files().copy_attributes(model, path);
}

void make_successor_of(const std::string& model, const std::string& path) noexcept {
    files().copy_attributes(model, path);
    files().copy_attributes(model, path);
}

}  // namespace tavernook
