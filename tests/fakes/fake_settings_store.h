// A settings store in memory.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/settings_store.h"

namespace tavernook {

class FakeSettingsStore : public SettingsStore {
  public:
    std::string get(const std::string& section, const std::string& key) override {
        const auto found = values.find({section, key});
        return found == values.end() ? std::string() : found->second;
    }
    void set(const std::string& section, const std::string& key,
             const std::string& value) override {
        values[{section, key}] = value;
    }

    std::map<std::pair<std::string, std::string>, std::string> values;  // by section and key
};

}  // namespace tavernook
