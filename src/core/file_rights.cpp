#include "core/file_rights.h"

#include "platform/platform.h"

namespace tavernook {

// One operation: it makes a file that is missing and gives it the rights alone.
void make_with_rights_of(const std::string& model, const std::string& path) noexcept {
    files().copy_attributes(model, path);
}

void take_attributes_of(const std::string& model, const std::string& path) noexcept {
    files().copy_attributes(model, path);
}

}  // namespace tavernook
