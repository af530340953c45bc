#include "screens/frame/StartPage.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QPushButton>

#include "screens/parts/icons.h"
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
    for (QToolButton* button : {ui_->start_new, ui_->start_open}) {
        button->setFocusPolicy(Qt::StrongFocus);
        button->setAccessibleName(button->text());
    }
    ui_->start_sample->setAutoDefault(true);
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
    show_parts(true);
}

void StartPage::show_project(const QString& name, const QString& line) {
    ui_->start_heading->setText(name);
    ui_->start_line->setText(line);
    show_parts(false);
}

void StartPage::focus_first() {
    if (idle_) ui_->start_new->setFocus(Qt::TabFocusReason);
}

void StartPage::show_parts(bool idle) {
    idle_ = idle;
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
    QWidget* before = ui_->start_sample;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        add_link(static_cast<int>(i), paths[i]);
        QWidget* link = ui_->recent_links->itemAt(static_cast<int>(i))->widget();
        setTabOrder(before, link);
        before = link;
    }
    follow_palette_and_font();
    show_parts(idle_);
}

void StartPage::add_link(int index, const std::string& path) {
    const QString full = shown_path(path);
    const QString name = QFileInfo(full).fileName();
    auto* link =
        new QPushButton(without_mnemonics(tr("%1   in %2").arg(name, folder_shown(full))), this);
    link->setObjectName(QStringLiteral("recent_link_%1").arg(index + 1));
    link->setFlat(true);
    link->setAutoDefault(true);
    link->setCursor(Qt::PointingHandCursor);
    link->setToolTip(full);
    link->setAccessibleName(tr("Open %1").arg(name));
    link->setAccessibleDescription(full);
    connect(link, &QPushButton::clicked, this, [this, index] { Q_EMIT recent_wanted(index); });
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
    dress_button(ui_->start_new, QStringLiteral("new"));
    dress_button(ui_->start_open, QStringLiteral("open"));
    set_text_colour(ui_->start_sample, QPalette::ButtonText, present.color(QPalette::Link));
    for (int i = 0; i < ui_->recent_links->count(); ++i) {
        set_text_colour(ui_->recent_links->itemAt(i)->widget(), QPalette::ButtonText,
                        present.color(QPalette::Link));
    }
    following_ = false;
}

void StartPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const bool look = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (look && !following_) follow_palette_and_font();
}

}  // namespace tavernook
