#include "core/shipped_file.h"

#include <cstdint>
#include <string_view>

#include "core/program_folders.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr const char* section = "Placed files";
constexpr i64 longest_renewed = 1024 * 1024;

// Tells contents apart that nobody has made alike on purpose (FNV-1a).
std::string sum_of(std::string_view bytes) {
    std::uint64_t sum = 14695981039346656037u;
    for (const char byte : bytes) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211u;
    }
    return std::to_string(bytes.size()) + "-" + std::to_string(sum);
}

// Empty for what cannot be read, and for a file that is too long to be the program's.
std::string sum_of_file(const std::string& path) {
    std::string sum;
    tried([&] {
        const auto file = files().open(path, OpenMode::read);
        if (file->length() > longest_renewed) return;
        std::string bytes(static_cast<std::size_t>(file->length()), '\0');
        bytes.resize(file->read(0, bytes.data(), bytes.size()));
        sum = sum_of(bytes);
    });
    return sum;
}

// Not read as long as the program has nothing else to place.
void place(const std::string& name, const std::string& bytes) {
    const std::string path = in_program_folder(name);
    const std::string wanted = sum_of(bytes);
    const std::string noted = settings_store().get(section, name);
    std::string present;
    if (files().is_taken(path)) {
        if (noted == wanted) return;
        present = sum_of_file(path);
        const bool is_ours = present == wanted || (present == noted && !noted.empty());
        if (!is_ours) return;
    }
    if (present != wanted) replace_file(path, bytes);
    if (noted != wanted) settings_store().set(section, name, wanted);
}

}  // namespace

bool place_shipped_file(const std::string& name,
                        const std::function<std::string()>& bytes) noexcept {
    return tried([&] { place(name, bytes()); });
}

}  // namespace tavernook
