// A session that records, "open HOST ACCOUNT PASSWORD 21", "directory NAME", "put NAME PATH",
// "close" and "cancel", and fails where a test says so; and the window that publishes, as a record.
// A cancelled session fails with Fault 32755 until it is closed, as the real one.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "basics/fault.h"
#include "fakes/call_log.h"
#include "platform/ftp_export.h"
#include "platform/ftp_session.h"

namespace tavernook {

class FakeFtpSession : public FtpSession {
  public:
    bool is_encrypted(const std::string& server) override {
        return server.starts_with("ftps://") || server.starts_with("sftp://");
    }
    void open(const FtpAccount& account, FtpEvents wanted) override {
        events = std::move(wanted);
        step("open " + account.server + " " + account.name + " " + account.password + " " +
             std::to_string(account.port));
    }
    void change_directory(const std::string& directory) override { step("directory " + directory); }
    void put_file(const std::string& remote_name, const std::string& local_path) override {
        step("put " + remote_name + " " + local_path);
    }
    void close() noexcept override {
        log.add("close");
        events = {};
        cancelled = false;
    }
    void cancel() noexcept override {
        log.add("cancel");
        cancelled = true;
    }

    CallLog log;
    FtpEvents events;
    bool cancelled = false;

    // The operation, as the log spells it or its beginning, and what it throws.
    std::map<std::string, Fault> failures;

    // Called while each operation waits.
    std::function<void(const std::string& operation)> meanwhile;

  private:
    void step(const std::string& operation) {
        log.add(operation);
        if (events.status) events.status("status of " + operation.substr(0, operation.find(' ')));
        if (meanwhile) meanwhile(operation);
        if (cancelled) throw Fault(fault_number::cancel_was_selected);
        for (const auto& [beginning, fault] : failures) {
            if (operation.starts_with(beginning)) throw fault;
        }
    }
};

class FakeFtpExport : public ports::FtpExport {
  public:
    explicit FakeFtpExport(CallLog& calls) : calls_(calls) {}

    void setstyle(i16 style) override { calls_.add("FtpExport setstyle " + std::to_string(style)); }
    void show() override { calls_.add("FtpExport show"); }
    void updatetext(std::string_view text) override {
        calls_.add("FtpExport text " + std::string(text));
        if (on_text) on_text(std::string(text));
    }
    void set_progress(int percent) override {
        calls_.add("FtpExport bar " + std::to_string(percent));
    }
    void enable_close(bool enabled) override {
        calls_.add(enabled ? "FtpExport enable_close" : "FtpExport enable_close not");
    }
    void unload() override { calls_.add("FtpExport unload"); }

    // What the user does while the window repaints.
    std::function<void(const std::string& text)> on_text;

  private:
    CallLog& calls_;
};

}  // namespace tavernook
