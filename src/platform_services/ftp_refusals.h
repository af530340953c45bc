// What the results of libcurl mean to the user.
#pragma once

#include <curl/curl.h>
#include <string>

#include "basics/fault.h"
#include "platform_services/ftp_address.h"

namespace tavernook {

// The step that failed and what was known of it.
struct FailedStep {
    int refusal = 0;       // the Fault where the server says no to it
    std::string sentence;  // ... in words
    bool connects = false;
    FtpAddress address;
    std::string last_answer;  // of the server; empty when it never said anything
    std::string reason;       // libcurl's own words
};

Fault fault_of(CURLcode code, const FailedStep& step);

}  // namespace tavernook
