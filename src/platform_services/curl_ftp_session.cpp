#include "platform_services/curl_ftp_session.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "basics/code_page.h"
#include "basics/fault.h"
#include "basics/text.h"
#include "platform/platform.h"
#include "platform_services/ftp_lines.h"
#include "platform_services/ftp_refusals.h"

namespace tavernook {

struct CurlFtpSession::Step {
    int refusal = 0;
    std::string sentence;
    bool connects = false;
    i64 size = 0;  // of the file that is sent
};

namespace {

constexpr const char* home = "/~/";

class Turn {
  public:
    explicit Turn(bool& busy) : busy_(busy) {
        if (busy) throw Fault(ftp_fault::connection_lost, "The connection is in use");
        busy = true;
    }
    ~Turn() { busy_ = false; }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    bool& busy_;
};

// What is sent as part of a command must not end it and begin another one.
std::string sendable(const std::string& text) {
    const bool is_plain = std::none_of(text.begin(), text.end(), [](char letter) {
        return static_cast<unsigned char>(letter) < ' ' || letter == 0x7F;
    });
    if (!is_plain) {
        throw Fault(ftp_fault::bad_address,
                    "A line end or a tab cannot be part of a server's "
                    "name, an account, a directory or a file name");
    }
    return utf8_from_text(text);
}

bool can_speak(std::string_view protocol) {
    for (const char* const* known = curl_version_info(CURLVERSION_NOW)->protocols;
         *known != nullptr; ++known) {
        if (protocol == *known) return true;
    }
    return false;
}

std::string whole_file(const std::string& path) {
    try {
        const std::unique_ptr<File> file = files().open(path, OpenMode::read);
        std::string bytes(static_cast<std::size_t>(file->length()), '\0');
        bytes.resize(file->read(0, bytes.data(), bytes.size()));
        return bytes;
    } catch (const Fault& fault) {
        throw Fault(fault.number, fault.description + ": " + text_from_utf8(file_name_part(path)));
    }
}

std::size_t read_bytes(char* buffer, std::size_t size, std::size_t count, void* source) {
    auto& left = *static_cast<std::string_view*>(source);
    const std::size_t taken = std::min(left.size(), size * count);
    std::memcpy(buffer, left.data(), taken);
    left.remove_prefix(taken);
    return taken;
}

int judge_host_key(CURL*, const curl_khkey*, const curl_khkey*, curl_khmatch match, void* refusal) {
    if (match == CURLKHMATCH_OK) return CURLKHSTAT_FINE;
    if (match == CURLKHMATCH_MISSING) return CURLKHSTAT_FINE_ADD_TO_FILE;
    *static_cast<std::string*>(refusal) = "its host key is not the one that was remembered";
    return CURLKHSTAT_REJECT;
}

}  // namespace

bool CurlFtpSession::is_encrypted(const std::string& server) {
    return ftp_address(server, FtpAccount{}.port).protocol != FtpProtocol::plain;
}

void CurlFtpSession::open(const FtpAccount& account, FtpEvents events) {
    const Turn turn(busy_);
    address_ = ftp_address(account.server, account.port);
    if (is_over_ssh() && !can_speak("sftp")) {
        throw Fault(ftp_fault::not_encrypted,
                    "This computer's library for the network (libcurl) cannot speak sftp");
    }
    account_ = sendable(account.name);
    password_ = sendable(account.password);
    directory_ = home;
    events_ = std::move(events);
    CURL* handle = prepare(is_over_ssh() ? home : "/", true);
    curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
    run({.refusal = ftp_fault::login_refused,
         .sentence = "The server refuses the account",
         .connects = true});
    if (is_over_ssh()) say("Connected");
    open_ = true;
}

void CurlFtpSession::change_directory(const std::string& directory) {
    const Turn turn(busy_);
    const std::string wanted = sendable(directory);
    if (wanted.empty()) return;
    const Step step = {.refusal = ftp_fault::no_directory,
                       .sentence = "There is no directory \"" + directory +
                                   "\" on the server, or it must not be entered"};
    if (!is_over_ssh()) return send_command("CWD " + wanted, step);
    const std::string path = (wanted.front() == '/' ? "" : home) + wanted + "/";
    CURL* handle = prepare(path);
    curl_easy_setopt(handle, CURLOPT_DIRLISTONLY, 1L);
    run(step);
    directory_ = path;
    say("In directory " + directory);
}

void CurlFtpSession::put_file(const std::string& remote_name, const std::string& local_path) {
    const Turn turn(busy_);
    const std::string name = sendable(remote_name);
    const std::string bytes = whole_file(local_path);
    std::string_view left = bytes;
    CURL* handle = prepare(is_over_ssh() ? directory_ + name : "/" + name);
    curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(handle, CURLOPT_READFUNCTION, read_bytes);
    curl_easy_setopt(handle, CURLOPT_READDATA, &left);
    curl_easy_setopt(handle, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(bytes.size()));
    run({.refusal = ftp_fault::file_refused,
         .sentence = "The server does not take the file \"" + remote_name + "\"",
         .size = static_cast<i64>(bytes.size())});
    if (is_over_ssh()) say("Sent " + remote_name);
}

void CurlFtpSession::close() noexcept {
    if (busy_) return cancel();
    try {
        const Turn turn(busy_);
        if (open_ && !is_over_ssh()) send_command("*QUIT", {});  // "*": whatever it answers
    } catch (...) {
        // It has gone without a goodbye.
    }
    link_.drop();
    open_ = false;
    events_ = {};
    password_.clear();
}

void CurlFtpSession::cancel() noexcept {
    link_.stop(CurlLink::Stop::cancelled);
}

CURL* CurlFtpSession::prepare(const std::string& path, bool may_connect) {
    if (!may_connect && !open_ && link_.stopped() == CurlLink::Stop::none) {
        throw Fault(ftp_fault::connection_lost, "There is no connection to a server");
    }
    CURL* handle = link_.prepare(may_connect);
    curl_easy_setopt(handle, CURLOPT_URL, (url_of(address_) + escaped_path(path)).c_str());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, is_over_ssh() ? "sftp" : "ftp,ftps");
    curl_easy_setopt(handle, CURLOPT_USERNAME, account_.c_str());
    curl_easy_setopt(handle, CURLOPT_PASSWORD, password_.c_str());
    // Files go to the directory that was changed to, under their bare names.
    curl_easy_setopt(handle, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
    if (is_over_ssh()) {
        prepare_host_key(handle);
    } else if (address_.protocol != FtpProtocol::plain) {
        prepare_encryption(handle);
    }
    return handle;
}

void CurlFtpSession::prepare_encryption(CURL* handle) {
    curl_easy_setopt(handle, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
    if (!settings_.certificates.empty()) {
        curl_easy_setopt(handle, CURLOPT_CAINFO, settings_.certificates.c_str());
    }
}

void CurlFtpSession::prepare_host_key(CURL* handle) {
    if (settings_.known_hosts.empty()) {
        throw Fault(ftp_fault::not_trusted, "There is no place to remember the server's key in");
    }
    files().make_folder(folder_of(settings_.known_hosts));
    key_refusal_.clear();
    curl_easy_setopt(handle, CURLOPT_SSH_AUTH_TYPES,
                     static_cast<long>(CURLSSH_AUTH_PASSWORD | CURLSSH_AUTH_KEYBOARD));
    curl_easy_setopt(handle, CURLOPT_SSH_KNOWNHOSTS, settings_.known_hosts.c_str());
    curl_easy_setopt(handle, CURLOPT_SSH_KEYFUNCTION, judge_host_key);
    curl_easy_setopt(handle, CURLOPT_SSH_KEYDATA, &key_refusal_);
}

void CurlFtpSession::send_command(const std::string& command, const Step& step) {
    const std::unique_ptr<curl_slist, void (*)(curl_slist*)> commands(
        curl_slist_append(nullptr, command.c_str()), curl_slist_free_all);
    if (commands == nullptr) throw Fault(fault_number::out_of_memory);
    CURL* handle = prepare("/");
    curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
    curl_easy_setopt(handle, CURLOPT_QUOTE, commands.get());
    run(step);
}

void CurlFtpSession::run(const Step& step) {
    last_answer_.clear();
    const CURLcode code =
        link_.run(settings_.longest_silence, [&](const LinkNews& news) { hear(news, step.size); });
    if (code == CURLE_OK) return;
    open_ = false;
    if (link_.stopped() == CurlLink::Stop::cancelled) {
        throw Fault(fault_number::cancel_was_selected, "The connection was cancelled");
    }
    if (link_.stopped() == CurlLink::Stop::silent || code == CURLE_OPERATION_TIMEDOUT) {
        const auto seconds =
            std::chrono::duration_cast<std::chrono::seconds>(settings_.longest_silence).count();
        throw Fault(ftp_fault::silence,
                    "The server has said nothing for " + std::to_string(seconds) + " seconds");
    }
    throw fault_of(code, {.refusal = step.refusal,
                          .sentence = step.sentence,
                          .connects = step.connects,
                          .address = address_,
                          .last_answer = last_answer_,
                          .reason = key_refusal_.empty() ? link_.reason() : key_refusal_});
}

void CurlFtpSession::hear(const LinkNews& news, i64 size) {
    const std::string password = text_from_utf8(password_);
    if (!news.answers.empty()) last_answer_ = shown_line(news.answers.back(), password);
    for (const std::string& line : news.lines) say(shown_line(line, password));
    if (size > 0 && events_.progress) events_.progress(news.sent, size);
    settings_.pump();
}

void CurlFtpSession::say(const std::string& line) {
    if (events_.status) events_.status(line);
}

}  // namespace tavernook
