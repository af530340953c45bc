#include "core/shipped_file.h"

#include "core/program_folders.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

bool place_shipped_file(const std::string& name,
                        const std::function<std::string()>& bytes) noexcept {
    return tried([&] {
        const std::string path = in_program_folder(name);
        if (!files().is_taken(path)) replace_file(path, bytes());
    });
}

}  // namespace tavernook
