#include "rich_text/rtf_paragraphs.h"

#include <algorithm>
#include <utility>

#include "basics/fault.h"
#include "rich_text/rtf_bounds.h"

namespace tavernook::rtf {

Paragraph& ParagraphBuilder::current() {
    if (!open_) {
        if (paragraphs_.size() >= most_paragraphs) throw Fault(fault_number::bad_record_number);
        paragraphs_.emplace_back();
        open_ = true;
    }
    return paragraphs_.back();
}

void ParagraphBuilder::add_run(Run run, const ParagraphLook& look) {
    if (look.table_depth > std::max(table_depth_, 1)) begin_inner_table();
    table_depth_ = look.table_depth;
    after_inner_table_ = false;
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
    paragraph.marker = std::exchange(marker_, {}).trimmed();
    open_ = false;
}

// On a line of its own.
void ParagraphBuilder::begin_inner_table() {
    cells_ended_ = 0;
    in_row_ = false;
    if (open_) end_paragraph(last_look_);
}

void ParagraphBuilder::end_cell(bool of_inner_table) {
    // The cell that held an inner table ends with it.
    if (after_inner_table_ && !of_inner_table) return;
    in_row_ = true;
    cells_ended_ = std::min(cells_ended_ + 1, 1000);
}

void ParagraphBuilder::end_row(const ParagraphLook& look, bool of_inner_table) {
    cells_ended_ = 0;
    if (in_row_ || open_) end_paragraph(look);
    in_row_ = false;
    after_inner_table_ = of_inner_table;
}

std::vector<Paragraph> ParagraphBuilder::finished() {
    if (open_) end_paragraph(last_look_);
    if (paragraphs_.empty()) paragraphs_.emplace_back();
    return std::exchange(paragraphs_, {});
}

}  // namespace tavernook::rtf
