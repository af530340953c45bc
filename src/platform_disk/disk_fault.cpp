#include "platform_disk/disk_fault.h"

#include <cerrno>
#include <sys/stat.h>

#include "basics/fault.h"
#include "basics/text.h"

namespace tavernook {

namespace {

struct Meaning {
    int error;
    int fault;
};

// Whatever is not listed is Fault 75.
constexpr Meaning meanings[] = {
    {ENOENT, fault_number::file_not_found},   {ENOTDIR, fault_number::path_not_found},
    {EIO, fault_number::device_io_error},     {ENOSPC, fault_number::disk_full},
    {EDQUOT, fault_number::disk_full},        {EACCES, fault_number::permission_denied},
    {EPERM, fault_number::permission_denied}, {EROFS, fault_number::permission_denied},
};

bool is_folder(const std::string& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

}  // namespace

int fault_number_from_errno(int error, bool folder_exists) {
    if (error == ENOENT && !folder_exists) return fault_number::path_not_found;
    for (const Meaning& meaning : meanings) {
        if (meaning.error == error) return meaning.fault;
    }
    return fault_number::path_file_access_error;
}

void throw_disk_fault(int error, const std::string& path) {
    const bool folder_exists = error != ENOENT || is_folder(folder_of(path));
    throw Fault(fault_number_from_errno(error, folder_exists));
}

}  // namespace tavernook
