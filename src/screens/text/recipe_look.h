// How the selected text looks, or the text that would be typed at the caret.
#pragma once

#include <QColor>
#include <QString>
#include <optional>

class QTextEdit;

namespace tavernook {

// What is not the same all over the selection is false or nothing.
struct SelectionLook {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool bullet = false;
    std::optional<Qt::Alignment> alignment;  // left, centre, right or justified
    QString family;                          // empty where fonts differ
    double points = 0;                       // 0 where sizes differ
    std::optional<QRgb> colour;              // nothing where colours differ, or none is given
    bool automatic_colour = false;
};

SelectionLook selection_look(const QTextEdit& text);

// Puts a bullet before every paragraph of the selection, or takes them all away.
void set_bullets(QTextEdit& text, bool wanted);

}  // namespace tavernook
