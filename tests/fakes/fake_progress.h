// Records what the progress window was told: "load CAPTION|LABEL", "offer cancel", "show",
// "label TEXT", "bar 25", "hide", "unload".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "fakes/call_log.h"
#include "platform/save_progress.h"

namespace tavernook {

class FakeSaveProgress : public ports::SaveProgress {
  public:
    const std::vector<std::string>& events() const { return log.entries; }

    void load(std::string_view caption, std::string_view label) override {
        log.add("load " + std::string(caption) + "|" + std::string(label));
    }
    void show() override { log.add("show"); }
    void set_label(std::string_view label) override { log.add("label " + std::string(label)); }
    void workbar(int percent) override { log.add("bar " + std::to_string(percent)); }
    void offer_cancel() override { log.add("offer cancel"); }
    bool is_cancelled() override { return cancelled; }
    void hide() override { log.add("hide"); }
    void unload() override { log.add("unload"); }

    CallLog log;
    bool cancelled = false;
};

}  // namespace tavernook
