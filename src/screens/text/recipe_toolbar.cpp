#include "screens/text/recipe_toolbar.h"

#include <QAbstractItemView>
#include <QAction>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "screens/parts/checked_line.h"
#include "screens/parts/choice_box.h"
#include "screens/parts/icons.h"
#include "screens/text/ink_menu.h"

namespace tavernook {

namespace {

constexpr const char* sizes[] = {"8",  "10", "12", "14", "16", "18", "20",
                                 "22", "24", "26", "28", "36", "48", "72"};
constexpr double smallest_size = 1;
constexpr double largest_size = 999;

QString size_text(double points) {
    return points > 0 ? QString::number(points, 'g', 4) : QString();
}

}  // namespace

struct RecipeToolbar::ButtonPlan {
    const char* name;
    const char* icon;
    QString text;
    QString hint;
    const char* keys = "";
    bool checkable = false;
};

RecipeToolbar::RecipeToolbar(QTextEdit& text, QWidget& home)
    : QWidget(&home),
      text_(text),
      font_box_(new ChoiceBox(this)),
      size_box_(new ChoiceBox(this)),
      bar_(new QToolBar(tr("Text format"), this)),
      colours_(new InkMenu(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(font_box_);
    row->addWidget(size_box_);
    row->addWidget(bar_, 1);
    add_boxes();
    add_buttons(home);
    add_colours();
    name_buttons();
    connect_buttons();
    follow_caret();
}

void RecipeToolbar::add_boxes() {
    font_box_->setObjectName(QStringLiteral("recipe_font"));
    font_box_->setAccessibleName(tr("Font"));
    font_box_->setToolTip(tr("The font of the selected text."));
    font_box_->setMinimumContentsLength(12);
    font_box_->fill_later([] { return QFontDatabase::families(); });
    size_box_->setObjectName(QStringLiteral("recipe_font_size"));
    size_box_->setAccessibleName(tr("Text size"));
    size_box_->setToolTip(
        tr("The size of the selected text. Ctrl++ and Ctrl+- only bring it "
           "nearer to the eye."));
    size_box_->setMinimumContentsLength(3);
    for (const char* size : sizes) size_box_->addItem(QLatin1String(size));
    size_box_->setCompleter(nullptr);  // it would make a 72 of a 7
    connect(font_box_, &ChoiceBox::chosen, this, [this](const QString& family, bool done) {
        set_family(family);
        if (done) back_to_text();
    });
    connect(size_box_, &ChoiceBox::chosen, this, [this](const QString& size, bool done) {
        set_size(size);
        if (done) back_to_text();
    });
    for (const ChoiceBox* box : {font_box_, size_box_}) {
        box->view()->setAccessibleName(box->accessibleName());
        connect(box, &ChoiceBox::left, this, [this](bool by_escape) {
            follow_caret();
            if (by_escape) text_.setFocus();
        });
    }
}

QAction* RecipeToolbar::add_button(const ButtonPlan& plan, QWidget& home) {
    QAction* action = bar_->addAction(icon(QLatin1String(plan.icon)), plan.text);
    own_.push_back(action);
    action->setObjectName(QLatin1String(plan.name));
    action->setCheckable(plan.checkable);
    const QKeySequence keys{QLatin1String(plan.keys)};
    const QString told = keys.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(keys.toString());
    action->setToolTip(plan.hint + told);
    if (keys.isEmpty()) return action;
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    home.addAction(action);
    return action;
}

void RecipeToolbar::add_buttons(QWidget& home) {
    bar_->setObjectName(QStringLiteral("Toolbar2"));
    bold_ = add_button({"recipe_bold", "bold", tr("Bold"), tr("Bold"), "Ctrl+B", true}, home);
    italic_ =
        add_button({"recipe_italic", "italic", tr("Italic"), tr("Italic"), "Ctrl+I", true}, home);
    underline_ = add_button(
        {"recipe_underline", "underline", tr("Underline"), tr("Underline"), "Ctrl+U", true}, home);
    const auto side = [&](Qt::Alignment where, const ButtonPlan& plan) {
        sides_.emplace_back(where, add_button(plan, home));
    };
    bar_->addSeparator();
    side(Qt::AlignLeft,
         {"recipe_left", "align_left", tr("Left"), tr("Align to the left"), "Ctrl+L", true});
    side(Qt::AlignHCenter,
         {"recipe_center", "align_center", tr("Centre"), tr("Centre"), "Ctrl+E", true});
    side(Qt::AlignRight,
         {"recipe_right", "align_right", tr("Right"), tr("Align to the right"), "Ctrl+R", true});
    bullet_ = add_button({"recipe_bullet", "bullets", tr("Bullets"),
                          tr("A bullet before each paragraph"), "Ctrl+Shift+L", true},
                         home);
    colour_ = add_button(
        {"recipe_colour", "text_colour", tr("Colour"), tr("The colour of the selected text")},
        home);
    bar_->addSeparator();
    QAction* picture = add_button({"recipe_picture", "picture", tr("Insert Picture"),
                                   tr("Put a picture from a file into the recipe")},
                                  home);
    QAction* barcode = add_button({"recipe_barcode", "barcodes", tr("Insert Barcode"),
                                   tr("Put the recipe's barcode into its text")},
                                  home);
    QAction* information =
        add_button({"recipe_information", "information", tr("Insert Recipe Information"),
                    tr("Put ingredients, nutrition and cost at the end of the text")},
                   home);
    connect(picture, &QAction::triggered, this, &RecipeToolbar::picture_wanted);
    connect(barcode, &QAction::triggered, this, &RecipeToolbar::barcode_wanted);
    connect(information, &QAction::triggered, this, &RecipeToolbar::information_wanted);
}

void RecipeToolbar::add_colours() {
    colour_->setMenu(colours_);
    connect(colours_, &InkMenu::chosen, this, &RecipeToolbar::set_colour);
    connect(colours_, &QMenu::aboutToShow, this, &RecipeToolbar::follow_caret);
}

// One stop of the tab key for the whole bar; the arrow keys walk along it.
void RecipeToolbar::name_buttons() {
    for (QAction* action : bar_->actions()) {
        auto* button = qobject_cast<QToolButton*>(bar_->widgetForAction(action));
        if (button == nullptr) continue;
        button->setObjectName(action->objectName() + QLatin1String("_button"));
        button->setAccessibleName(action->text());
        button->setFocusPolicy(action == bold_ ? Qt::TabFocus : Qt::NoFocus);
        if (action->isCheckable()) new CheckedLine(*button);
        if (action == colour_) button->setPopupMode(QToolButton::InstantPopup);
    }
    auto* more = bar_->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
    if (more == nullptr) return;
    // The style's own sign is hardly seen in dark palettes.
    more->setIcon(icon(QStringLiteral("more")));
    more->setAccessibleName(tr("More commands"));
    more->setToolTip(tr("More commands"));
}

void RecipeToolbar::connect_buttons() {
    connect(bold_, &QAction::triggered, this, [this](bool wanted) {
        QTextCharFormat format;
        format.setFontWeight(wanted ? QFont::Bold : QFont::Normal);
        merge(format);
    });
    connect(italic_, &QAction::triggered, this, [this](bool wanted) {
        QTextCharFormat format;
        format.setFontItalic(wanted);
        merge(format);
    });
    connect(underline_, &QAction::triggered, this, [this](bool wanted) {
        QTextCharFormat format;
        format.setFontUnderline(wanted);
        merge(format);
    });
    for (const auto& [side, action] : sides_) {
        connect(action, &QAction::triggered, this, [this, side = side] { set_alignment(side); });
    }
    connect(bullet_, &QAction::triggered, this, [this](bool wanted) {
        set_bullets(text_, wanted);
        follow_caret();
    });
    connect(&text_, &QTextEdit::currentCharFormatChanged, this, &RecipeToolbar::follow_caret);
    connect(&text_, &QTextEdit::cursorPositionChanged, this, &RecipeToolbar::follow_caret);
    connect(&text_, &QTextEdit::selectionChanged, this, &RecipeToolbar::follow_caret);
    connect(&text_, &QTextEdit::textChanged, this, &RecipeToolbar::follow_caret);
}

std::vector<QWidget*> RecipeToolbar::tab_stops() const {
    return {font_box_, size_box_, bar_->widgetForAction(bold_)};
}

void RecipeToolbar::set_usable(bool usable) {
    setEnabled(usable);
    for (QAction* action : own_) action->setEnabled(usable);
}

void RecipeToolbar::follow_caret() {
    const SelectionLook look = selection_look(text_);
    bold_->setChecked(look.bold);
    italic_->setChecked(look.italic);
    underline_->setChecked(look.underline);
    bullet_->setChecked(look.bullet);
    for (const auto& [side, action] : sides_) action->setChecked(look.alignment == side);
    font_box_->show_choice(look.family);
    size_box_->show_choice(size_text(look.points));
    colours_->show_look(look);
}

void RecipeToolbar::merge(const QTextCharFormat& format) {
    text_.mergeCurrentCharFormat(format);
    follow_caret();
}

void RecipeToolbar::set_alignment(Qt::Alignment side) {
    text_.setAlignment(side | Qt::AlignAbsolute);
    follow_caret();
}

void RecipeToolbar::set_family(const QString& family) {
    const QString name = family.trimmed();
    if (!name.isEmpty() && name != selection_look(text_).family) {
        QTextCharFormat format;
        format.setFontFamilies({name});
        text_.mergeCurrentCharFormat(format);
    }
    follow_caret();
}

// Halves of a point are the finest that a recipe keeps.
void RecipeToolbar::set_size(const QString& size) {
    bool readable = false;
    QString number = size.trimmed();
    const double points = number.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&readable);
    if (readable && points >= smallest_size && points <= largest_size) {
        const double rounded = std::round(points * 2) / 2;
        QTextCharFormat format;
        format.setFontPointSize(rounded);
        if (rounded != selection_look(text_).points) text_.mergeCurrentCharFormat(format);
    }
    follow_caret();
}

void RecipeToolbar::set_colour(const QBrush& ink) {
    QTextCharFormat format;
    format.setForeground(ink);
    merge(format);
}

void RecipeToolbar::back_to_text() {
    text_.setFocus();
}

// The bar makes buttons anew at times, so that they are looked up when they are needed.
bool RecipeToolbar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Left && key != Qt::Key_Right) return QWidget::eventFilter(watched, event);
    std::vector<QToolButton*> buttons;
    for (auto* button : bar_->findChildren<QToolButton*>()) {
        if (button->isVisible() && button->isEnabled()) buttons.push_back(button);
    }
    std::sort(buttons.begin(), buttons.end(),
              [](const QToolButton* a, const QToolButton* b) { return a->x() < b->x(); });
    const auto here = std::find(buttons.begin(), buttons.end(), watched);
    if (here == buttons.end()) return false;
    if (key == Qt::Key_Left && here != buttons.begin()) (*(here - 1))->setFocus();
    if (key == Qt::Key_Right && here + 1 != buttons.end()) (*(here + 1))->setFocus();
    return true;
}

void RecipeToolbar::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    for (auto* button : bar_->findChildren<QToolButton*>()) button->installEventFilter(this);
}

}  // namespace tavernook
