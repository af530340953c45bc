// The user's settings store: texts under application, section and key.
#pragma once

#include <string>

namespace tavernook {

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    // Empty where nothing is stored.
    virtual std::string get(const std::string& section, const std::string& key) = 0;
    virtual void set(const std::string& section, const std::string& key,
                     const std::string& value) = 0;
};

}  // namespace tavernook
