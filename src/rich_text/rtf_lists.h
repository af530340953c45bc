// Lists: what stands in front of their entries, the tables that say what a list is, and which
// paragraphs are the entries of one list.
#pragma once

#include <QString>
#include <array>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "rich_text/rtf_model.h"

namespace tavernook::rtf {

bool is_numbered(ListKind kind);

// "7", "g", "VII", without a dot; "?" for Roman numbers from 5000. Empty for bullets.
QString number_text(ListKind kind, int number);

// The number that a marker as "7." or "(g)" shows; nothing where it is no plain number.
std::optional<int> number_in(const QString& marker, ListKind kind);

// The kind of list whose entries have such a text in front.
ListKind list_kind_of_marker(const QString& marker);

// Steps from the margin, from 1.
int list_indent(const ParagraphLook& look);

// What `\listtable` and `\listoverridetable` tell of the lists that paragraphs name with `\ls`.
class ListTable {
  public:
    struct Level {
        ListKind kind = ListKind::none;
        int start = 1;
    };

    // A word inside either table.
    void take(std::string_view word, int parameter);

    // Of a paragraph with `\ls` and `\ilvl`; nothing where the tables do not say.
    std::optional<Level> level(int list, int level) const;

  private:
    static constexpr int levels = 9;
    struct Form {
        int id = 0;
        int levels_told = 0;
        std::array<Level, levels> level;
    };
    struct Override {
        int id = 0;
        int levels_told = 0;
        std::array<int, levels> start = {};  // 0: as the form says
    };

    void take_start(int start);
    void take_kind(int kind);

    std::vector<Form> forms_;
    std::map<int, std::size_t> form_of_id_;
    std::map<int, Override> overrides_;
    Override override_;
    bool in_overrides_ = false;
};

// Gives each paragraph its kind of list and its list. Numbered entries are of the list that has
// just come to the number before, also behind other paragraphs; one whose number no list can show
// loses its list and has the number in its text. A list has at most `most_entries`, as the time for
// each grows with their number; bullets go on in a further list.
inline constexpr int most_entries = 500;
void settle_lists(std::vector<Paragraph>& paragraphs, const ListTable& table);

}  // namespace tavernook::rtf
