// One connection of libcurl. Its transfers run one after the other, each in a thread of its own:
// libcurl waits in places where nobody could paint or cancel. The caller's thread waits meanwhile,
// hears the news and looks at the clock.
//
// Whoever stops a transfer shuts its sockets down, so that it ends also where libcurl waits. No
// transfer but the one that may connect opens a connection: a server that has gone in between is
// a lost one, not one to log in to once more and to leave files in the wrong directory.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <curl/curl.h>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "basics/values.h"

namespace tavernook {

// What has happened since the last news.
struct LinkNews {
    std::vector<std::string> lines;    // of the conversation, as they came and went
    std::vector<std::string> answers;  // those of them that the server has sent
    i64 sent = 0;                      // bytes of the file, from its beginning
};

class CurlLink {
  public:
    enum class Stop { none, cancelled, silent };

    CurlLink() = default;
    ~CurlLink();
    CurlLink(const CurlLink&) = delete;
    CurlLink& operator=(const CurlLink&) = delete;

    // The handle for the next transfer, with what all of them need; only while none runs.
    CURL* prepare(bool may_connect);

    // Runs it to its end, or until it is stopped. `hear` gets the news at least every 50 ms; what
    // it throws stops the transfer and comes out here.
    CURLcode run(std::chrono::milliseconds longest_silence,
                 const std::function<void(const LinkNews&)>& hear);

    // libcurl's own words for the last failure.
    std::string reason() const { return error_; }

    // From any thread. Stands until the connection is dropped.
    void stop(Stop why) noexcept;
    Stop stopped() const noexcept;

    // Without a goodbye; the next transfer may connect again.
    void drop() noexcept;

  private:
    static int on_debug(CURL*, curl_infotype type, char* data, std::size_t size, void* link);
    static int on_progress(void* link, curl_off_t, curl_off_t, curl_off_t size, curl_off_t sent);
    static curl_socket_t on_open(void* link, curlsocktype, curl_sockaddr* address);
    static int on_close(void* link, curl_socket_t socket);

    void transfer();
    CURLcode transferred();
    void touch() noexcept;
    bool is_silent_for(std::chrono::milliseconds limit) const noexcept;
    bool next_news(LinkNews& news);
    void shut_sockets() noexcept;

    CURL* easy_ = nullptr;
    CURLM* multi_ = nullptr;
    char error_[CURL_ERROR_SIZE] = {};
    bool may_connect_ = false;
    std::atomic<std::chrono::steady_clock::rep> last_sign_ = 0;

    mutable std::mutex mutex_;  // for all that follows, and for the life of the multi handle
    std::condition_variable changed_;
    std::set<curl_socket_t> sockets_;
    LinkNews news_;
    Stop stop_ = Stop::none;
    bool done_ = false;
    CURLcode code_ = CURLE_OK;
};

}  // namespace tavernook
