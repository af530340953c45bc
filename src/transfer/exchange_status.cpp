#include "transfer/exchange_status.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "basics/fault.h"
#include "core/project/names_beside.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "transfer/kept_tables.h"

namespace tavernook {

namespace {

// Categories that came and went may stand in the item screen's tree.
void put_back(const KeptTables& before) {
    before.put_back();
    if (ports::FoodInventory* screen = food_inventory()) screen->populate_tree();
}

std::string outcome_of(const std::string& source, const ImportWork& work, ExchangeStatus& status,
                       std::optional<Fault>& failure) {
    const KeptTables before;
    std::string outcome;
    if (trap([&] { outcome = work(status); }, [&](const Fault& fault) { failure = fault; })) {
        status.complete();
        return outcome;
    }
    put_back(before);
    const std::string name = shown_file_name(source);
    if (!failure) return "The import of " + name + " was cancelled; nothing has changed.";
    log_exchange_line("Error with Importing Process " + failure->description);
    return name + " could not be imported; nothing has changed.";
}

}  // namespace

void log_exchange_line(std::string_view text) noexcept {
    import_form().add_line(text);
}

ExchangeStatus::ExchangeStatus(std::string_view caption) {
    import_form().begin(caption);
}

ExchangeStatus::~ExchangeStatus() {
    import_form().end();
}

void ExchangeStatus::step(i64 done, i64 all) {
    const int percent = all > 0 ? static_cast<int>(std::clamp<i64>(done * 100 / all, 0, 100)) : 0;
    if (std::exchange(shown_, percent) == percent) return;
    import_form().workbar(percent);
    if (import_form().is_cancelled()) throw Fault(fault_number::cancel_was_selected);
}

void ExchangeStatus::complete() {
    import_form().workbar(100);
}

void run_import(const std::string& source, const ImportWork& work) noexcept {
    std::optional<Fault> failure;
    trap_in_module([&] {
        ExchangeStatus status("Import Status");
        const std::string outcome = outcome_of(source, work, status, failure);
        log_exchange_line(outcome);
        main_window().set_status(message_panel, outcome);
    });
    if (failure) show_fault(module_message(*failure));
}

}  // namespace tavernook
