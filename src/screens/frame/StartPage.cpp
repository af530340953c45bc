#include "screens/frame/StartPage.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "core/project/previous_version.h"
#include "platform/platform.h"
#include "screens/frame/recent_names.h"
#include "screens/parts/guard.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "ui_StartPage.h"

namespace tavernook {

namespace {

// Calmer than the text, and still easy to read on the background.
QColor calm_colour(const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    const QColor back = palette.color(QPalette::Window);
    constexpr float part = 0.7F;
    const auto mix = [](float a, float b) { return a * part + b * (1 - part); };
    return QColor::fromRgbF(mix(text.redF(), back.redF()), mix(text.greenF(), back.greenF()),
                            mix(text.blueF(), back.blueF()));
}

void set_text_colour(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette;
    palette.setColor(role, colour);
    widget->setPalette(palette);
}

void set_text_size(QWidget* widget, const QFont& base, double factor) {
    QFont font = base;
    font.setPointSizeF(base.pointSizeF() * factor);
    widget->setFont(font);
}

void dress_button(QToolButton* button, const QString& icon_name) {
    const int line = button->fontMetrics().height();
    button->setIcon(icon(icon_name));
    button->setIconSize(QSize(line * 3, line * 3));
    button->setMinimumSize(line * 10, line * 5);
}

// Wider than the two buttons beneath it together.
void dress_main_button(QToolButton* button, const QFont& base) {
    set_text_size(button, base, 1.3);
    const int line = QFontMetrics(base).height();
    button->setIcon(icon(QStringLiteral("app")));
    button->setIconSize(QSize(line * 4, line * 4));
    button->setMinimumSize(line * 22, line * 7);
}

// The first path with a file of a project, or with what an unfinished save has left of one.
int newest_there(const std::vector<std::string>& paths) {
    const auto found = std::find_if(paths.begin(), paths.end(), [](const std::string& path) {
        bool is_there = false;
        quietly([&] { is_there = files().exists(path) || previous_version_exists(path); });
        return is_there;
    });
    return found == paths.end() ? -1 : static_cast<int>(found - paths.begin());
}

QString folder_shown(const QString& path) {
    const QString folder = QFileInfo(path).path();
    const QString home = QDir::homePath();
    if (folder == home) return QStringLiteral("~");
    return folder.startsWith(home + QLatin1Char('/')) ? QLatin1Char('~') + folder.mid(home.size())
                                                      : folder;
}

}  // namespace

StartPage::StartPage(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::StartPage>()) {
    ui_->setupUi(this);
    for (QToolButton* button : {ui_->start_continue, ui_->start_new, ui_->start_open}) {
        button->setFocusPolicy(Qt::StrongFocus);
        button->setAccessibleName(button->text());
    }
    connect(ui_->start_continue, &QToolButton::clicked, this,
            [this] { Q_EMIT recent_wanted(newest_); });
    ui_->start_sample->setAutoDefault(true);
    ui_->start_sample->installEventFilter(this);
    ui_->start_sample->setCursor(Qt::PointingHandCursor);
    connect(ui_->start_new, &QToolButton::clicked, this, &StartPage::new_wanted);
    connect(ui_->start_open, &QToolButton::clicked, this, &StartPage::open_wanted);
    connect(ui_->start_sample, &QPushButton::clicked, this, &StartPage::sample_wanted);
    follow_palette_and_font();
    set_recent_files({});
    show_idle();
}

StartPage::~StartPage() = default;

void StartPage::show_idle() {
    ui_->start_heading->setText(QStringLiteral("Tavernook"));
    ui_->start_line->setText(tr("Open a project or start a new one."));
    if (idle_) return;
    idle_ = true;
    offer_to_continue();
}

void StartPage::show_project(const QString& name, const QString& line) {
    ui_->start_heading->setText(name);
    ui_->start_line->setText(line);
    show_parts(false);
}

void StartPage::focus_first() {
    QToolButton* first = newest_ < 0 ? ui_->start_new : ui_->start_continue;
    if (!idle_) return;
    first->setFocus(Qt::TabFocusReason);
    window()->setAttribute(Qt::WA_KeyboardFocusChange);  // the focus is seen from the start
}

void StartPage::show_parts(bool idle) {
    idle_ = idle;
    ui_->start_continue->setVisible(idle && newest_ >= 0);
    ui_->start_new->setVisible(idle);
    ui_->start_open->setVisible(idle);
    ui_->start_sample->setVisible(idle);
    ui_->recent_heading->setVisible(idle && ui_->recent_links->count() > 0);
    for (int i = 0; i < ui_->recent_links->count(); ++i) {
        ui_->recent_links->itemAt(i)->widget()->setVisible(idle);
    }
}

void StartPage::set_recent_files(const std::vector<std::string>& paths) {
    while (QLayoutItem* item = ui_->recent_links->takeAt(0)) {
        item->widget()->hide();
        // Later, as the click on it may be what opened the project.
        item->widget()->deleteLater();
        delete item;
    }
    paths_ = paths;
    QWidget* before = ui_->start_sample;
    for (std::size_t place = 0; place < paths_.size(); ++place) {
        add_link(place);
        QWidget* link = ui_->recent_links->itemAt(static_cast<int>(place))->widget();
        setTabOrder(before, link);
        before = link;
    }
    follow_palette_and_font();
    offer_to_continue();
}

void StartPage::offer_to_continue() {
    newest_ = newest_there(paths_);
    if (newest_ >= 0) {
        const QString path = shown_path(paths_[static_cast<std::size_t>(newest_)]);
        const QString name = QFileInfo(path).fileName();
        QToolButton& button = *ui_->start_continue;
        button.setText(
            without_mnemonics(tr("Continue with %1").arg(shortened(name, fontMetrics()))));
        button.setToolTip(path);
        button.setAccessibleName(tr("Continue with %1").arg(name));
        button.setAccessibleDescription(path);
    }
    show_parts(idle_);
}

// As much of the folder as there is room for; where that could be another one's, what tells it.
QString StartPage::folder_of_link(std::size_t place) const {
    const QString folder = folder_shown(shown_path(paths_[place]));
    const QString whole = shortened(folder, fontMetrics());
    const QString telling = telling_folder(place, paths_);
    return whole == folder || telling.isEmpty() ? whole : shortened(telling, fontMetrics());
}

void StartPage::add_link(std::size_t place) {
    const QString full = shown_path(paths_[place]);
    const QString name = QFileInfo(full).fileName();
    const QString text =
        tr("%1   in %2").arg(shortened(name, fontMetrics()), folder_of_link(place));
    auto* link = new QPushButton(without_mnemonics(text), this);
    link->setObjectName(QStringLiteral("recent_link_%1").arg(place + 1));
    link->setFlat(true);
    link->installEventFilter(this);
    link->setAutoDefault(true);
    link->setCursor(Qt::PointingHandCursor);
    link->setToolTip(full);
    link->setAccessibleName(tr("Open %1").arg(name));
    link->setAccessibleDescription(full);
    connect(link, &QPushButton::clicked, this,
            [this, place] { Q_EMIT recent_wanted(static_cast<int>(place)); });
    ui_->recent_links->addWidget(link);
}

void StartPage::follow_palette_and_font() {
    following_ = true;
    const QPalette present = palette();
    set_text_size(ui_->start_heading, font(), 2.0);
    set_text_size(ui_->start_line, font(), 1.2);
    for (QLabel* label : {ui_->start_line, ui_->recent_heading}) {
        set_text_colour(label, QPalette::WindowText, calm_colour(present));
    }
    dress_main_button(ui_->start_continue, font());
    dress_button(ui_->start_new, QStringLiteral("new"));
    dress_button(ui_->start_open, QStringLiteral("open"));
    set_text_colour(ui_->start_sample, QPalette::ButtonText, present.color(QPalette::Link));
    for (int i = 0; i < ui_->recent_links->count(); ++i) {
        set_text_colour(ui_->recent_links->itemAt(i)->widget(), QPalette::ButtonText,
                        present.color(QPalette::Link));
    }
    following_ = false;
}

// Files may have come or gone meanwhile.
void StartPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    offer_to_continue();
}

// A flat button shows no focus: it has a frame for as long as it has it.
bool StartPage::eventFilter(QObject* watched, QEvent* event) {
    const bool comes = event->type() == QEvent::FocusIn;
    if (comes || event->type() == QEvent::FocusOut) {
        static_cast<QPushButton*>(watched)->setFlat(!comes);
    }
    return QWidget::eventFilter(watched, event);
}

// What Enter does to the other buttons by itself.
void StartPage::keyPressEvent(QKeyEvent* event) {
    auto* button = qobject_cast<QToolButton*>(focusWidget());
    if (button != nullptr && is_enter(*event)) return button->click();
    QWidget::keyPressEvent(event);
}

void StartPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const bool look = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (look && !following_) follow_palette_and_font();
}

}  // namespace tavernook
