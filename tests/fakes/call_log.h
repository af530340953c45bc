// What fakes saw, one text a call. A log may pass its entries on to another one, prefixed, so that
// the order of calls to different fakes can be read from one place.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tavernook {

class CallLog {
  public:
    void add(const std::string& entry) {
        entries.push_back(entry);
        if (transcript_ != nullptr) transcript_->push_back(prefix_ + entry);
    }
    void pass_on_to(std::vector<std::string>& transcript, std::string prefix) {
        transcript_ = &transcript;
        prefix_ = std::move(prefix);
    }
    void clear() { entries.clear(); }

    std::vector<std::string> entries;

  private:
    std::vector<std::string>* transcript_ = nullptr;
    std::string prefix_;
};

}  // namespace tavernook
