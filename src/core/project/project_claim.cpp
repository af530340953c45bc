#include "core/project/project_claim.h"

#include <set>

#include "core/project/names_beside.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

std::set<std::string> claimed;

// On another machine nobody can tell whether the program that left the lock still runs: the user
// can.
bool user_takes_over(const std::string& path, const LockHolder& holder) {
    const std::string question =
        "The project " + shown_file_name(path) + " is marked as open on the computer " +
        holder.machine + ", since " + date_text(holder.since) +
        ".  If it is not open there any more, press YES to use it here.  If it is, press NO and "
        "close it there first: what both save would not come together.";
    return boxes().message(question, Buttons::yes_no, "Project Open Elsewhere",
                           DefaultButton::no) == Answer::yes;
}

void tell_that_it_is_taken(const std::string& path) {
    boxes().message("The project " + shown_file_name(path) +
                    " is already open in another Tavernook window.  Close it there first, then "
                    "open it here.");
}

// The user has been told or asked when it is false.
bool take(const std::string& path) {
    if (project_lock().acquire(path)) return true;
    if (const auto holder = project_lock().holder_elsewhere(path)) {
        if (!user_takes_over(path, *holder)) return false;
        if (project_lock().take_over(path)) return true;
    }
    tell_that_it_is_taken(path);
    return false;
}

}  // namespace

bool claim_project(const std::string& path) noexcept {
    bool taken = false;
    trap_in_module([&] {
        taken = take(path);
        if (taken) claimed.insert(path);
    });
    return taken;
}

void keep_only_claim(const std::string& path) noexcept {
    trap_in_module([&] {
        for (const std::string& other : claimed) {
            if (other != path) project_lock().release(other);
        }
        std::erase_if(claimed, [&](const std::string& other) { return other != path; });
    });
}

void release_claims() noexcept {
    keep_only_claim({});
}

}  // namespace tavernook
