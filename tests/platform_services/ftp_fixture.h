// A session with a real server on loopback, and what a household does with it.
#pragma once

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basics/fault.h"
#include "fakes/test_platform.h"
#include "platform_services/child_server.h"
#include "platform_services/curl_ftp_session.h"

namespace tavernook {

using Texts = std::vector<std::string>;

class FtpTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!python_has("pyftpdlib")) GTEST_SKIP() << "python3-pyftpdlib is not installed";
        platform.disk.make_folder(platform.path("web/pantry"));
        platform.disk.make_folder(
            platform.path("web/K\xC3\xBC"
                          "che 1"));
        write_whole_file(page, "<p>Flour</p>");
    }
    void serve(const Texts& faults = {}) {
        Texts words = {TAVERNOOK_SOURCE_FOLDER "/tests/platform_services/ftp_server.py",
                       platform.path("web")};
        words.insert(words.end(), faults.begin(), faults.end());
        server.emplace(words);
        ASSERT_NE(server->port(), 0);
    }
    FtpAccount account() const {
        return {.server = "127.0.0.1:" + std::to_string(server->port()),
                .name = "ann",
                .password = "p\xE4ss word"};
    }
    FtpSettings settings() {
        return {.pump = [this] {
            if (on_pump) on_pump();
        }};
    }
    FtpEvents events() {
        return {.status =
                    [this](std::string_view line) {
                        lines.emplace_back(line);
                        if (on_line) on_line(lines.back());
                    },
                .progress =
                    [this](i64 sent, i64 size) {
                        progress = {sent, size};
                    }};
    }
    void open() { session.open(account(), events()); }

    // What a household does; the Fault that ended it, or 0.
    int publish(const std::string& directory = "pantry") {
        try {
            open();
            session.change_directory(directory);
            session.put_file("list.htm", page);
            session.put_file("main.htm", page);
            session.close();
        } catch (const Fault& fault) {
            description = fault.description;
            session.close();
            return fault.number;
        }
        return 0;
    }
    std::string sent(const std::string& name) {
        const std::string path = platform.path("web/" + name);
        return platform.disk.exists(path) ? read_whole_file(path) : "(missing)";
    }
    bool said(const std::string& beginning) const {
        return std::any_of(lines.begin(), lines.end(),
                           [&](const std::string& line) { return line.starts_with(beginning); });
    }

    TestPlatform platform;
    std::string page = platform.path("page.htm");
    std::optional<ChildServer> server;
    Texts lines;
    std::pair<i64, i64> progress;
    std::string description;
    std::function<void()> on_pump;
    std::function<void(const std::string&)> on_line;
    CurlFtpSession session{settings()};
};

}  // namespace tavernook
