// Cabinets that are no more than their file behind a line of their own, and unpack in as many steps
// as a test says; and the status window of an exchange, as a record: "begin CAPTION", "line TEXT",
// "end".
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "basics/fault.h"
#include "fakes/call_log.h"
#include "platform/cabinets.h"
#include "platform/screen_ports.h"

namespace tavernook {

class FakeCabinets : public Cabinets {
  public:
    void compress(File& source, std::string_view entry, File& cabinet,
                  const CabinetProgress& progress) override {
        log.add("compress " + std::string(entry));
        progress(0);
        if (failure) throw *failure;
        cabinet.write(0, first_line(entry) + bytes_of(source));
        progress(100);
    }

    std::unique_ptr<Extraction> extract(std::unique_ptr<File> cabinet, std::string_view entry,
                                        std::unique_ptr<File> target, i64 longest) override {
        log.add("extract " + std::string(entry));
        auto running = std::make_unique<Running>(*this);
        running->fault = failure;
        const std::string bytes = bytes_of(*cabinet);
        const std::string line = first_line(entry);
        if (!running->fault && !bytes.starts_with(line)) running->fault = Fault(63);
        if (!running->fault && static_cast<i64>(bytes.size() - line.size()) > longest) {
            running->fault = Fault(7);
        }
        if (!running->fault) target->write(0, std::string_view(bytes).substr(line.size()));
        running->target = std::move(target);
        return running;
    }

    CallLog log;
    std::optional<Fault> failure;
    int steps = 2;  // how often an unpacking is asked before it has ended

    // Called at each of them, while the program waits.
    std::function<void(int step)> meanwhile;

  private:
    class Running : public Extraction {
      public:
        explicit Running(FakeCabinets& owner) : owner_(owner) {}
        ~Running() override { owner_.log.add("let go"); }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

        int percent() noexcept override {
            if (step_ < owner_.steps) return step_ * 100 / owner_.steps;
            return fault ? 99 : 100;
        }
        bool has_ended() noexcept override {
            if (step_ >= owner_.steps) return true;
            ++step_;
            if (owner_.meanwhile) owner_.meanwhile(step_);
            return false;
        }
        std::unique_ptr<File> finish() override {
            if (fault) throw *fault;
            return std::move(target);
        }

        std::optional<Fault> fault;
        std::unique_ptr<File> target;

      private:
        FakeCabinets& owner_;
        int step_ = 0;
    };

    static std::string first_line(std::string_view entry) {
        return "cabinet of " + std::string(entry) + "\n";
    }
    static std::string bytes_of(File& file) {
        std::string bytes(static_cast<std::size_t>(file.length()), '\0');
        bytes.resize(file.read(0, bytes.data(), bytes.size()));
        return bytes;
    }
};

class FakeImportForm : public ports::ImportForm {
  public:
    void begin(std::string_view caption) override { log.add("begin " + std::string(caption)); }
    void add_line(std::string_view text) override {
        log.add("line " + std::string(text));
        if (cancel_at == text) cancelled = true;
    }
    void workbar(int percent) override { bar = percent; }
    bool is_cancelled() override { return cancelled; }
    void end() override { log.add("end"); }

    CallLog log;
    int bar = 0;
    bool cancelled = false;
    std::string cancel_at = "\n";  // the line with which the user presses "Cancel"
};

}  // namespace tavernook
