#include "screens/parts/list_font.h"

#include <QAbstractItemView>
#include <QApplication>
#include <algorithm>

#include "core/project_data.h"

namespace tavernook {

namespace {

constexpr const char* follows = "follows_font_size";
constexpr i16 largest = 72;

void set_points(QAbstractItemView& list, i16 points) {
    QFont font = QApplication::font(&list);
    if (points > 0) font.setPointSize(std::min(points, largest));
    list.setFont(font);
    // Rows of one height are measured once, so the list is laid out anew.
    list.doItemsLayout();
}

}  // namespace

void follow_font_size(QAbstractItemView& list) {
    list.setProperty(follows, true);
    set_points(list, font_size);
}

void apply_font_size(i16 points) {
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* list = qobject_cast<QAbstractItemView*>(widget);
        if (list != nullptr && list->property(follows).toBool()) set_points(*list, points);
    }
}

}  // namespace tavernook
