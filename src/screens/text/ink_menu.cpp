#include "screens/text/ink_menu.h"

#include <QPainter>

#include "screens/text/recipe_look.h"

namespace tavernook {

namespace {

// Colours of ink: they belong to the document, whatever the palette is.
struct Ink {
    const char* name;
    QRgb colour;
};
constexpr Ink inks[] = {
    {QT_TRANSLATE_NOOP("InkMenu", "Black"), qRgb(0, 0, 0)},
    {QT_TRANSLATE_NOOP("InkMenu", "Grey"), qRgb(96, 96, 96)},
    {QT_TRANSLATE_NOOP("InkMenu", "Red"), qRgb(192, 0, 0)},
    {QT_TRANSLATE_NOOP("InkMenu", "Orange"), qRgb(176, 84, 0)},
    {QT_TRANSLATE_NOOP("InkMenu", "Brown"), qRgb(112, 64, 32)},
    {QT_TRANSLATE_NOOP("InkMenu", "Green"), qRgb(0, 112, 0)},
    {QT_TRANSLATE_NOOP("InkMenu", "Teal"), qRgb(0, 108, 112)},
    {QT_TRANSLATE_NOOP("InkMenu", "Blue"), qRgb(0, 64, 192)},
    {QT_TRANSLATE_NOOP("InkMenu", "Purple"), qRgb(112, 48, 160)},
    {QT_TRANSLATE_NOOP("InkMenu", "Pink"), qRgb(192, 0, 120)},
};

QIcon swatch(QRgb colour, const QColor& frame) {
    QPixmap pixmap(32, 32);
    pixmap.fill(QColor(colour));
    QPainter painter(&pixmap);
    painter.setPen(frame);
    painter.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return QIcon(pixmap);
}

QColor colour_of(const QAction& choice) {
    return choice.data().value<QColor>();
}

}  // namespace

InkMenu::InkMenu(QWidget* parent) : QMenu(parent) {
    setObjectName(QStringLiteral("recipe_colours"));
    addAction(tr("&Automatic"))->setCheckable(true);
    addSeparator();
    const QColor frame = parent->palette().color(QPalette::WindowText);
    for (const Ink& ink : inks) {
        QAction* choice = addAction(swatch(ink.colour, frame), tr(ink.name));
        choice->setCheckable(true);
        choice->setData(QColor(ink.colour));
    }
    connect(this, &QMenu::triggered, this, [this](const QAction* choice) {
        const QColor colour = colour_of(*choice);
        Q_EMIT chosen(colour.isValid() ? QBrush(colour) : QBrush(Qt::NoBrush));
    });
}

void InkMenu::show_look(const SelectionLook& look) {
    for (QAction* choice : actions()) {
        const QColor colour = colour_of(*choice);
        choice->setChecked(colour.isValid() ? look.colour == colour.rgb() : look.automatic_colour);
    }
}

}  // namespace tavernook
