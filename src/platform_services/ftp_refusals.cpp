#include "platform_services/ftp_refusals.h"

#include "basics/code_page.h"
#include "platform/ftp_session.h"

namespace tavernook {

namespace {

bool says_no(const std::string& answer) {
    return !answer.empty() && (answer.front() == '4' || answer.front() == '5');
}

std::string with(const std::string& sentence, const std::string& detail) {
    return detail.empty() ? sentence : sentence + ": " + detail;
}

// A server that says no tells why.
std::string with_answer(const std::string& sentence, const FailedStep& step) {
    return with(sentence, says_no(step.last_answer) ? step.last_answer : std::string());
}

Fault lost(const FailedStep& step) {
    return Fault(ftp_fault::connection_lost,
                 with_answer("The connection to the server was lost", step));
}

Fault could_not_connect(const FailedStep& step) {
    if (!step.connects) return lost(step);
    return Fault(ftp_fault::no_server, "Nothing answers at " + text_from_utf8(step.address.host) +
                                           ", port " + std::to_string(step.address.port));
}

}  // namespace

Fault fault_of(CURLcode code, const FailedStep& step) {
    switch (code) {
        case CURLE_COULDNT_RESOLVE_HOST:
            return Fault(ftp_fault::unknown_host,
                         "There is no server named " + text_from_utf8(step.address.host));
        case CURLE_COULDNT_CONNECT:
            return could_not_connect(step);
        case CURLE_LOGIN_DENIED:
            return Fault(ftp_fault::login_refused,
                         with_answer("The server refuses the account name or the password", step));
        case CURLE_QUOTE_ERROR:
        case CURLE_UPLOAD_FAILED:
        case CURLE_REMOTE_ACCESS_DENIED:
        case CURLE_REMOTE_DISK_FULL:
        case CURLE_REMOTE_FILE_NOT_FOUND:
            return Fault(step.refusal, with_answer(step.sentence, step));
        case CURLE_PARTIAL_FILE:
            return says_no(step.last_answer) ? Fault(step.refusal, with_answer(step.sentence, step))
                                             : lost(step);
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_SSL_ISSUER_ERROR:
            return Fault(ftp_fault::not_trusted,
                         with("The server is not the one that it says it is", step.reason));
        case CURLE_USE_SSL_FAILED:
        case CURLE_SSL_CONNECT_ERROR:
            return Fault(ftp_fault::not_encrypted,
                         with("The server makes no encrypted connection", step.reason));
        case CURLE_OUT_OF_MEMORY:
            return Fault(fault_number::out_of_memory);
        default:
            return lost(step);
    }
}

}  // namespace tavernook
