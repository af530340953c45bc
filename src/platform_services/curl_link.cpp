#include "platform_services/curl_link.h"

#include <algorithm>
#include <new>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tavernook {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds between_news{50};
constexpr int longest_poll_ms = 50;
constexpr long longest_pause_s = 24 * 60 * 60;  // libcurl forgets a connection that old

std::size_t ignored(char*, std::size_t size, std::size_t count, void*) {
    return size * count;
}

}  // namespace

CurlLink::~CurlLink() {
    drop();
    curl_easy_cleanup(easy_);
}

// The library starts with the first transfer, not with the program.
CURL* CurlLink::prepare(bool may_connect) {
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (easy_ == nullptr && started == CURLE_OK) easy_ = curl_easy_init();
    if (easy_ == nullptr) throw std::bad_alloc();
    curl_easy_reset(easy_);
    may_connect_ = may_connect;
    error_[0] = '\0';
    curl_easy_setopt(easy_, CURLOPT_ERRORBUFFER, error_);
    curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy_, CURLOPT_QUICK_EXIT, 1L);  // no wait for a name that is looked up
    curl_easy_setopt(easy_, CURLOPT_PROXY, "");
    curl_easy_setopt(easy_, CURLOPT_MAXAGE_CONN, longest_pause_s);
    curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, ignored);
    curl_easy_setopt(easy_, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(easy_, CURLOPT_DEBUGFUNCTION, on_debug);
    curl_easy_setopt(easy_, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(easy_, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(easy_, CURLOPT_XFERINFOFUNCTION, on_progress);
    curl_easy_setopt(easy_, CURLOPT_XFERINFODATA, this);
    curl_easy_setopt(easy_, CURLOPT_OPENSOCKETFUNCTION, on_open);
    curl_easy_setopt(easy_, CURLOPT_OPENSOCKETDATA, this);
    curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETFUNCTION, on_close);
    curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETDATA, this);
    return easy_;
}

CURLcode CurlLink::run(milliseconds longest_silence,
                       const std::function<void(const LinkNews&)>& hear) {
    {
        const std::lock_guard lock(mutex_);
        if (multi_ == nullptr) multi_ = curl_multi_init();
        if (multi_ == nullptr) throw std::bad_alloc();
        news_ = {};
        done_ = false;
    }
    touch();
    std::thread worker([this] { transfer(); });
    try {
        LinkNews news;
        for (bool is_done = false; !is_done; hear(news)) {
            is_done = next_news(news);
            if (!is_done && is_silent_for(longest_silence)) stop(Stop::silent);
        }
    } catch (...) {
        stop(Stop::cancelled);
        worker.join();
        throw;
    }
    worker.join();
    return code_;
}

void CurlLink::transfer() {
    CURLcode code = CURLE_FAILED_INIT;
    if (curl_multi_add_handle(multi_, easy_) == CURLM_OK) {
        code = transferred();
        curl_multi_remove_handle(multi_, easy_);
    }
    const std::lock_guard lock(mutex_);
    code_ = code;
    done_ = true;
    changed_.notify_all();
}

CURLcode CurlLink::transferred() {
    while (stopped() == Stop::none) {
        int running = 0;
        if (curl_multi_perform(multi_, &running) != CURLM_OK) return CURLE_FAILED_INIT;
        if (running == 0) {
            int left = 0;
            const CURLMsg* message = curl_multi_info_read(multi_, &left);
            return message == nullptr ? CURLE_FAILED_INIT : message->data.result;
        }
        curl_multi_poll(multi_, nullptr, 0, longest_poll_ms, nullptr);
    }
    return CURLE_ABORTED_BY_CALLBACK;
}

// True when the transfer has ended.
bool CurlLink::next_news(LinkNews& news) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, between_news, [this] { return done_ || !news_.lines.empty(); });
    news = news_;
    news_.lines.clear();
    news_.answers.clear();
    return done_;
}

void CurlLink::touch() noexcept {
    last_sign_ = steady_clock::now().time_since_epoch().count();
}

bool CurlLink::is_silent_for(milliseconds limit) const noexcept {
    const auto since = steady_clock::now().time_since_epoch() - steady_clock::duration(last_sign_);
    return since >= limit;
}

void CurlLink::stop(Stop why) noexcept {
    const std::lock_guard lock(mutex_);
    if (stop_ == Stop::none) stop_ = why;
    shut_sockets();
    if (multi_ != nullptr) curl_multi_wakeup(multi_);
}

CurlLink::Stop CurlLink::stopped() const noexcept {
    const std::lock_guard lock(mutex_);
    return stop_;
}

// libcurl says a goodbye of its own and would wait for the answer: the sockets are shut before.
void CurlLink::drop() noexcept {
    CURLM* gone = nullptr;
    {
        const std::lock_guard lock(mutex_);
        shut_sockets();
        gone = std::exchange(multi_, nullptr);
        stop_ = Stop::none;
    }
    curl_multi_cleanup(gone);
}

void CurlLink::shut_sockets() noexcept {
    for (const curl_socket_t socket : sockets_) ::shutdown(socket, SHUT_RDWR);
}

int CurlLink::on_debug(CURL*, curl_infotype type, char* data, std::size_t size, void* link) {
    auto& self = *static_cast<CurlLink*>(link);
    self.touch();
    if (type != CURLINFO_HEADER_IN && type != CURLINFO_HEADER_OUT) return 0;
    const std::lock_guard lock(self.mutex_);
    self.news_.lines.emplace_back(data, size);
    if (type == CURLINFO_HEADER_IN) self.news_.answers.emplace_back(data, size);
    self.changed_.notify_all();
    return 0;
}

int CurlLink::on_progress(void* link, curl_off_t, curl_off_t, curl_off_t, curl_off_t sent) {
    auto& self = *static_cast<CurlLink*>(link);
    const std::lock_guard lock(self.mutex_);
    if (std::exchange(self.news_.sent, sent) != sent) self.touch();
    return self.stop_ == Stop::none ? 0 : 1;
}

curl_socket_t CurlLink::on_open(void* link, curlsocktype, curl_sockaddr* address) {
    auto& self = *static_cast<CurlLink*>(link);
    const std::lock_guard lock(self.mutex_);
    const bool reconnects = !self.may_connect_ && self.sockets_.empty();
    if (reconnects || self.stop_ != Stop::none) return CURL_SOCKET_BAD;
    const curl_socket_t socket =
        ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    if (socket >= 0) self.sockets_.insert(socket);
    return socket;
}

int CurlLink::on_close(void* link, curl_socket_t socket) {
    auto& self = *static_cast<CurlLink*>(link);
    const std::lock_guard lock(self.mutex_);
    self.sockets_.erase(socket);
    return ::close(socket);
}

}  // namespace tavernook
