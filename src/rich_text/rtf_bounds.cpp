#include "rich_text/rtf_bounds.h"

#include <QTextBlock>
#include <QTextFragment>
#include <algorithm>

#include "basics/fault.h"

namespace tavernook::rtf {

namespace {

[[noreturn]] void refuse(const char* sentence) {
    throw Fault(fault_number::overflow, sentence);
}

std::size_t runs_of(const QTextBlock& paragraph) {
    std::size_t runs = 0;
    for (auto part = paragraph.begin(); !part.atEnd(); ++part) {
        const QTextFragment piece = part.fragment();
        // Neighbouring pictures of one look are one piece.
        const bool has_pictures = piece.charFormat().isImageFormat();
        runs += has_pictures ? static_cast<std::size_t>(piece.length()) : 1;
    }
    return runs;
}

// Characters of East Asian scripts have a place for a line to end behind each.
bool ends_word(QChar character) {
    return character.isSpace() ? character != QChar::Nbsp : character.unicode() >= 0x2E80;
}

class ParagraphMeter {
  public:
    void take(QStringView text) {
        characters_ += static_cast<std::size_t>(text.size());
        for (const QChar character : text) {
            word_ = ends_word(character) ? 0 : word_ + 1;
            longest_word_ = std::max(longest_word_, word_);
        }
    }
    Extent extent(std::size_t runs) const {
        return {1, runs, characters_, characters_, longest_word_, runs};
    }

  private:
    std::size_t characters_ = 0;
    std::size_t word_ = 0;
    std::size_t longest_word_ = 0;
};

bool ends_paragraph(QChar character) {
    return character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator;
}

}  // namespace

Extent Extent::operator+(const Extent& other) const {
    return {paragraphs + other.paragraphs,
            runs + other.runs,
            characters + other.characters,
            std::max(longest_paragraph, other.longest_paragraph),
            std::max(longest_word, other.longest_word),
            std::max(most_runs_of_paragraph, other.most_runs_of_paragraph)};
}

Extent extent_of(const Content& content) {
    Extent extent;
    for (const Paragraph& paragraph : content.paragraphs) {
        ParagraphMeter meter;
        for (const Run& run : paragraph.runs) {
            meter.take(run.picture < 0 ? QStringView(run.text) : QStringView(u"\uFFFC"));
        }
        extent = extent + meter.extent(paragraph.runs.size());
    }
    return extent;
}

Extent extent_of(const QTextBlock& paragraph) {
    ParagraphMeter meter;
    meter.take(paragraph.text());
    return meter.extent(runs_of(paragraph));
}

Extent extent_of(const QTextDocument& document) {
    Extent extent;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        extent = extent + extent_of(block);
    }
    return extent;
}

Extent extent_of(const QString& plain_text) {
    Extent extent;
    const QStringView text(plain_text);
    qsizetype start = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !ends_paragraph(text[i])) continue;
        ParagraphMeter meter;
        meter.take(text.mid(start, i - start));
        extent = extent + meter.extent(1);
        start = i + 1;
    }
    return extent;
}

bool is_light(const Extent& extent) {
    return extent.paragraphs <= most_light_paragraphs && extent.runs <= most_light_runs &&
           extent.characters <= most_light_characters &&
           extent.longest_paragraph <= longest_light_paragraph &&
           extent.longest_word <= longest_light_word &&
           extent.most_runs_of_paragraph <= most_runs_of_light_paragraph;
}

void require_readable(const Extent& extent) {
    if (extent.paragraphs > most_paragraphs) {
        refuse("The text has too many paragraphs for a recipe.  Take some out.");
    }
    if (extent.runs > most_runs) {
        refuse("The text changes its look too often for a recipe.  Take some of it out.");
    }
}

QString plain_text(const Content& content) {
    const auto most = static_cast<qsizetype>(most_light_characters);
    const std::size_t lines = std::min(content.paragraphs.size(), most_light_paragraphs);
    QString text;
    for (std::size_t i = 0; i < lines && text.size() < most; ++i) {
        if (i > 0) text += u'\n';
        for (const Run& run : content.paragraphs[i].runs) text += run.text;
    }
    return text.left(most);
}

QString with_short_paragraphs(const QString& plain_text) {
    QString text;
    text.reserve(plain_text.size());
    std::size_t line = 0;
    std::size_t word = 0;
    qsizetype behind_blank = 0;  // of the line; 0 where it has none
    for (const QChar character : plain_text) {
        const std::size_t needed = character.isHighSurrogate() ? 2 : 1;
        const bool is_line_full = line + needed > longest_light_paragraph;
        if (ends_paragraph(character)) {
            line = word = 0;
            behind_blank = 0;
        } else if (is_line_full && behind_blank > 0) {
            text.insert(behind_blank, u'\n');
            line = static_cast<std::size_t>(text.size() - behind_blank - 1);
            behind_blank = 0;
        } else if (is_line_full || word + needed > longest_light_word) {
            text += u'\n';
            line = word = 0;
            behind_blank = 0;
        }
        text += character;
        if (ends_paragraph(character)) continue;
        ++line;
        word = ends_word(character) ? 0 : word + 1;
        if (character == u' ') behind_blank = text.size();
    }
    return text;
}

}  // namespace tavernook::rtf
