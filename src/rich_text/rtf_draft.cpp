#include "rich_text/rtf_draft.h"

#include <utility>

#include "rich_text/rtf_characters.h"

namespace tavernook::rtf {

void Draft::take_text(std::string_view text) {
    if (text.empty()) return;
    switch (state.destination) {
        case Destination::fonts:
            return fonts.take_bytes(text);
        case Destination::colours:
            return colours.take_text(text);
        case Destination::picture:
            return picture.take_hex(text);
        case Destination::body:
        case Destination::list_marker:
            bytes_ += text;
            return;
        case Destination::list_form:
        case Destination::list_table:
        case Destination::skipped:
            return;
    }
}

void Draft::take_binary(std::string_view data) {
    if (state.destination == Destination::picture) {
        picture.bytes.append(data.data(), std::ssize(data));
    }
}

void Draft::add_character(char16_t character) {
    flush_bytes();
    add_text(QString(QChar(character)));
}

void Draft::add_unicode(int code) {
    skip_left = state.unicode_skip;
    if (code < 0) code += 0x10000;
    if (code < 0 || code > 0x10FFFF) return;
    if (code >= 0xF000 && code <= 0xF0FF) {
        // The private range in which pictorial fonts have their signs.
        const char byte = static_cast<char>(code - 0xF000);
        return add_text(decoded_symbols({&byte, 1}, fonts.name(state.look.font)));
    }
    const auto character = static_cast<char32_t>(code);
    add_text(code > 0xFFFF ? QString::fromUcs4(&character, 1)
                           : QString(QChar(static_cast<char16_t>(code))));
}

void Draft::flush_bytes() {
    if (bytes_.empty()) return;
    add_text(fonts.text_of(bytes_, state.look.font));
    bytes_.clear();
}

void Draft::add_text(QString text) {
    text = without_structure_marks(std::move(text));
    if (state.destination == Destination::fonts) return fonts.add_to_name(text);
    if (text.isEmpty() || state.look.hidden) return;
    if (state.destination == Destination::list_marker) {
        paragraphs.add_to_marker(text);
    } else if (state.destination == Destination::body) {
        paragraphs.add_run({state.look, std::move(text), -1}, state.paragraph);
    }
}

void Draft::leave_group(const GroupState& outer) {
    flush_bytes();
    const Destination ended = std::exchange(state, outer).destination;
    if (ended == Destination::fonts) fonts.finish_font();
    if (ended == outer.destination) return;
    if (ended == Destination::picture) add_picture();
    if (ended == Destination::list_form) {
        state.paragraph.list = list_form;
        state.paragraph.list_start = list_form_start;
    }
}

void Draft::add_picture() {
    const PictureGroup ended = picture;
    picture.bytes.clear();
    if (state.destination != Destination::body || state.look.hidden) return;
    if (pixels_ >= most_picture_pixels) return;
    Picture drawn = ended.drawn();
    if (drawn.image.isNull()) return;
    pixels_ += static_cast<long long>(drawn.image.width()) * drawn.image.height();
    pictures_.push_back(std::move(drawn));
    paragraphs.add_run({state.look, {}, static_cast<int>(pictures_.size()) - 1}, state.paragraph);
}

Content Draft::finished() {
    std::vector<Paragraph> finished = paragraphs.finished();
    settle_lists(finished, std::exchange(lists, {}));
    return {fonts.taken(), colours.taken(), std::move(finished), std::exchange(pictures_, {})};
}

}  // namespace tavernook::rtf
