// What has been read so far. The parser moves it from group to group and gives it the text; the
// control words change its state, its tables and its paragraphs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "rich_text/rtf_lists.h"
#include "rich_text/rtf_model.h"
#include "rich_text/rtf_paragraphs.h"
#include "rich_text/rtf_tables.h"

namespace tavernook::rtf {

// What becomes of the text in a group.
enum class Destination {
    body,
    fonts,
    colours,
    picture,
    list_marker,
    list_form,
    list_table,
    skipped
};

// What a group inherits and gives back at its end.
struct GroupState {
    Destination destination = Destination::body;
    CharacterLook look;
    ParagraphLook paragraph;
    int unicode_skip = 1;
};

// Bytes of text wait until the next word, character or end of a group, so that the halves of
// double-byte characters stay together; whoever changes the state calls `flush_bytes` before.
// Text that goes beyond the bounds of a document is Fault 63.
class Draft {
  public:
    GroupState state;
    FontTable fonts;
    ColourTable colours;
    ListTable lists;
    PictureGroup picture;
    ParagraphBuilder paragraphs;
    // The font that `\plain` goes back to.
    int default_font = 0;
    // What the last `\pn` group says.
    ListKind list_form = ListKind::none;
    int list_form_start = 1;
    // Plain characters to pass over: they stand behind a Unicode one for readers without Unicode.
    int skip_left = 0;

    // Goes where the group's destination says.
    void take_text(std::string_view text);
    void take_binary(std::string_view data);
    void add_character(char16_t character);
    // Negative codes are those above 0x7FFF; what is no character is left out.
    void add_unicode(int code);
    void flush_bytes();

    // The group around has the state `outer`.
    void leave_group(const GroupState& outer);

    // Leaves the draft empty.
    Content finished();

  private:
    void add_text(QString text);
    void add_picture();

    std::string bytes_;
    std::vector<Picture> pictures_;
    long long pixels_ = 0;
};

}  // namespace tavernook::rtf
