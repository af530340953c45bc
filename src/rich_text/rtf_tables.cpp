#include "rich_text/rtf_tables.h"

#include <algorithm>
#include <utility>

#include "rich_text/rtf_characters.h"
#include "rich_text/rtf_tokens.h"

namespace tavernook::rtf {

namespace {

constexpr std::size_t most_colours = 200'000;

}  // namespace

void FontTable::begin_font(int number) {
    finish_font();
    font_ = number;
}

void FontTable::set_character_set(int character_set) {
    fonts_[font_].code_page = code_page_of_character_set(character_set);
    fonts_[font_].symbols = character_set == 2;
}

void FontTable::set_code_page(int code_page) {
    fonts_[font_].code_page = code_page;
}

void FontTable::take_bytes(std::string_view bytes) {
    for (const char byte : bytes) {
        if (byte == ';') {
            finish_font();
        } else {
            bytes_ += byte;
        }
    }
}

void FontTable::add_to_name(const QString& text) {
    flush_bytes();
    name_ += text;
}

void FontTable::flush_bytes() {
    name_ += decoded(bytes_, code_page(font_));
    bytes_.clear();
}

void FontTable::finish_font() {
    flush_bytes();
    if (name_.isEmpty()) return;
    fonts_[font_].name = without_structure_marks(std::move(name_)).simplified();
    name_.clear();
}

QString FontTable::name(int font) const {
    const auto found = fonts_.find(font);
    return found == fonts_.end() ? QString() : found->second.name;
}

QString FontTable::text_of(std::string_view bytes, int font) const {
    const auto found = fonts_.find(font);
    const bool symbols = found != fonts_.end() && found->second.symbols;
    return symbols ? decoded_symbols(bytes, found->second.name) : decoded(bytes, code_page(font));
}

int FontTable::code_page(int font) const {
    const auto found = fonts_.find(font);
    const bool known = found != fonts_.end() && found->second.code_page != 0;
    return known ? found->second.code_page : document_code_page_;
}

void ColourTable::set_part(Part part, int value) {
    (colour_.*part)(std::clamp(value, 0, 255));
    given_ = true;
}

void ColourTable::take_text(std::string_view text) {
    const auto ended = std::count(text.begin(), text.end(), ';');
    for (auto i = ended; i > 0 && colours_.size() < most_colours; --i) {
        colours_.push_back(given_ ? std::optional(colour_) : std::nullopt);
        given_ = false;
        colour_ = Qt::black;
    }
}

void PictureGroup::take_hex(std::string_view text) {
    for (const char character : text) {
        const int half = hex_digit(character);
        if (half < 0) continue;
        if (digit < 0) {
            digit = half;
        } else {
            bytes += static_cast<char>(digit * 16 + half);
            digit = -1;
        }
    }
}

Picture PictureGroup::drawn() const {
    constexpr int widest = 1440 * 100;
    const auto scaled = [](int goal, int percent) {
        return static_cast<int>(std::clamp(1LL * goal * percent / 100, 0LL, 1LL * widest));
    };
    return {decoded_picture(kind, bytes), scaled(width_twips, scale_x),
            scaled(height_twips, scale_y)};
}

}  // namespace tavernook::rtf
