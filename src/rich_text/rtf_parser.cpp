#include "rich_text/rtf_parser.h"

#include <algorithm>

#include "basics/fault.h"
#include "rich_text/rtf_characters.h"

namespace tavernook::rtf {

namespace {

constexpr std::size_t deepest_group = 200;
constexpr std::size_t most_paragraphs = 200'000;
constexpr std::size_t most_runs = 500'000;

[[noreturn]] void damaged() {
    throw Fault(fault_number::bad_record_number);
}

}  // namespace

Content Parser::run() {
    for (;;) {
        const Token token = tokens_.next();
        if (token.kind == TokenKind::end) damaged();
        take(token);
        if (groups_.empty()) break;
    }
    if (open_paragraph_) settle_paragraph(last_look_);
    if (content_.paragraphs.empty()) content_.paragraphs.emplace_back();
    return std::move(content_);
}

void Parser::take(const Token& token) {
    if (take_skipped(token)) return;
    const bool star_before = after_star_;
    after_star_ = false;
    switch (token.kind) {
        case TokenKind::group_start:
            return open_group();
        case TokenKind::group_end:
            return close_group();
        case TokenKind::word:
            after_star_ = star_before;
            return take_word(token);
        case TokenKind::symbol:
            return take_symbol(token.text.front());
        case TokenKind::hex_byte:
            return take_byte(token.byte);
        case TokenKind::text:
            return take_text(token.text);
        case TokenKind::binary:
            return take_binary(token.text);
        case TokenKind::end:
            return;
    }
}

// The plain characters that stand behind a Unicode one for readers without Unicode.
bool Parser::take_skipped(const Token& token) {
    if (skip_left_ == 0) return false;
    if (token.kind == TokenKind::group_start || token.kind == TokenKind::group_end) {
        skip_left_ = 0;
        return false;
    }
    if (token.kind != TokenKind::text) {
        --skip_left_;
        return true;
    }
    const auto skipped = std::min(token.text.size(), static_cast<std::size_t>(skip_left_));
    skip_left_ -= static_cast<int>(skipped);
    take_text(token.text.substr(skipped));
    return true;
}

void Parser::open_group() {
    flush_bytes();
    if (groups_.size() >= deepest_group) damaged();
    groups_.push_back(state_);
}

void Parser::close_group() {
    flush_bytes();
    if (groups_.empty()) damaged();
    const Destination ended = state_.destination;
    const bool is_end = groups_.back().destination != ended;
    state_ = groups_.back();
    groups_.pop_back();
    if (ended == Destination::fonts) finish_font();
    if (!is_end) return;
    if (ended == Destination::picture) finish_picture();
    if (ended == Destination::list_form) finish_list_form();
}

void Parser::take_text(std::string_view text) {
    if (text.empty()) return;
    switch (state_.destination) {
        case Destination::fonts:
            return take_font_text(text);
        case Destination::colours:
            return take_colour_text(text);
        case Destination::picture:
            return take_picture_text(text);
        case Destination::body:
        case Destination::list_marker:
            bytes_ += text;
            return;
        case Destination::list_form:
        case Destination::skipped:
            return;
    }
}

void Parser::take_byte(char byte) {
    take_text(std::string_view(&byte, 1));
}

void Parser::take_binary(std::string_view data) {
    if (state_.destination == Destination::picture) {
        picture_bytes_.append(data.data(), std::ssize(data));
    }
}

void Parser::take_font_text(std::string_view text) {
    for (const char byte : text) {
        if (byte == ';') {
            finish_font();
        } else {
            font_bytes_ += byte;
        }
    }
}

void Parser::flush_font_bytes() {
    const auto font = content_.fonts.find(font_);
    const bool known = font != content_.fonts.end() && font->second.code_page != 0;
    font_name_ += decoded(font_bytes_, known ? font->second.code_page : document_code_page_);
    font_bytes_.clear();
}

void Parser::finish_font() {
    flush_font_bytes();
    if (font_name_.isEmpty()) return;
    content_.fonts[font_].name = without_structure_marks(std::move(font_name_)).simplified();
    font_name_.clear();
}

void Parser::take_colour_text(std::string_view text) {
    const auto ended = std::count(text.begin(), text.end(), ';');
    for (auto i = ended; i > 0 && content_.colours.size() < most_paragraphs; --i) {
        content_.colours.push_back(colour_given_ ? std::optional(colour_) : std::nullopt);
        colour_given_ = false;
        colour_ = Qt::black;
    }
}

void Parser::take_picture_text(std::string_view text) {
    for (const char character : text) {
        const int digit = hex_digit(character);
        if (digit < 0) continue;
        if (picture_digit_ < 0) {
            picture_digit_ = digit;
        } else {
            picture_bytes_ += static_cast<char>(picture_digit_ * 16 + digit);
            picture_digit_ = -1;
        }
    }
}

void Parser::finish_picture() {
    const QByteArray bytes = std::exchange(picture_bytes_, {});
    if (state_.destination != Destination::body || state_.look.hidden) return;
    if (pixels_ >= most_picture_pixels) return;
    Picture picture{decoded_picture(picture_kind_, bytes), 0, 0};
    if (picture.image.isNull()) return;
    pixels_ += static_cast<long long>(picture.image.width()) * picture.image.height();
    constexpr int widest = 1440 * 100;
    const auto scaled = [](int goal, int percent) {
        return static_cast<int>(std::clamp(1LL * goal * percent / 100, 0LL, 1LL * widest));
    };
    picture.width_twips = scaled(picture_width_, picture_scale_x_);
    picture.height_twips = scaled(picture_height_, picture_scale_y_);
    content_.pictures.push_back(std::move(picture));
    add_run({state_.look, {}, static_cast<int>(content_.pictures.size()) - 1});
}

void Parser::finish_list_form() {
    state_.paragraph.list = form_;
}

int Parser::code_page() const {
    const auto font = content_.fonts.find(state_.look.font);
    const bool known = font != content_.fonts.end() && font->second.code_page != 0;
    return known ? font->second.code_page : document_code_page_;
}

void Parser::flush_bytes() {
    if (bytes_.empty()) return;
    const auto font = content_.fonts.find(state_.look.font);
    const bool symbols = font != content_.fonts.end() && font->second.symbols;
    add_text(symbols ? decoded_symbols(bytes_, font->second.name) : decoded(bytes_, code_page()));
    bytes_.clear();
}

void Parser::add_character(char16_t character) {
    flush_bytes();
    add_text(QString(QChar(character)));
}

void Parser::add_text(QString text) {
    text = without_structure_marks(std::move(text));
    if (state_.destination == Destination::fonts) {
        flush_font_bytes();
        font_name_ += text;
        return;
    }
    if (text.isEmpty() || state_.look.hidden) return;
    if (state_.destination == Destination::list_marker) {
        marker_ += text.left(32);
    } else if (state_.destination == Destination::body) {
        add_run({state_.look, std::move(text), -1});
    }
}

Paragraph& Parser::current() {
    if (!open_paragraph_) {
        if (content_.paragraphs.size() >= most_paragraphs) damaged();
        content_.paragraphs.emplace_back();
        open_paragraph_ = true;
    }
    return content_.paragraphs.back();
}

void Parser::add_run(Run run) {
    Paragraph& paragraph = current();
    last_look_ = state_.paragraph;
    if (cells_ended_ > 0) {
        const QString tabs(std::exchange(cells_ended_, 0), u'\t');
        add_run({run.look, tabs, -1});
    }
    const bool joins = !paragraph.runs.empty() && run.picture < 0 &&
                       paragraph.runs.back().picture < 0 && paragraph.runs.back().look == run.look;
    if (joins) {
        paragraph.runs.back().text += run.text;
        return;
    }
    if (++runs_ > most_runs) damaged();
    paragraph.runs.push_back(std::move(run));
}

void Parser::settle_paragraph(const ParagraphLook& look) {
    Paragraph& paragraph = current();
    paragraph.look = look;
    const QString marker = std::exchange(marker_, {}).trimmed();
    // The list's form says no more than "bullet"; the bullet itself says which.
    const bool marker_decides =
        paragraph.look.list == ListKind::none || paragraph.look.list == ListKind::disc;
    if (marker_decides && !marker.isEmpty()) paragraph.look.list = list_kind_of_marker(marker);
    open_paragraph_ = false;
}

void Parser::end_paragraph() {
    settle_paragraph(state_.paragraph);
}

void Parser::end_cell() {
    in_row_ = true;
    cells_ended_ = std::min(cells_ended_ + 1, 1000);
}

void Parser::end_row() {
    cells_ended_ = 0;
    if (in_row_ || open_paragraph_) end_paragraph();
    in_row_ = false;
}

}  // namespace tavernook::rtf
