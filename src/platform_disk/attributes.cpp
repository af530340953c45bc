#include "platform_disk/attributes.h"

#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace tavernook {

namespace {

constexpr mode_t rights = 0777;
constexpr const char* access_list = "system.posix_acl_access";

// Empty where there is none.
std::string attribute(const std::string& path, const char* name) {
    const ssize_t size = ::getxattr(path.c_str(), name, nullptr, 0);
    if (size <= 0) return {};
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::getxattr(path.c_str(), name, value.data(), value.size());
    value.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return value;
}

bool set_attribute(const std::string& path, const char* name, const std::string& value) {
    return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

// The names one behind the other, each with a byte 0 at its end.
std::string attribute_names(const std::string& path) {
    const ssize_t size = ::listxattr(path.c_str(), nullptr, 0);
    if (size <= 0) return {};
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::listxattr(path.c_str(), names.data(), names.size());
    names.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return names;
}

bool is_handed_on(std::string_view name) {
    return name.starts_with("user.") || name == "security.selinux";
}

// The group gets no more than everybody has.
mode_t without_group(mode_t mode) {
    const mode_t of_others = mode & 0007U;
    return (mode & ~mode_t{0070}) | (mode & (of_others << 3U));
}

// False when the file belongs to another group still.
bool take_owner_and_group(const struct stat& model, const char* path) {
    constexpr auto unchanged = static_cast<uid_t>(-1);
    if (::chown(path, model.st_uid, model.st_gid) == 0) return true;
    return ::chown(path, unchanged, model.st_gid) == 0;
}

// False when the model has an access list that the file cannot have. One that its folder gave it
// goes: it may let in whom the model keeps out.
bool take_access_list(const std::string& model, const std::string& path) {
    (void)::removexattr(path.c_str(), access_list);
    const std::string list = attribute(model, access_list);
    return list.empty() || set_attribute(path, access_list, list);
}

}  // namespace

void take_rights(const std::string& model, const std::string& path) noexcept {
    struct stat facts {};
    if (::stat(model.c_str(), &facts) != 0) return;
    const bool same_group = take_owner_and_group(facts, path.c_str());
    const bool same_list = same_group && take_access_list(model, path);
    const mode_t mode = facts.st_mode & rights;
    (void)::chmod(path.c_str(), same_list ? mode : without_group(mode));
}

void take_extended_attributes(const std::string& model, const std::string& path) noexcept {
    const std::string names = attribute_names(model);
    for (std::size_t start = 0; start < names.size(); start = names.find('\0', start) + 1) {
        const char* name = names.c_str() + start;
        if (is_handed_on(name)) set_attribute(path, name, attribute(model, name));
    }
}

void let_owner_write(const std::string& path) noexcept {
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0 || (facts.st_mode & S_IWUSR) != 0) return;
    (void)::chmod(path.c_str(), (facts.st_mode & rights) | S_IWUSR);
}

}  // namespace tavernook
