// FTP over libcurl: in plain, encrypted, and the same steps over SSH, where there is no present
// directory and each file is named with its own.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "platform/ftp_session.h"
#include "platform_services/curl_link.h"
#include "platform_services/ftp_address.h"

namespace tavernook {

struct FtpSettings {
    // Called while an operation waits, at least every 50 ms: the windows' turn.
    std::function<void()> pump = [] {};

    // A server that says nothing for so long has gone.
    std::chrono::milliseconds longest_silence{30'000};

    // The file of host keys, made with the first one. Without it no server over SSH is trusted.
    std::string known_hosts = {};

    // A file of certificates to trust in place of the system's.
    std::string certificates = {};
};

class CurlFtpSession : public FtpSession {
  public:
    explicit CurlFtpSession(FtpSettings settings) : settings_(std::move(settings)) {}

    bool is_encrypted(const std::string& server) override;
    void open(const FtpAccount& account, FtpEvents events) override;
    void change_directory(const std::string& directory) override;
    void put_file(const std::string& remote_name, const std::string& local_path) override;
    void close() noexcept override;
    void cancel() noexcept override;

  private:
    struct Step;

    bool is_over_ssh() const { return address_.protocol == FtpProtocol::over_ssh; }
    CURL* prepare(const std::string& path, bool may_connect = false);
    void prepare_encryption(CURL* handle);
    void prepare_host_key(CURL* handle);
    void send_command(const std::string& command, const Step& step);
    void run(const Step& step);
    void hear(const LinkNews& news, i64 size);
    void say(const std::string& line);

    FtpSettings settings_;
    CurlLink link_;
    FtpEvents events_;
    FtpAddress address_;
    std::string account_, password_;  // utf-8, as the directory
    std::string directory_;           // over SSH: "/~/" or a path that ends in "/"
    std::string last_answer_;
    std::string key_refusal_;  // written in the link's thread
    bool open_ = false;
    bool busy_ = false;
};

}  // namespace tavernook
