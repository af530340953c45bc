#include "fakes/fake_file_dialogs.h"

#include <utility>

#include "basics/fault.h"

namespace tavernook {

namespace {

using Kind = ExpectedFileDialog::Kind;

std::string dialog_name(Kind kind, const std::string& title) {
    return (kind == Kind::open ? "open dialog \"" : "save dialog \"") + title + "\"";
}

std::string differences(const ExpectedFileDialog& expected, Kind kind,
                        const FileDialogRequest& request) {
    if (expected.kind != kind) return "\n  expected " + expected.name();
    return difference("title", expected.title, request.title) +
           difference("filter", expected.filter_text.value_or(request.filter), request.filter) +
           difference("initial file", expected.initial_path.value_or(request.initial_file),
                      request.initial_file);
}

ExpectedFileDialog expectation(Kind kind, std::string title, std::optional<std::string> path,
                               Origin origin) {
    return {kind, std::move(title), std::move(path), origin, {}, {}, {}};
}

}  // namespace

std::string ExpectedFileDialog::name() const {
    return dialog_name(kind, title);
}

ExpectedFileDialog& FakeFileDialogs::expect_open(std::string title, std::optional<std::string> path,
                                                 const char* file, int line) {
    return script_.add(expectation(Kind::open, std::move(title), std::move(path), {file, line}));
}

ExpectedFileDialog& FakeFileDialogs::expect_save(std::string title, std::optional<std::string> path,
                                                 const char* file, int line) {
    return script_.add(expectation(Kind::save, std::move(title), std::move(path), {file, line}));
}

std::string FakeFileDialogs::open_file(const FileDialogRequest& request) {
    return answer(Kind::open, request);
}

std::string FakeFileDialogs::save_file(const FileDialogRequest& request) {
    return answer(Kind::save, request);
}

std::string FakeFileDialogs::answer(Kind kind, const FileDialogRequest& request) {
    log.add(request.title);
    const std::string shown = dialog_name(kind, request.title);
    const std::optional<ExpectedFileDialog> expected = script_.take(shown);
    if (!expected) throw Fault(fault_number::cancel_was_selected);
    const std::string found = differences(*expected, kind, request);
    if (!found.empty()) {
        ADD_FAILURE_AT(expected->origin.file, expected->origin.line)
            << "Differs: " << shown << found;
    }
    if (expected->while_open) expected->while_open();
    if (expected->kind != kind || !expected->path) throw Fault(fault_number::cancel_was_selected);
    return *expected->path;
}

}  // namespace tavernook
