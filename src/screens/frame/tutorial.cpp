#include "screens/frame/tutorial.h"

#include <QDockWidget>
#include <QEvent>
#include <algorithm>

#include "core/project/main_commands.h"
#include "core/project_data.h"
#include "screens/aids/Dialog.h"
#include "screens/aids/tut.h"
#include "screens/frame/Main.h"
#include "screens/frame/screen_registry.h"

namespace tavernook {

namespace {

// Marks a project that the welcome dialog has created or opened.
constexpr i16 welcome_tag = 10;

}  // namespace

void add_tutorial(Main& main) {
    new Tutorial(main);
}

QWidget* reader_in_sight(const QWidget& window) {
    auto* reader = window.findChild<tut*>();
    return reader != nullptr && reader->isVisible() ? reader : nullptr;
}

Tutorial::Tutorial(Main& main) : QObject(&main), main_(main) {
    main_.registry().add_window(QStringLiteral("Dialog"), [this] { show_welcome(); });
    main_.registry().add_window(QStringLiteral("tut"), [this] { show_reader(); });
}

void Tutorial::show_welcome() {
    if (welcome_ != nullptr && welcome_->isVisible()) return;
    delete welcome_;
    welcome_ = new Dialog(&main_, [this](const Work& command) { main_.run(command); });
    connect(welcome_, &Dialog::new_wanted, this, [this] { bring_project(mnuFile_NewProject); });
    connect(welcome_, &Dialog::open_wanted, this, [this] { bring_project(main_open); });
    welcome_->open();
}

// Opening one may have failed or been called off: the dialog stays for another choice. The tag is
// stored with the project's next save; it alone is no change that a user would be asked about.
void Tutorial::bring_project(bool (*command)()) {
    main_.run([&] {
        if (!main_.may_leave_project() || !command()) return;
        project_tag = welcome_tag;
        welcome_->accept();
    });
}

void Tutorial::make_reader() {
    dock_ = new QDockWidget(&main_);
    dock_->setObjectName(QStringLiteral("tut_dock"));
    reader_ = new tut(dock_);
    dock_->setWindowTitle(reader_->windowTitle());
    dock_->setWidget(reader_);
    dock_->setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    dock_->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    dock_->toggleViewAction()->setVisible(false);  // without a lesson there is nothing to read
    dock_->installEventFilter(this);
    connect(reader_, &tut::close_wanted, dock_, &QDockWidget::close);
}

// The screen in front gets the keyboard back, before Qt looks for the next part that could have it:
// that may be one of another screen, which would come in front by it.
bool Tutorial::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close) main_.focus_screen();
    return QObject::eventFilter(watched, event);
}

// Wherever it was when it was closed, it comes up under the toolbars. At most a third of the window
// is the lesson's, as the screens are what it is about.
void Tutorial::show_reader() {
    const bool was_in_sight = dock_ != nullptr && dock_->isVisible();
    if (dock_ == nullptr) make_reader();
    if (!was_in_sight) main_.addDockWidget(Qt::TopDockWidgetArea, dock_);
    dock_->show();
    reader_->setFocus(Qt::TabFocusReason);
    if (was_in_sight) return;
    const int wanted = dock_->sizeHint().height();
    main_.resizeDocks({dock_}, {std::min(wanted, main_.height() / 3)}, Qt::Vertical);
}

}  // namespace tavernook
