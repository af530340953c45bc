#include "platform_services/ftp_address.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "basics/code_page.h"
#include "basics/fault.h"
#include "basics/text.h"
#include "platform/ftp_session.h"

namespace tavernook {

namespace {

constexpr int port_encrypted_from_start = 990;
constexpr int port_of_ssh = 22;

[[noreturn]] void refuse(std::string_view server) {
    throw Fault(ftp_fault::bad_address,
                "\"" + std::string(server) + "\" is not the address of a server");
}

// Takes the part before "://" off the text; empty where there is none.
std::string take_scheme(std::string_view& text) {
    const std::size_t end = text.find("://");
    if (end == std::string_view::npos) return {};
    const std::string scheme = lower_case(text.substr(0, end));
    text.remove_prefix(end + 3);
    return scheme;
}

// Takes ":port" off the end of the text; 0 where there is none. In an IPv6 address colons stand
// inside of the brackets.
int take_port(std::string_view& text) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos || text.find(']', colon) != std::string_view::npos) {
        return 0;
    }
    const std::string_view digits = text.substr(colon + 1);
    int port = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    if (!whole || port < 1 || port > 65535) refuse(text);
    text = text.substr(0, colon);
    return port;
}

bool may_stand_in_host(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte > ' ' && byte != 0x7F &&
           std::string_view("\"#%<>?@\\^`{|}").find(letter) == std::string_view::npos;
}

FtpProtocol protocol_of(const std::string& scheme, std::string_view server) {
    if (scheme.empty() || scheme == "http" || scheme == "ftp") return FtpProtocol::plain;
    if (scheme == "ftps") return FtpProtocol::encrypted;
    if (scheme == "sftp") return FtpProtocol::over_ssh;
    refuse(server);
}

}  // namespace

FtpAddress ftp_address(const std::string& server, int port) {
    std::string_view rest = trim(server);
    FtpAddress address;
    address.protocol = protocol_of(take_scheme(rest), server);
    rest = trim_right(rest.substr(0, rest.find('/')));
    const int named = take_port(rest);
    const bool is_host = !rest.empty() &&
                         std::all_of(rest.begin(), rest.end(), may_stand_in_host) &&
                         (rest.front() == '[') == (rest.find(':') != std::string_view::npos);
    if (!is_host) refuse(server);
    address.host = utf8_from_text(rest);
    address.port = named != 0 ? named : port;
    if (address.protocol == FtpProtocol::over_ssh && named == 0) address.port = port_of_ssh;
    if (address.protocol == FtpProtocol::encrypted && named == port_encrypted_from_start) {
        address.protocol = FtpProtocol::encrypted_from_start;
    }
    return address;
}

std::string url_of(const FtpAddress& address) {
    std::string scheme = "ftp";
    if (address.protocol == FtpProtocol::encrypted_from_start) scheme = "ftps";
    if (address.protocol == FtpProtocol::over_ssh) scheme = "sftp";
    return scheme + "://" + address.host + ":" + std::to_string(address.port);
}

std::string escaped_path(const std::string& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::string_view plain =
        "/-._~0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::string escaped;
    for (const char letter : path) {
        if (plain.find(letter) != std::string_view::npos) {
            escaped += letter;
            continue;
        }
        const auto byte = static_cast<unsigned char>(letter);
        escaped.append({'%', digits[byte / 16], digits[byte % 16]});
    }
    return escaped;
}

}  // namespace tavernook
