// The paragraphs of a text, built up from its runs.
#pragma once

#include <QString>
#include <cstddef>
#include <vector>

#include "rich_text/rtf_model.h"

namespace tavernook::rtf {

// A run opens a paragraph where none stands open; a paragraph has the look that holds at its end.
// Rows of tables become paragraphs with a tab between the cells, those of an inner table too; what
// follows it in the outer row begins anew. Too many runs or paragraphs are Fault 63.
class ParagraphBuilder {
  public:
    // `look` is the paragraph's if the text breaks off without a mark. Joins the run to the one
    // before if they look the same.
    void add_run(Run run, const ParagraphLook& look);
    void end_paragraph(const ParagraphLook& look);
    void end_cell(bool of_inner_table);
    void end_row(const ParagraphLook& look, bool of_inner_table);

    // The text in front of a list's entry, for the paragraph that ends next.
    void clear_marker() { marker_.clear(); }
    void add_to_marker(const QString& text) { marker_ += text.left(longest_marker); }

    // At least one paragraph; leaves none.
    std::vector<Paragraph> finished();

  private:
    static constexpr int longest_marker = 32;

    Paragraph& current();
    void begin_inner_table();

    std::vector<Paragraph> paragraphs_;
    bool open_ = false;
    ParagraphLook last_look_;
    std::size_t runs_ = 0;
    QString marker_;
    int cells_ended_ = 0;
    bool in_row_ = false;
    int table_depth_ = 0;
    bool after_inner_table_ = false;
};

}  // namespace tavernook::rtf
