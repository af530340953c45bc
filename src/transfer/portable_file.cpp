#include "transfer/portable_file.h"

#include <cstdlib>
#include <utility>

#include "basics/fault.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/project/names_beside.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/cabinets.h"
#include "platform/platform.h"
#include "transfer/work_progress.h"

namespace tavernook {

i16 extract_done = i16_false;

namespace {

constexpr std::string_view entry_name = "temppf.tmp";
constexpr std::string_view caption = "Portable Format File";
constexpr int longest_wait = 120;       // seconds
constexpr double between_looks = 0.01;  // seconds

std::string portable_path() {
    return in_program_folder(entry_name);
}

// Also a link that leads nowhere, through which a new file would come into being elsewhere.
void remove_portable() {
    if (files().is_taken(portable_path())) files().remove(portable_path());
}

int second_of_minute() {
    return time_from_date(platform_clock().now()).second;
}

std::unique_ptr<File> written_plain(const std::function<void(File&)>& write) {
    auto file = files().open(portable_path(), OpenMode::read_write);
    write(*file);
    if (file->length() > longest_portable_file) throw Fault(fault_number::overflow);
    return file;
}

// False when the wait took too long.
bool wait_for(Extraction& extraction) {
    WorkProgress progress(caption, "Extracting Portable Format File");
    const int start = second_of_minute();
    while (!extraction.has_ended()) {
        if (std::abs(second_of_minute() - start) > longest_wait) return false;
        progress.step(extraction.percent());
        platform_clock().wait_seconds(between_looks);
    }
    progress.step(extraction.percent());
    return true;
}

}  // namespace

PortableFileRemoval::PortableFileRemoval() {
    remove_portable();
}

PortableFileRemoval::~PortableFileRemoval() {
    tried([] { remove_portable(); });
}

void pack_portable(const std::string& target, const std::function<void(File&)>& write) {
    const PortableFileRemoval removal;
    const auto plain = written_plain(write);
    WorkProgress progress(caption, "Compressing Portable Format File");
    replace_file(target, [&](File& cabinet) {
        cabinets().compress(*plain, entry_name, cabinet, progress.steps());
    });
}

std::unique_ptr<File> unpack_portable(const std::string& source,
                                      std::string_view watchdog_message) {
    extract_done = i16_false;
    auto cabinet = files().open(source, OpenMode::read);
    remove_portable();
    const auto extraction = cabinets().extract(std::move(cabinet), entry_name,
                                               files().open(portable_path(), OpenMode::read_write),
                                               longest_portable_file);
    if (!wait_for(*extraction)) {
        boxes().message(watchdog_message);
        return nullptr;
    }
    auto plain = extraction->finish();
    extract_done = i16_true;
    return plain;
}

}  // namespace tavernook
