// A file that comes in from outside, until it is in its place, and the project that may lie there
// already. What comes is written under a name of its own and takes its place in one step, so that
// a command which fails, or a program that is killed, leaves there what was there before.
//
// A project that has to give way is never lost: it goes aside under a numbered name, together with
// the previous version that an interrupted save has left of it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tavernook {

// One of its kind for each target. Its file goes with it, unless it was put in its place.
class ArrivingFile {
  public:
    // What a program that was killed has left of an earlier one goes. Throws what the file layer
    // throws, as all of these do.
    explicit ArrivingFile(const std::string& target);
    ~ArrivingFile();
    ArrivingFile(const ArrivingFile&) = delete;
    ArrivingFile& operator=(const ArrivingFile&) = delete;

    const std::string& target() const { return target_; }

    // Where it is written until then.
    const std::string& path() const { return path_; }

    // What `write` puts into it, flushed. It is open to those only to whom `bound` is.
    void write(const std::function<void(File&)>& write, const std::string& bound) const;

    // In one step, on the disk when the folder is flushed. A file that is there goes, and what
    // comes has its rights.
    void put_in_place() const;

  private:
    std::string target_;
    std::string path_;
};

// The claim of a project that is coming in. Given back unless that is open at the end.
class ClaimWhileArriving {
  public:
    explicit ClaimWhileArriving(const std::string& path) noexcept;
    ~ClaimWhileArriving();
    ClaimWhileArriving(const ClaimWhileArriving&) = delete;
    ClaimWhileArriving& operator=(const ClaimWhileArriving&) = delete;

    // False: another program has it, and the user has been told.
    bool is_granted() const { return is_granted_; }

  private:
    bool is_granted_;
};

// The name under which a project that lies there stays, empty when none does. Throws what the file
// layer throws.
std::string set_project_aside(const std::string& project);

// "  The home.tvk that was there before is now home 2.tvk."; empty when nothing went aside.
std::string words_of_aside(const std::string& project, const std::string& aside) noexcept;

}  // namespace tavernook
