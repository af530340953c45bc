// Other programs, asked what they see in a picture.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <sys/wait.h>

#include "fakes/temp_folder.h"

namespace tavernook {

// The program's path; empty where it is not installed.
inline std::string found_program(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (std::filesystem::exists(folder + "/" + name)) return folder + "/" + name;
    }
    return {};
}

// What the command writes to its standard output; the test fails when the command does.
inline std::string output_of(const std::string& command) {
    std::FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) {
        ADD_FAILURE() << command;
        return {};
    }
    std::string output;
    std::array<char, 4096> part;
    for (std::size_t count; (count = std::fread(part.data(), 1, part.size(), pipe)) > 0;) {
        output.append(part.data(), count);
    }
    const int status = ::pclose(pipe);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << command;
    return output;
}

}  // namespace tavernook
