// Counts and logs every operation on another Files and on the files it opens, and can make one of
// them fail or end the process in its place. Closing a file is no operation, nor is following a
// link.
//
//   files.fail_at(n, fault_number::disk_full);   // for every n up to a first run's operations()
//
// The log names files by their last part: "open home.tvk read", "open home.tvk read_write",
// "read home.tvk 0 48" (offset and count), "write home.tvk 100 176", "length home.tvk",
// "flush home.tvk", "exists home.tvk", "is_taken home.tvk", "remove home.tvk", "rename home.tvk ->
// home.previous.tvk", "copy a.tvk -> b.tvk", "modified home.tvk", "flush_folder saves", "flush_all
// saves", "list saves .tvk", "make_folder saves", "copy_unflushed a.tvk -> b.tvk", "copy_attributes
// a.tvk -> b.tvk", "is_write_protected home.tvk", "stamp home.tvk", "remove_left_over saves". An
// operation that was made to fail ends in " fault 61"; copy_attributes and remove_left_over, which
// tell of no failure, are then left undone.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/call_log.h"
#include "platform/files.h"

namespace tavernook {

enum class Repeat { once, persistently };  // persistently: each operation from the n-th on
enum class Torn { no, yes };  // yes: a write at n first writes the first half of its bytes

class FaultyFiles : public Files {
  public:
    // Files that it opens must be closed before it goes.
    explicit FaultyFiles(Files& real) : real_(real) {}

    // Operations count from 1 since the start or the last `start_over`. One plan at a time.
    void fail_at(int n, int fault_number, Repeat repeat = Repeat::once, Torn torn = Torn::no);

    // _exit(86) in place of the n-th operation.
    void kill_at(int n, Torn torn = Torn::no);
    static constexpr int kill_status = 86;

    // Nothing fails any more; the count and the log stay.
    void work_normally() { plan_ = Plan{}; }

    // Counts and logs from zero, and nothing fails any more.
    void start_over();

    int operations() const { return operations_; }
    const std::vector<std::string>& log() const { return calls.entries; }

    bool exists(const std::string& path) override;
    bool is_taken(const std::string& path) override;
    std::string behind_link(const std::string& path) override { return real_.behind_link(path); }
    std::unique_ptr<File> open(const std::string& path, OpenMode mode) override;
    void remove(const std::string& path) override;
    void rename(const std::string& from, const std::string& to) override;
    void copy(const std::string& from, const std::string& to) override;
    void copy_unflushed(const std::string& from, const std::string& to) override;
    void copy_attributes(const std::string& from, const std::string& to) noexcept override;
    bool is_write_protected(const std::string& path) override;
    FileStamp stamp(const std::string& path) override;
    void remove_left_over(const std::string& folder) noexcept override;
    Date modified(const std::string& path) override;
    void flush_folder(const std::string& folder) override;
    void flush_all(const std::string& folder) override;
    std::vector<std::string> list(const std::string& folder, std::string_view suffix) override;
    void make_folder(const std::string& folder) override;

    CallLog calls;

  private:
    friend class FaultyFile;

    struct Plan {
        int at = 0;  // 0 = nothing fails
        int fault = 0;
        Repeat repeat = Repeat::once;
        bool kill = false;
        Torn torn = Torn::no;
    };

    // Returns when the operation may go on. `tear` writes half of what was asked.
    template <typename Tear>
    void count(const std::string& operation, Tear tear);
    void count(const std::string& operation);

    Files& real_;
    Plan plan_;
    int operations_ = 0;
};

}  // namespace tavernook
