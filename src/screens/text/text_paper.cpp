#include "screens/text/text_paper.h"

#include <utility>

namespace tavernook {

namespace {

QColor mixed(const QColor& one, const QColor& other) {
    return QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
                  (one.blue() + other.blue()) / 2);
}

}  // namespace

QPalette paper(const QPalette& around) {
    QPalette result;
    QColor base = around.color(QPalette::Active, QPalette::Base);
    QColor ink = around.color(QPalette::Active, QPalette::Text);
    if (base.lightness() < ink.lightness()) std::swap(base, ink);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        result.setColor(group, QPalette::Base, base);
        result.setColor(group, QPalette::Text, ink);
        result.setColor(group, QPalette::PlaceholderText, mixed(ink, mixed(ink, base)));
    }
    // Without a recipe there is no paper.
    const auto none = QPalette::Disabled;
    result.setColor(none, QPalette::Base, around.color(QPalette::Active, QPalette::Window));
    result.setColor(none, QPalette::Text, around.color(none, QPalette::WindowText));
    const QColor hint = around.color(QPalette::Active, QPalette::WindowText);
    result.setColor(none, QPalette::PlaceholderText, hint);
    return result;
}

}  // namespace tavernook
