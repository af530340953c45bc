// A disk in memory, on which nothing fails, and boxes that are only counted.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basics/fault.h"
#include "platform/boxes.h"
#include "platform/files.h"

namespace tavernook {

class KeptFile : public File {
  public:
    explicit KeptFile(std::string& bytes) : bytes_(bytes) {}
    std::size_t read(i64 offset, char* buffer, std::size_t count) override {
        if (offset >= length()) return 0;
        return bytes_.copy(buffer, count, static_cast<std::size_t>(offset));
    }
    void write(i64 offset, std::string_view bytes) override {
        const auto start = static_cast<std::size_t>(offset);
        bytes_.resize(std::max(bytes_.size(), start + bytes.size()));
        bytes_.replace(start, bytes.size(), bytes);
    }
    i64 length() override { return static_cast<i64>(bytes_.size()); }
    void flush() override {}

  private:
    std::string& bytes_;
};

class KeptFiles : public Files {
  public:
    std::map<std::string, std::string> kept;

    bool exists(const std::string& path) override { return kept.count(path) != 0; }
    bool is_taken(const std::string& path) override { return exists(path); }
    std::string behind_link(const std::string& path) override { return path; }
    std::unique_ptr<File> open(const std::string& path, OpenMode mode) override {
        if (mode == OpenMode::read && !exists(path)) throw Fault(fault_number::file_not_found);
        return std::make_unique<KeptFile>(kept[path]);
    }
    void remove(const std::string& path) override { kept.erase(path); }
    void rename(const std::string& from, const std::string& to) override {
        kept[to] = kept.at(from);
        kept.erase(from);
    }
    void copy(const std::string& from, const std::string& to) override { kept[to] = kept.at(from); }
    void copy_unflushed(const std::string& from, const std::string& to) override { copy(from, to); }
    void copy_attributes(const std::string&, const std::string&) noexcept override {}
    bool is_write_protected(const std::string&) override { return false; }
    void remove_left_over(const std::string&) noexcept override {}
    Date modified(const std::string&) override { return 0; }
    FileStamp stamp(const std::string& path) override {
        if (!exists(path)) return {};
        return {1, static_cast<i64>(kept.at(path).size()), 1};
    }
    void flush_folder(const std::string&) override {}
    void flush_all(const std::string&) override {}
    std::vector<std::string> list(const std::string& folder, std::string_view suffix) override {
        std::vector<std::string> names;
        for (const auto& [path, bytes] : kept) {
            if (path.ends_with(suffix)) names.push_back(path.substr(folder.size() + 1));
        }
        return names;
    }
    void make_folder(const std::string&) override {}
};

class CountedBoxes : public Boxes {
  public:
    int shown = 0;
    Answer message(std::string_view, Buttons, std::string_view, DefaultButton) override {
        ++shown;
        return Answer::ok;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return std::nullopt;
    }
};

}  // namespace tavernook
