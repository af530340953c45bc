#include "screens/aids/Dialog.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "aids/lessons.h"
#include "aids/sample_project.h"
#include "core/program_state.h"
#include "core/project/window_state.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen.h"
#include "screens/parts/screen_switch.h"
#include "ui_Dialog.h"

namespace tavernook {

struct LessonPicture {
    const char* picture;
    const char* name;
    const char* text;
    bool takes_sample;
    const char* screen;  // that the lesson is about, or null
    i16 section;         // 0 without a lesson
};

namespace {

constexpr int pictures_in_row = 4;
constexpr int picture_side = 96;

// clang-format off
constexpr std::array<LessonPicture, 8> lesson_pictures = {{
    {"lesson_new", "A project of your own",
     "Learn what a Tavernook project is and how to start a new one.",
     false, nullptr, 100},
    {"lesson_sample", "The sample project",
     "Get started now with a sample project that already has a small inventory and some meals.  You can use this as an example or build your project from this.",
     true, nullptr, 0},
    {"lesson_open", "Opening a project",
     "This tutorial will teach you how to open an existing Tavernook project.",
     false, nullptr, 200},
    {"lesson_items", "Items in your kitchen",
     "Learn how to enter items into the Tavernook Item Inventory.  The Item Inventory will keep track of your inventory and will alert you when items or lots are expired or require restocking.",
     true, "FoodInventory", 300},
    {"lesson_planner", "Planning meals",
     "Learn how to use the Meal Planner to plan meals, use meal recommendations, and more...",
     true, "MealPlan", 400},
    {"lesson_recipes", "Recipes",
     "This tutorial will show you how to construct recipes from your items and organize them in this easy to use recipe manager.",
     true, "Mealbuilder", 500},
    {"lesson_setup", "Your settings",
     "Learn how to setup your Tavernook project to your needs.",
     true, "ProjectSetup", 600},
    {"lesson_reports", "Reports",
     "This tutorial will describe how to use the powerful Tavernook reporting system.  Use existing Tavernook reports or design your own using custom filters and sorting.",
     true, "Reports", 700},
}};
// clang-format on

constexpr QLatin1String reader("tut");

void read(i16 section) {
    set_section(section);
    show_screen(reader);
}

// Where an arrow key leads from one picture; the same place at the edge.
std::size_t place_after(std::size_t place, int key) {
    const int from = static_cast<int>(place);
    const int step = key == Qt::Key_Left    ? -1
                     : key == Qt::Key_Right ? 1
                     : key == Qt::Key_Up    ? -pictures_in_row
                     : key == Qt::Key_Down  ? pictures_in_row
                                            : 0;
    const int to = from + step;
    return to < 0 || to >= static_cast<int>(lesson_pictures.size()) ? place
                                                                    : static_cast<std::size_t>(to);
}

// Or with the dialog itself, but not while that tells its first part of a focus that it only will
// have.
bool came_by_key(const QWidget& picture, const QEvent& event) {
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return picture.hasFocus() &&
           (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
            reason == Qt::ActiveWindowFocusReason);
}

}  // namespace

Dialog::Dialog(QWidget* parent, std::function<void(const Work&)> run)
    : QDialog(parent), ui_(laid_out<Ui::Dialog>(*this)), run_(std::move(run)) {
    add_pictures();
    keep_room_for_texts();
    ui_->hide_box->setChecked(hide_welcome_dialog != 0);
    connect_parts();
    pictures_.front()->setFocus(Qt::ActiveWindowFocusReason);
}

Dialog::~Dialog() = default;

void Dialog::add_pictures() {
    QWidget* before = nullptr;
    for (const LessonPicture& lesson : lesson_pictures) {
        const int place = static_cast<int>(pictures_.size());
        QToolButton* picture = add_picture(lesson);
        ui_->pictures->addWidget(picture, place / pictures_in_row, place % pictures_in_row);
        pictures_.push_back(picture);
        if (before != nullptr) setTabOrder(before, picture);
        before = picture;
    }
    setTabOrder(before, ui_->new_button);
}

QToolButton* Dialog::add_picture(const LessonPicture& lesson) {
    auto* picture = new QToolButton(this);
    picture->setObjectName(QLatin1String(lesson.picture));
    picture->setIcon(icon(QLatin1String(lesson.picture)));
    picture->setIconSize(QSize(picture_side, picture_side));
    picture->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    picture->setText(tr(lesson.name));
    picture->setAccessibleName(tr(lesson.name));
    picture->setAccessibleDescription(tr(lesson.text));
    picture->setFocusPolicy(Qt::StrongFocus);
    picture->setAutoRaise(true);
    picture->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    picture->installEventFilter(this);
    connect(picture, &QToolButton::clicked, this, [this, &lesson] { choose(lesson); });
    return picture;
}

// The dialog does not change its size with the line.
void Dialog::keep_room_for_texts() {
    QLabel& line = *ui_->description_label;
    line.setMinimumWidth(letters_wide(line, 90));
    int height = 0;
    for (const LessonPicture& lesson : lesson_pictures) {
        const QRect room(0, 0, line.minimumWidth(), 0);
        const int flags = Qt::TextWordWrap;
        height = std::max(height,
                          line.fontMetrics().boundingRect(room, flags, tr(lesson.text)).height());
    }
    line.setMinimumHeight(height);
}

void Dialog::connect_parts() {
    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
    connect(ui_->new_button, &QPushButton::clicked, this, &Dialog::new_wanted);
    connect(ui_->open_button, &QPushButton::clicked, this, &Dialog::open_wanted);
    connect(ui_->cancel_button, &QPushButton::clicked, this, &Dialog::reject);
    connect(ui_->hide_box, &QCheckBox::clicked, this, &Dialog::store_wish);
    for (QPushButton* button : findChildren<QPushButton*>()) button->installEventFilter(this);
}

void Dialog::store_wish(bool hidden) {
    hide_welcome_dialog = hidden ? i16_true : i16_false;
    save_window_state();
}

// The sample tells by itself why it cannot be opened. The reader comes first, so that the screen
// fits into the room that is left.
void Dialog::choose(const LessonPicture& lesson) {
    run_([this, &lesson] {
        if (lesson.section == 0 && project_open != 0) {
            main_window().set_status(message_panel,
                                     "The project that is open stays; close it to see the sample.");
        }
        if (lesson.takes_sample) {
            SeedProject();
            if (project_open == 0) return;
        }
        if (lesson.section != 0) read(lesson.section);
        if (lesson.screen != nullptr) show_screen(QLatin1String(lesson.screen));
        if (lesson.section != 0) show_screen(reader);  // the keyboard is there
        accept();
    });
}

bool Dialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto& key = static_cast<QKeyEvent&>(*event);
        auto* button = qobject_cast<QAbstractButton*>(watched);
        if (button != nullptr && is_enter(key)) {
            button->click();
            return true;
        }
    }
    const auto picture = std::find(pictures_.begin(), pictures_.end(), watched);
    if (picture == pictures_.end()) return QDialog::eventFilter(watched, event);
    const auto place = static_cast<std::size_t>(picture - pictures_.begin());
    switch (event->type()) {
        case QEvent::KeyPress:
            return handle_key(place, static_cast<QKeyEvent*>(event)->key());
        case QEvent::FocusIn:
            if (!came_by_key(**picture, *event)) break;
            setAttribute(Qt::WA_KeyboardFocusChange);  // the frame around the picture is seen
            ui_->description_label->setText(tr(lesson_pictures[place].text));
            break;
        case QEvent::Enter:
            ui_->description_label->setText(tr(lesson_pictures[place].text));
            break;
        case QEvent::FocusOut:
        case QEvent::Leave:
            ui_->description_label->clear();
            break;
        default:
            break;
    }
    return false;
}

bool Dialog::handle_key(std::size_t place, int key) {
    const bool is_arrow =
        key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
    if (is_arrow) pictures_[place_after(place, key)]->setFocus(Qt::TabFocusReason);
    return is_arrow;
}

}  // namespace tavernook
