// A session with the web space that the household publishes to; one at a time.
//
//     session.open({host, account, password}, events);
//     session.change_directory("pantry");
//     session.put_file("list.htm", "/home/ann/.local/share/Tavernook/dat/list.htm");
//     session.close();
//
// An operation returns when it is done. Until then its events come, on the caller's thread, and
// windows repaint and hear the user, who may want to cancel. What fails throws a Fault that says
// why in words for the user; nothing is left to do then but to close.
//
// All texts are windows-1252, local paths the file system's own bytes.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// Beside 53, a local file that is not there, and 32755, cancelled.
namespace ftp_fault {
inline constexpr int bad_address = 1001;      // or a text that no server can be sent
inline constexpr int unknown_host = 1002;     // no such name
inline constexpr int no_server = 1003;        // nothing listens there
inline constexpr int login_refused = 1004;    // account or password
inline constexpr int no_directory = 1005;     // missing, or not to be entered
inline constexpr int file_refused = 1006;     // the server does not take the file
inline constexpr int connection_lost = 1007;  // the server has died, or never was opened
inline constexpr int silence = 1008;          // the server is there and says nothing
inline constexpr int not_trusted = 1009;      // certificate or host key refused
inline constexpr int not_encrypted = 1010;    // encryption was asked for, and there is none
}  // namespace ftp_fault

struct FtpAccount {
    // A host, also as "host:port" and with "http://" or "ftp://" in front, is spoken to in plain.
    // "ftps://" encrypts and checks the certificate, from the first byte on at port 990 and at
    // any other port as soon as the server has greeted. "sftp://", at its own port 22 where the
    // text names none, checks the host's key, which is remembered from the first time on.
    std::string server = {};
    std::string name = {};
    std::string password = {};
    int port = 21;  // where the server's text names none
};

struct FtpEvents {
    // A line of the conversation, with "****" for the password.
    std::function<void(std::string_view line)> status = {};

    // Of the file that is being sent, in bytes.
    std::function<void(i64 sent, i64 size)> progress = {};
};

class FtpSession {
  public:
    virtual ~FtpSession() = default;

    // Whether nobody on the way can read what a session with this server says.
    virtual bool is_encrypted(const std::string& server) = 0;

    // Connects and logs in.
    virtual void open(const FtpAccount& account, FtpEvents events) = 0;

    // Empty stays where the login led.
    virtual void change_directory(const std::string& directory) = 0;

    // Sends one file whole, under that name, into the present directory.
    virtual void put_file(const std::string& remote_name, const std::string& local_path) = 0;

    // Says goodbye where a session is open and well, and drops the connection; events come no more.
    // Inside of an event it cancels.
    virtual void close() noexcept = 0;

    // At any moment, from any thread: what runs, and each further operation until the session has
    // been closed, ends at once with Fault 32755.
    virtual void cancel() noexcept = 0;
};

}  // namespace tavernook
