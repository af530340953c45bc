// How much a rich text may hold: to be read at all, and to be laid out without a wait.
#pragma once

#include <QTextDocument>
#include <cstddef>

#include "rich_text/rtf_model.h"

namespace tavernook::rtf {

// What the reader takes; more is Fault 63.
inline constexpr std::size_t largest_input = 128u << 20;  // bytes
inline constexpr std::size_t most_paragraphs = 200'000;
inline constexpr std::size_t most_runs = 500'000;

// What is laid out with its looks: the time for a word grows with the square of its length, that
// for a paragraph with the square of its runs.
inline constexpr std::size_t most_light_paragraphs = 20'000;
inline constexpr std::size_t most_light_runs = 20'000;
inline constexpr std::size_t most_light_characters = 1'000'000;
inline constexpr std::size_t longest_light_paragraph = 20'000;  // characters
inline constexpr std::size_t longest_light_word = 2'000;        // characters
inline constexpr std::size_t most_runs_of_light_paragraph = 1'000;

// A picture is a run of one character.
struct Extent {
    std::size_t paragraphs = 0;
    std::size_t runs = 0;
    std::size_t characters = 0;
    std::size_t longest_paragraph = 0;  // characters
    std::size_t longest_word = 0;       // characters without a place for a line to end
    std::size_t most_runs_of_paragraph = 0;

    // Of both, one behind the other.
    Extent operator+(const Extent& other) const;
};

Extent extent_of(const Content& content);
Extent extent_of(const QTextDocument& document);
Extent extent_of(const QTextBlock& paragraph);
Extent extent_of(const QString& plain_text);

bool is_light(const Extent& extent);

// Fault 6, with a sentence for the user, for a text that the reader would refuse.
void require_readable(const Extent& extent);

// The words alone, a line for each paragraph; pictures are left out. No more than a light text has.
QString plain_text(const Content& content);

// With line ends where a line is longer than a light paragraph, behind a blank where there is one,
// and where a word is longer than a light one.
QString with_short_paragraphs(const QString& plain_text);

}  // namespace tavernook::rtf
