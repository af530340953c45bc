// What the text of a server's address means.
#pragma once

#include <string>

namespace tavernook {

enum class FtpProtocol { plain, encrypted, encrypted_from_start, over_ssh };

struct FtpAddress {
    FtpProtocol protocol = FtpProtocol::plain;
    std::string host;  // utf-8; an IPv6 address in brackets
    int port = 21;
};

// As FtpAccount::server tells; blanks around it and what follows a "/" do not count. `port` is
// taken where the text names none. Fault 1001 for what is no address.
FtpAddress ftp_address(const std::string& server, int port);

// What comes before the path of each of the server's files.
std::string url_of(const FtpAddress& address);

// A path as it stands in an address; "/" stays.
std::string escaped_path(const std::string& path);

}  // namespace tavernook
