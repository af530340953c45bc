#include "platform_services/espeak_speech.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <new>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "basics/code_page.h"

namespace tavernook {

namespace {

// A file in memory with the text in it, to be read from its beginning.
class TextFile {
  public:
    explicit TextFile(std::string_view text) : number_(::memfd_create("text", MFD_CLOEXEC)) {
        if (number_ >= 0 && !holds(text)) close();
    }
    ~TextFile() { close(); }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    bool is_there() const { return number_ >= 0; }
    int number() const { return number_; }

  private:
    bool holds(std::string_view text) {
        while (!text.empty()) {
            const ssize_t written = ::write(number_, text.data(), text.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            text.remove_prefix(static_cast<std::size_t>(written));
        }
        return ::lseek(number_, 0, SEEK_SET) == 0;
    }
    void close() {
        if (number_ >= 0) ::close(std::exchange(number_, -1));
    }

    int number_;
};

// What stands open in a program that is started: the text, and nothing else.
class OpenFiles {
  public:
    explicit OpenFiles(const TextFile& text) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_adddup2(&actions_, text.number(), STDIN_FILENO);
        for (const int output : {STDOUT_FILENO, STDERR_FILENO}) {
            ::posix_spawn_file_actions_addopen(&actions_, output, "/dev/null", O_WRONLY, 0);
        }
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    }
    ~OpenFiles() { ::posix_spawn_file_actions_destroy(&actions_); }
    OpenFiles(const OpenFiles&) = delete;
    OpenFiles& operator=(const OpenFiles&) = delete;

    const posix_spawn_file_actions_t& actions() const { return actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

}  // namespace

std::vector<std::string> espeak_command() {
    return {"espeak-ng", "-b", "1", "--stdin"};
}

EspeakSpeech::EspeakSpeech(std::vector<std::string> command) : command_(std::move(command)) {}

EspeakSpeech::~EspeakSpeech() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
        silence();
    }
    wake_.notify_one();
    if (thread_.joinable()) thread_.join();
}

// Where there is no memory and no thread to be had, there is no voice either.
void EspeakSpeech::speak(std::string_view text) noexcept try {
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(utf8_from_text(text));
        if (!thread_.joinable()) thread_ = std::thread([this] { say_one_after_the_other(); });
    }
    wake_.notify_one();
} catch (...) {
}

void EspeakSpeech::stop() noexcept {
    const std::lock_guard lock(mutex_);
    silence();
}

// A program that was not waited for keeps its number, so that nobody else is meant.
void EspeakSpeech::silence() {
    waiting_.clear();
    if (voice_ > 0) ::kill(voice_, SIGKILL);
}

void EspeakSpeech::say_one_after_the_other() {
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
        if (ends_) return;
        const std::string text = std::move(waiting_.front());
        waiting_.pop_front();
        begin(text);
        if (voice_ > 0) wait_for_end(lock);
    }
}

// What there is no memory for is not said.
void EspeakSpeech::begin(const std::string& text) noexcept try {
    const TextFile file(text);
    if (!file.is_there()) return;
    const OpenFiles open(file);
    std::vector<char*> words;
    for (const std::string& word : command_) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    pid_t started = 0;
    const int failed =
        ::posix_spawnp(&started, words[0], &open.actions(), nullptr, words.data(), environ);
    if (failed == 0) voice_ = started;
} catch (const std::bad_alloc&) {
}

// Others may stop it meanwhile.
void EspeakSpeech::wait_for_end(std::unique_lock<std::mutex>& lock) {
    lock.unlock();
    siginfo_t news{};
    while (::waitid(P_PID, static_cast<id_t>(voice_), &news, WEXITED | WNOWAIT) == -1 &&
           errno == EINTR) {
    }
    lock.lock();
    ::waitpid(std::exchange(voice_, 0), nullptr, WNOHANG);
}

}  // namespace tavernook
