#include "platform_services/cs1504_scanner.h"

#include <algorithm>
#include <utility>

#include "basics/code_page.h"
#include "basics/fault.h"
#include "platform_services/serial_ports.h"

namespace tavernook {

namespace {

using cs1504::Command;

Fault failure(const std::string& sentence) {
    return Fault(fault_number::device_io_error, sentence);
}

bool is_answer(cs1504::ReplyFramer::State state) {
    using State = cs1504::ReplyFramer::State;
    return state == State::whole || state == State::refused || state == State::wrong_crc;
}

}  // namespace

i32 Cs1504Scanner::csp2Init(i32 port) noexcept {
    return run([&] {
        line_.close();
        is_listening_ = false;
        unanswered_ = 0;
        port_.clear();
        const std::string wanted = chosen_serial_port(line_.ports(), port);
        line_.open(wanted);
        port_ = wanted;
        return 0;
    });
}

i32 Cs1504Scanner::csp2ReadData() noexcept {
    const i32 count = run([&] {
        packets_.clear();
        begin_session();
        const cs1504::StringLayout layout = {
            .has_type = parameter(cs1504::Parameter::send_code_type),
            .has_time = parameter(cs1504::Parameter::store_time)};
        auto packets = cs1504::packets_of(ask(Command::upload), layout);
        if (!packets) throw failure("The codes of the scanner cannot be read.");
        packets_ = std::move(*packets);
        return static_cast<i32>(packets_.size());
    });
    return count < 0 && cancelled_ && !busy_ ? reading_cancelled : count;
}

i32 Cs1504Scanner::csp2GetPacket(std::span<char> buffer, i32 packet, i32 longest) noexcept {
    if (packet < 0 || static_cast<std::size_t>(packet) >= packets_.size() || longest < 1) return 0;
    const std::string& bytes = packets_[static_cast<std::size_t>(packet)];
    const std::size_t count =
        std::min({bytes.size(), buffer.size(), static_cast<std::size_t>(longest)});
    std::copy_n(bytes.begin(), count, buffer.begin());
    return static_cast<i32>(count);
}

i32 Cs1504Scanner::csp2ClearData() noexcept {
    return run([&] {
        begin_session();
        ask(Command::clear_barcodes);
        return 0;
    });
}

// It goes to sleep by itself when a session has lasted its time.
void Cs1504Scanner::close() noexcept {
    cancel();
    port_.clear();
    const bool is_listening = std::exchange(is_listening_, false) && line_.now() < session_end_;
    if (cs1504::power_down_at_end && is_listening && !busy_) {
        line_.close_with(cs1504::command_bytes(Command::power_down));
    } else {
        line_.close();
    }
}

void Cs1504Scanner::cancel() noexcept {
    if (!busy_) return;
    cancelled_ = true;
    line_.wake();
}

std::vector<std::string> Cs1504Scanner::port_names() noexcept {
    try {
        return line_.ports();
    } catch (...) {
        return {};
    }
}

std::string Cs1504Scanner::trouble() noexcept {
    try {
        return trouble_;
    } catch (...) {
        return {};
    }
}

// What is called from within another call fails and leaves that one's trouble alone.
i32 Cs1504Scanner::run(const std::function<i32()>& call) noexcept {
    if (busy_) return -1;
    busy_ = true;
    cancelled_ = false;
    i32 result = -1;
    try {
        result = call();
        trouble_.clear();
    } catch (Fault& fault) {
        trouble_ = std::move(fault.description);
    } catch (...) {
        trouble_ = "Out of memory.";
    }
    busy_ = false;
    return result;
}

void Cs1504Scanner::begin_session() {
    if (!line_.is_open()) {
        if (!port_.empty()) throw failure("The port " + shown_port() + " has gone.");
        throw failure(trouble_.empty() ? "No port is open." : trouble_);  // that of opening it
    }
    session_end_ = line_.now() + settings_.session;
    ask(Command::interrogate, cs1504::command_bytes(Command::interrogate),
        settings_.first_tries_apart);
    is_listening_ = true;
}

bool Cs1504Scanner::parameter(cs1504::Parameter which) {
    const auto value = cs1504::parameter_in(
        ask(Command::read_parameters, cs1504::read_parameter_bytes(which), settings_.reply_wait),
        which);
    if (!value) throw failure("The settings of the scanner cannot be read.");
    return *value;
}

Cs1504Scanner::Strings Cs1504Scanner::ask(Command command) {
    return ask(command, cs1504::command_bytes(command), settings_.reply_wait);
}

// `patience` is how long one try waits before the next one is made; the last waits its full time.
Cs1504Scanner::Strings Cs1504Scanner::ask(Command command, const std::string& bytes,
                                          Milliseconds patience) {
    wait_for_late_answers();
    line_.discard();
    std::string trouble;
    for (int tries = settings_.tries; tries > 0; --tries) {
        send(bytes);
        Framer reply(command);
        const Framer::State state = hear(reply, tries > 1 ? patience : settings_.reply_wait);
        if (state == Framer::State::whole) return reply.strings();
        trouble = trouble_after(reply, state);
        if (state == Framer::State::refused && !cs1504::is_worth_another_try(reply.first_byte())) {
            break;
        }
        if (reply.has_begun()) wait_until_quiet();
    }
    throw failure(trouble);
}

// Unfinished when nothing more comes.
Cs1504Scanner::Framer::State Cs1504Scanner::hear(Framer& reply, Milliseconds wait) {
    Framer::State state = Framer::State::unfinished;
    while (state == Framer::State::unfinished) {
        const std::string bytes = receive(wait);
        if (bytes.empty()) break;
        state = reply.take(bytes);
        wait = settings_.reply_wait;
    }
    if (is_answer(state)) unanswered_ = std::max(unanswered_ - 1, 0);
    return state;
}

std::string Cs1504Scanner::receive(Milliseconds longest) {
    const Milliseconds left = std::max(session_end_ - line_.now(), Milliseconds(0));
    std::string bytes = line_.receive(std::min(longest, left));
    if (cancelled_) throw failure("It was stopped before the scanner had answered.");
    if (!line_.is_open()) throw failure("The port " + shown_port() + " has gone.");
    if (line_.now() >= session_end_) throw failure("The scanner takes too long.");
    return bytes;
}

void Cs1504Scanner::send(const std::string& bytes) {
    line_.send(bytes);
    last_sent_ = line_.now();
    ++unanswered_;
}

void Cs1504Scanner::wait_for_late_answers() {
    const Milliseconds until = last_sent_ + settings_.reply_wait;
    while (unanswered_ > 0 && line_.now() < until) {
        if (receive(until - line_.now()).empty()) break;
    }
    if (unanswered_ > 0) wait_until_quiet();
    unanswered_ = 0;
}

void Cs1504Scanner::wait_until_quiet() {
    const Milliseconds until = line_.now() + settings_.reply_wait;
    while (line_.now() < until && !receive(settings_.quiet).empty()) {
    }
}

std::string Cs1504Scanner::trouble_after(const Framer& reply, Framer::State state) const {
    if (!reply.has_begun()) return "No scanner answers at " + shown_port() + ".";
    if (state == Framer::State::refused) return "The scanner refuses to answer.";
    return "The answers at " + shown_port() + " are none of a scanner, or come damaged.";
}

std::string Cs1504Scanner::shown_port() const {
    return text_from_utf8(port_);
}

}  // namespace tavernook
