// What the lists and the small child screens have in common.
#pragma once

#include <QKeySequence>
#include <QString>
#include <functional>

class QAbstractItemModel;
class QAbstractItemView;
class QKeyEvent;
class QModelIndex;
class QObject;
class QTreeView;
class QWidget;

namespace tavernook {

// Rows with some air between the lines.
void space_rows(QAbstractItemView& view);

// A list of whole rows under a header: sorted by a click on it, a third click brings back the
// order of the table; Ctrl+C copies the selected rows.
void dress_list(QTreeView& view);

// One line in the middle of the view as long as it has no rows; a further call changes the line.
// Call it when the model stands.
void hint_when_empty(QAbstractItemView& view, const QString& hint);

// `command` runs on these keys while the widget or something inside it has the focus.
void on_keys(QWidget& widget, const QKeySequence& keys, std::function<void()> command);

// Return, or Enter of the number pad.
bool is_enter(const QKeyEvent& key);

// Makes the row the current one and brings it into sight; without a row none is marked.
void mark_row(QAbstractItemView& view, const QModelIndex& row);

// `command` runs when the screen's action or button of that name is used.
void on_command(QWidget& screen, const char* name, std::function<void()> command);

// The Enter key on a focused button presses it, as in dialogs.
void enter_presses_buttons(QWidget& screen);

// Closes the child window around the screen; a screen without one closes itself.
void close_screen(QWidget& screen);

// A width that reads well for that many letters of the widget's own font.
int letters_wide(const QWidget& widget, int letters);

}  // namespace tavernook
