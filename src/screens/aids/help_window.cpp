#include "screens/aids/help_window.h"

#include <QApplication>
#include <QHideEvent>
#include <QScreen>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QTabBar>
#include <QToolButton>
#include <QWindow>
#include <string>
#include <utility>

#include "platform/platform.h"
#include "screens/aids/help_book.h"
#include "screens/aids/help_search.h"
#include "screens/parts/guard.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_memory.h"
#include "screens/parts/select_on_entry.h"
#include "ui_help_window.h"

namespace tavernook {

namespace {

constexpr const char* settings_section = "Help";
constexpr const char* place_key = "Place";
constexpr const char* text_key = "TextStep";

QString with_keys(const QAction& action) {
    return QStringLiteral("%1 (%2)").arg(action.text(), action.shortcut().toString());
}

}  // namespace

HelpWindow::HelpWindow(HelpBook& book)
    : book_(book),
      ui_(std::make_unique<Ui::HelpWindow>()),
      search_(std::make_unique<HelpSearch>()),
      words_(new QSortFilterProxyModel(this)) {
    ui_->setupUi(this);
    ui_->page->read_from(book_);
    ui_->find_bar->hide();
    ui_->help_splitter->setStretchFactor(1, 1);
    ui_->help_tabs->setMinimumWidth(ui_->help_tabs->tabBar()->sizeHint().width());
    ui_->help_splitter->setSizes({letters_wide(*this, 38), letters_wide(*this, 80)});
    connect_toolbar();
    connect_contents();
    connect_index();
    connect_search();
    connect_find_bar();
    connect_keys();
    search();
}

HelpWindow::~HelpWindow() {
    close();
}

void HelpWindow::connect_toolbar() {
    ui_->help_bar->setAccessibleName(ui_->help_bar->windowTitle());
    for (QAction* action : ui_->help_bar->actions()) {
        auto* button = qobject_cast<QToolButton*>(ui_->help_bar->widgetForAction(action));
        if (button == nullptr) continue;
        action->setToolTip(with_keys(*action));
        button->setObjectName(action->objectName() + QLatin1String("_button"));
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(action->text());
    }
    ui_->larger_text->setShortcuts({QKeySequence(tr("Ctrl++")), QKeySequence(tr("Ctrl+="))});
    ui_->go_back->setIcon(icon(QStringLiteral("previous")));
    ui_->go_forward->setIcon(icon(QStringLiteral("next")));
    ui_->go_back->setEnabled(false);
    ui_->go_forward->setEnabled(false);
    HelpPage* page = ui_->page;
    connect(page, &QTextBrowser::backwardAvailable, ui_->go_back, &QAction::setEnabled);
    connect(page, &QTextBrowser::forwardAvailable, ui_->go_forward, &QAction::setEnabled);
    connect(page, &QTextBrowser::sourceChanged, this, &HelpWindow::show_where);
    connect(ui_->go_back, &QAction::triggered, page, &QTextBrowser::backward);
    connect(ui_->go_forward, &QAction::triggered, page, &QTextBrowser::forward);
    connect(ui_->go_contents, &QAction::triggered, this, &HelpWindow::show_contents);
    connect(ui_->find_in_page, &QAction::triggered, this, &HelpWindow::open_find_bar);
    connect(ui_->larger_text, &QAction::triggered, page,
            [page] { page->set_text_step(page->text_step() + 1); });
    connect(ui_->smaller_text, &QAction::triggered, page,
            [page] { page->set_text_step(page->text_step() - 1); });
    connect(ui_->normal_text, &QAction::triggered, page, [page] { page->set_text_step(0); });
}

void HelpWindow::connect_contents() {
    QTreeView* tree = ui_->contents_tree;
    tree->setModel(&book_.contents());
    const auto open = [this](const QModelIndex& place) {
        ui_->page->setSource(book_.page_at(place));
    };
    connect(tree, &QAbstractItemView::activated, this, open);
    connect(tree, &QAbstractItemView::clicked, this, open);
    connect(tree->model(), &QAbstractItemModel::modelReset, this, [this, tree] {
        tree->expandAll();
        mark_in_contents({}, ui_->page->source());
    });
}

void HelpWindow::connect_index() {
    words_->setSourceModel(&book_.index());
    words_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    words_->setSortCaseSensitivity(Qt::CaseInsensitive);
    words_->setSortLocaleAware(true);
    words_->sort(0);
    QListView* list = ui_->index_list;
    list->setModel(words_);
    hint_when_empty(*list, tr("The index has no such word."));
    select_on_entry(*ui_->index_box);
    connect(ui_->index_box, &QLineEdit::textChanged, words_,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(ui_->index_box, &QLineEdit::returnPressed, this,
            [this] { open_word(words_->index(0, 0)); });
    connect(list, &QAbstractItemView::activated, this, &HelpWindow::open_word);
    connect(list, &QAbstractItemView::clicked, this, &HelpWindow::open_word);
    on_keys(*ui_->index_box, Qt::Key_Down, [list] {
        list->setFocus();
        if (!list->currentIndex().isValid()) list->setCurrentIndex(list->model()->index(0, 0));
    });
}

void HelpWindow::connect_search() {
    QListWidget* list = ui_->search_list;
    select_on_entry(*ui_->search_box);
    connect(ui_->search_box, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(ui_->search_box, &QLineEdit::returnPressed, this, [this] { open_hit(0); });
    connect(list, &QAbstractItemView::activated, this,
            [this](const QModelIndex& place) { open_hit(place.row()); });
    connect(list, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& place) { open_hit(place.row()); });
    on_keys(*ui_->search_box, Qt::Key_Down, [list] {
        list->setFocus();
        if (list->currentRow() < 0) list->setCurrentRow(0);
    });
}

void HelpWindow::connect_find_bar() {
    constexpr int comfortable_letters = 16;
    ui_->find_box->setMinimumWidth(letters_wide(*this, comfortable_letters));
    select_on_entry(*ui_->find_box);
    connect(ui_->find_box, &QLineEdit::textChanged, ui_->find_notice, &QLabel::clear);
    connect(ui_->find_box, &QLineEdit::returnPressed, this, [this] { find_in_page(false); });
    connect(ui_->find_next, &QPushButton::clicked, this, [this] { find_in_page(false); });
    connect(ui_->find_previous, &QPushButton::clicked, this, [this] { find_in_page(true); });
    connect(ui_->find_close, &QPushButton::clicked, this, &HelpWindow::close_last_opened);
    enter_presses_buttons(*ui_->find_bar);
}

void HelpWindow::connect_keys() {
    const auto on = [this](const QKeySequence& keys, auto command) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, command);
    };
    on(Qt::Key_F6, [this] { go_to_next_part(); });
    on(Qt::Key_Escape, [this] { close_last_opened(); });
    on(Qt::Key_F3, [this] { find_in_page(false); });
    on(Qt::SHIFT | Qt::Key_F3, [this] { find_in_page(true); });
}

// --- the window ----------------------------------------------------------------------------------

void HelpWindow::show_contents() {
    ui_->help_tabs->setCurrentWidget(ui_->contents_tab);
    ui_->page->setSource(book_.contents_page());
    come_up();
    ui_->contents_tree->setFocus();
}

void HelpWindow::show_search() {
    ui_->help_tabs->setCurrentWidget(ui_->search_tab);
    if (ui_->page->source().isEmpty()) ui_->page->setSource(book_.contents_page());
    come_up();
    ui_->search_box->setFocus();
    ui_->search_box->selectAll();
}

void HelpWindow::show_page(const QUrl& page) {
    if (ui_->help_tabs->currentWidget() == ui_->search_tab) {
        ui_->help_tabs->setCurrentWidget(ui_->contents_tab);  // what was searched is no more asked
    }
    ui_->page->setSource(page);
    come_up();
    ui_->page->setFocus();
}

// A window that is modal keeps all others from the user but those that belong to it.
void HelpWindow::come_up() {
    restore();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    const QWidget* modal = QApplication::activeModalWidget();
    windowHandle()->setTransientParent(modal == nullptr ? nullptr : modal->windowHandle());
    raise();
    activateWindow();
}

void HelpWindow::restore() {
    if (std::exchange(restored_, true)) return;
    constexpr int comfortable_letters = 116;
    constexpr int comfortable_lines = 42;
    resize(
        QSize(letters_wide(*this, comfortable_letters), fontMetrics().height() * comfortable_lines)
            .boundedTo(screen()->availableSize()));
    quietly([this] {
        const auto stored = [](const char* key) {
            return QByteArray::fromStdString(settings_store().get(settings_section, key));
        };
        restoreGeometry(QByteArray::fromBase64(stored(place_key)));
        ui_->page->set_text_step(stored(text_key).toInt());
    });
    restore_screen(*this);
}

void HelpWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (event->spontaneous()) return;
    remember_screen(*this);
    quietly([this] {
        settings_store().set(settings_section, place_key, saveGeometry().toBase64().toStdString());
        settings_store().set(settings_section, text_key, std::to_string(ui_->page->text_step()));
    });
}

QWidget& HelpWindow::part_in_front() const {
    const QWidget* tab = ui_->help_tabs->currentWidget();
    if (tab == ui_->index_tab) return *ui_->index_box;
    if (tab == ui_->search_tab) return *ui_->search_box;
    return *ui_->contents_tree;
}

// Beside the page, the page, its find bar, and around again.
void HelpWindow::go_to_next_part() {
    const QWidget* focused = focusWidget();
    if (ui_->help_tabs->isAncestorOf(focused)) return ui_->page->setFocus(Qt::TabFocusReason);
    const bool in_page = focused == ui_->page;
    QWidget& next = in_page && ui_->find_bar->isVisible() ? *ui_->find_box : part_in_front();
    next.setFocus(Qt::TabFocusReason);
}

void HelpWindow::close_last_opened() {
    if (ui_->find_bar->isHidden()) {
        close();
        return;
    }
    ui_->find_bar->hide();
    ui_->page->setFocus();
}

void HelpWindow::show_where(const QUrl& page) {
    const QString title = ui_->page->documentTitle();
    const QString name = tr("Tavernook Help");
    setWindowTitle(title == name ? name : tr("%1 - %2").arg(title, name));
    ui_->find_notice->clear();
    mark_row(*ui_->contents_tree, {});
    mark_in_contents({}, page);
}

void HelpWindow::mark_in_contents(const QModelIndex& parent, const QUrl& page) {
    const QAbstractItemModel& contents = *ui_->contents_tree->model();
    for (int row = 0; row < contents.rowCount(parent); ++row) {
        const QModelIndex place = contents.index(row, 0, parent);
        if (book_.page_at(place) == page) mark_row(*ui_->contents_tree, place);
        mark_in_contents(place, page);
    }
}

// --- words ---------------------------------------------------------------------------------------

void HelpWindow::open_word(const QModelIndex& word) {
    if (word.isValid()) ui_->page->setSource(book_.page_about(word.data().toString()));
}

void HelpWindow::search() {
    const QString words = ui_->search_box->text().simplified();
    ui_->search_list->clear();
    if (words.isEmpty()) {
        ui_->search_notice->setText(tr("Pages that have all the words are listed here."));
        return;
    }
    if (search_->is_empty()) {
        for (const QUrl& page : book_.pages()) {
            search_->add_page(page, QString::fromUtf8(book_.bytes(page)));
        }
    }
    for (const HelpHit& hit : search_->find(words)) {
        auto* row = new QListWidgetItem(hit.title + QLatin1Char('\n') + hit.line, ui_->search_list);
        row->setData(Qt::UserRole, hit.page);
    }
    const int count = ui_->search_list->count();
    ui_->search_notice->setText(count == 0 ? tr("No page of the help has \"%1\" in it.").arg(words)
                                : count == 1 ? tr("1 page")
                                             : tr("%1 pages").arg(count));
}

// The first of the words is shown in the page.
void HelpWindow::open_hit(int row) {
    const QListWidgetItem* hit = ui_->search_list->item(row);
    if (hit == nullptr) return;
    ui_->page->setSource(hit->data(Qt::UserRole).toUrl());
    ui_->page->moveCursor(QTextCursor::Start);
    ui_->page->select_next(ui_->search_box->text().simplified().section(QLatin1Char(' '), 0, 0));
}

void HelpWindow::open_find_bar() {
    ui_->find_bar->show();
    ui_->find_box->setFocus();
    ui_->find_box->selectAll();
}

void HelpWindow::find_in_page(bool backwards) {
    const QString words = ui_->find_box->text();
    if (ui_->find_bar->isHidden() || words.isEmpty()) return open_find_bar();
    const bool found = ui_->page->select_next(words, backwards);
    ui_->find_notice->setText(found ? QString() : tr("This page does not have it."));
}

}  // namespace tavernook
