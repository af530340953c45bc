// Real files in a folder of the test's own.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "basics/fault.h"
#include "fakes/temp_folder.h"
#include "platform_disk/disk_files.h"

namespace tavernook {

// The number of the Fault that `body` throws, 0 for none.
inline int fault_of(const std::function<void()>& body) {
    try {
        body();
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

class DiskFilesTest : public testing::Test {
  protected:
    std::string path(std::string_view name) const { return folder.path(name); }

    std::string read(File& file, i64 offset, std::size_t count) {
        std::string bytes(count, '?');
        bytes.resize(file.read(offset, bytes.data(), count));
        return bytes;
    }

    // All names in the folder, hidden ones too, so that no stump goes unseen.
    std::vector<std::string> names() { return files.list(folder.path(), ""); }

    TempFolder folder;
    DiskFiles files;
};

using Names = std::vector<std::string>;

}  // namespace tavernook
