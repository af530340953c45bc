// The colours that a recipe's text can have.
#pragma once

#include <QBrush>
#include <QMenu>

namespace tavernook {

struct SelectionLook;

class InkMenu : public QMenu {
    Q_OBJECT

  public:
    explicit InkMenu(QWidget* parent);

    // Ticks the colour of the selection.
    void show_look(const SelectionLook& look);

  Q_SIGNALS:
    // No brush is what a text has that follows the paper.
    void chosen(const QBrush& ink);
};

}  // namespace tavernook
