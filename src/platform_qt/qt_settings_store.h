// The settings store: "Tavernook/Tavernook.conf" among the user's settings, or "Tavernook.conf"
// in $TAVERNOOK_HOME.
#pragma once

#include <QSettings>
#include <memory>

#include "platform/settings_store.h"

namespace tavernook {

// Values may hold any bytes; those that are UTF-8 stay readable in the file.
class QtSettingsStore : public SettingsStore {
  public:
    QtSettingsStore();

    std::string get(const std::string& section, const std::string& key) override;
    void set(const std::string& section, const std::string& key, const std::string& value) override;

  private:
    std::unique_ptr<QSettings> settings_;
};

}  // namespace tavernook
