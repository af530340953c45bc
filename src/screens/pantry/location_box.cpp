#include "screens/pantry/location_box.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "screens/parts/screen.h"
#include "screens/parts/select_on_entry.h"

namespace tavernook {

namespace {

constexpr QLatin1Char comma(',');

void say_refused() {
    say(LocationBox::tr("A location has no comma: commas separate the three of them."));
}

// How many letters both begin with.
qsizetype same_front(QStringView one, QStringView other) {
    return std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin();
}

// How many both end with, behind that.
qsizetype same_back(QStringView one, QStringView other, qsizetype front) {
    const qsizetype most = std::min(one.size(), other.size()) - front;
    qsizetype same = 0;
    while (same < most && one[one.size() - 1 - same] == other[other.size() - 1 - same]) ++same;
    return same;
}

}  // namespace

LocationBox::LocationBox(QWidget* parent) : QLineEdit(parent) {
    select_on_entry(*this);
    connect(this, &QLineEdit::textEdited, this, &LocationBox::leave_out_commas);
    connect(this, &QLineEdit::textChanged, this, [this] {
        before_ = text();
        if (!std::exchange(is_edit_, false)) as_shown_ = before_;
    });
}

// By itself it is refused before it is there, so that Undo has nothing to take back.
void LocationBox::keyPressEvent(QKeyEvent* event) {
    if (event->text() == comma) return say_refused();
    QLineEdit::keyPressEvent(event);
}

void LocationBox::leave_out_commas() {
    is_edit_ = true;
    const QString now = text();
    if (now == as_shown_) return;
    const qsizetype front = same_front(now, before_);
    const qsizetype back = same_back(now, before_, front);
    QString added = now.mid(front, now.size() - front - back);
    if (!added.contains(comma)) return;
    added.remove(comma);
    setText(now.left(front) + added + now.right(back));
    setCursorPosition(static_cast<int>(front + added.size()));
    say_refused();
}

}  // namespace tavernook
