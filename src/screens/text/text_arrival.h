// What data from the clipboard or from a drop becomes in a recipe's text. Everything passes through
// the form that recipes are kept in, so that what is seen is what will be saved. Nothing reaches
// for a file or an address: a page brings only the pictures that it carries, and drawings, which
// refer to files, are no pictures.
#pragma once

#include <QImage>
#include <QString>
#include <optional>

#include "rich_text/rtf_bounds.h"
#include "rich_text/rtf_model.h"

class QFont;
class QMimeData;

namespace tavernook {

// At most one of the three.
struct Arrival {
    // With its looks; its pictures are as large as a text keeps them.
    std::optional<rtf::Content> content = {};
    QString words = {};
    bool has_picture = false;
    QImage picture = {};  // null where it cannot be shown or is too large

    // For the user, where not all came as it was.
    QString notice = {};
};

// `present` is the text that it comes to: both together stay within what is laid out without a
// wait. Too much of looks comes as plain words, too many words not at all.
Arrival arrival_of(const QMimeData& data, const QFont& font, const rtf::Extent& present);

// Whether there is anything in it for a text.
bool has_rich_text(const QMimeData& data);

}  // namespace tavernook
