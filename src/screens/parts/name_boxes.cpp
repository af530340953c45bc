#include "screens/parts/name_boxes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <memory>

#include "screens/parts/list_parts.h"

namespace tavernook {

namespace {

// The box does not know of it: a box that has a completer takes the capitals over from its list.
class NameCompleter : public QCompleter {
  public:
    explicit NameCompleter(QComboBox& box) : QCompleter(box.model(), &box), box_(box) {
        setWidget(&box);
        setCompletionMode(QCompleter::PopupCompletion);
        setCaseSensitivity(Qt::CaseInsensitive);
        setFilterMode(Qt::MatchContains);
        connect(box.lineEdit(), &QLineEdit::textEdited, this, &NameCompleter::offer);
        const auto show = [this](const QString& name) { show_name(box_, name); };
        connect(this, qOverload<const QString&>(&QCompleter::highlighted), this, show);
        connect(this, qOverload<const QString&>(&QCompleter::activated), this, show);
    }

  protected:
    // Its list gets the keys as long as it is open.
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool is_key = event->type() == QEvent::KeyPress && watched != &box_;
        if (is_key && take_key(*static_cast<QKeyEvent*>(event))) return true;
        const bool is_press = event->type() == QEvent::MouseButtonPress && watched == popup();
        const QPoint place =
            is_press ? static_cast<QMouseEvent*>(event)->globalPosition().toPoint() : QPoint();
        const bool taken = QCompleter::eventFilter(watched, event);
        if (is_press && popup()->isHidden()) go_where_was_clicked(place);
        return taken;
    }

  private:
    void offer(const QString& typed) {
        setCompletionPrefix(typed);
        if (typed.isEmpty()) return popup()->hide();
        complete();
    }

    // The click that closes the list goes no further; what is typed behind it is meant for the part
    // that was clicked.
    static void go_where_was_clicked(const QPoint& place) {
        QWidget* part = QApplication::widgetAt(place);
        if (part == nullptr || (part->focusPolicy() & Qt::ClickFocus) != Qt::ClickFocus) return;
        part->setFocus(Qt::MouseFocusReason);
    }

    bool take_key(QKeyEvent& key) {
        if (key.matches(QKeySequence::Cancel)) {
            // A name that was gone to stands in the box already.
            box_.setEditText(completionPrefix());
            popup()->hide();
            return true;
        }
        if (!is_enter(key) || popup()->currentIndex().isValid()) return false;
        popup()->hide();
        QCoreApplication::sendEvent(&box_, &key);
        return true;
    }

    QComboBox& box_;
};

}  // namespace

void show_name(QComboBox& box, const QString& name) {
    box.setCurrentIndex(box.findText(name, Qt::MatchFixedString));
    box.setEditText(name);
}

void offer_names(QComboBox& box) {
    box.setCompleter(nullptr);
    new NameCompleter(box);
}

void change_list(QStringListModel& list, const QStringList& names,
                 const std::vector<QComboBox*>& over) {
    if (list.stringList() == names) return;
    QStringList shown;
    std::vector<std::unique_ptr<QSignalBlocker>> silence;
    for (QComboBox* box : over) {
        shown.append(box->currentText());
        silence.push_back(std::make_unique<QSignalBlocker>(box));
    }
    list.setStringList(names);
    for (std::size_t i = 0; i < over.size(); ++i) {
        show_name(*over[i], shown[static_cast<qsizetype>(i)]);
    }
}

}  // namespace tavernook
