// An open file's number, closed with its owner.
#pragma once

#include <cerrno>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform_disk/disk_fault.h"

namespace tavernook {

// Repeats a system call for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    int number() const { return number_; }

  private:
    int number_;
};

inline struct stat facts_of(const Descriptor& file, const std::string& path) {
    struct stat facts {};
    if (::fstat(file.number(), &facts) != 0) throw_disk_fault(errno, path);
    return facts;
}

}  // namespace tavernook
