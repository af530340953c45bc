#include "core/trap.h"

#include <new>

#include "platform/platform.h"

namespace tavernook {

std::string main_window_message(std::string_view procedure, const Fault& fault) {
    std::string where = "Error in Module MAIN";
    if (!procedure.empty()) where.append(".").append(procedure);
    return where + ".  Error Number " + std::to_string(fault.number) +
           " Err Description=" + fault.description;
}

std::string module_message(const Fault& fault) {
    return "Tavernook error: rt6:" + std::to_string(fault.number) + ". Contact Brenwyk Software.";
}

Fault present_fault() {
    try {
        throw;
    } catch (const Fault& fault) {
        return fault;
    } catch (const std::bad_alloc&) {
        return Fault(fault_number::out_of_memory);
    } catch (const std::exception& error) {
        return Fault(fault_number::internal_error, error.what());
    }
}

namespace {

bool unattended = false;

}  // namespace

Unattended::Unattended(bool nobody_is_there) : before_(unattended) {
    unattended = nobody_is_there;
}

Unattended::~Unattended() {
    unattended = before_;
}

void show_fault(const std::string& message) noexcept {
    try {
        if (unattended) return main_window().set_status(message_panel, message);
        boxes().message(message);
    } catch (...) {
        // There is nothing left to say it with.
    }
}

}  // namespace tavernook
