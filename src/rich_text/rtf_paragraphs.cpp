#include "rich_text/rtf_paragraphs.h"

#include <algorithm>
#include <utility>

#include "basics/fault.h"

namespace tavernook::rtf {

namespace {

constexpr std::size_t most_paragraphs = 200'000;
constexpr std::size_t most_runs = 500'000;

bool is_roman(const QString& number) {
    return std::all_of(number.begin(), number.end(), [](QChar letter) {
        return QStringLiteral("ivxlcdm").contains(letter.toLower());
    });
}

}  // namespace

Paragraph& ParagraphBuilder::current() {
    if (!open_) {
        if (paragraphs_.size() >= most_paragraphs) throw Fault(fault_number::bad_record_number);
        paragraphs_.emplace_back();
        open_ = true;
    }
    return paragraphs_.back();
}

void ParagraphBuilder::add_run(Run run, const ParagraphLook& look) {
    Paragraph& paragraph = current();
    last_look_ = look;
    if (cells_ended_ > 0) {
        const QString tabs(std::exchange(cells_ended_, 0), u'\t');
        add_run({run.look, tabs, -1}, look);
    }
    const bool joins = !paragraph.runs.empty() && run.picture < 0 &&
                       paragraph.runs.back().picture < 0 && paragraph.runs.back().look == run.look;
    if (joins) {
        paragraph.runs.back().text += run.text;
        return;
    }
    if (++runs_ > most_runs) throw Fault(fault_number::bad_record_number);
    paragraph.runs.push_back(std::move(run));
}

void ParagraphBuilder::end_paragraph(const ParagraphLook& look) {
    Paragraph& paragraph = current();
    paragraph.look = look;
    const QString marker = std::exchange(marker_, {}).trimmed();
    // The list's form says no more than "bullet"; the bullet itself says which.
    const bool marker_decides =
        paragraph.look.list == ListKind::none || paragraph.look.list == ListKind::disc;
    if (marker_decides && !marker.isEmpty()) paragraph.look.list = list_kind_of_marker(marker);
    open_ = false;
}

void ParagraphBuilder::end_cell() {
    in_row_ = true;
    cells_ended_ = std::min(cells_ended_ + 1, 1000);
}

void ParagraphBuilder::end_row(const ParagraphLook& look) {
    cells_ended_ = 0;
    if (in_row_ || open_) end_paragraph(look);
    in_row_ = false;
}

std::vector<Paragraph> ParagraphBuilder::finished() {
    if (open_) end_paragraph(last_look_);
    if (paragraphs_.empty()) paragraphs_.emplace_back();
    return std::exchange(paragraphs_, {});
}

ListKind list_kind_of_marker(const QString& marker) {
    QString number;
    for (const QChar character : marker) {
        if (character.isLetterOrNumber()) number += character;
    }
    if (number.isEmpty()) {
        if (marker == QChar(u'\u25CB') || marker == QChar(u'\u25E6')) return ListKind::circle;
        const bool square = marker == QChar(u'\u25AA') || marker == QChar(u'\u25A0');
        return square ? ListKind::square : ListKind::disc;
    }
    if (number.front().isDigit()) return ListKind::decimal;
    if (marker == QStringLiteral("o")) return ListKind::circle;
    const bool upper = number.front().isUpper();
    const bool counts_as_roman =
        is_roman(number) && (number.size() > 1 || number.toLower() == u'i');
    if (counts_as_roman) return upper ? ListKind::upper_roman : ListKind::lower_roman;
    return upper ? ListKind::upper_letter : ListKind::lower_letter;
}

}  // namespace tavernook::rtf
