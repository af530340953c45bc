#include "screens/pantry/item_list_pane.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>

#include "basics/fault.h"
#include "screens/pantry/barcode_picture.h"
#include "screens/pantry/item_tree.h"
#include "ui_item_list_pane.h"

namespace tavernook {

namespace {

constexpr int few_items = 200;  // so many are shown at once, categories open

std::string populate_error(const Fault& fault) {
    return "ERROR Item Inventory.populate_tree.  ERR = " + std::to_string(fault.number) +
           " DESC = " + fault.description;
}

}  // namespace

ItemListPane::ItemListPane(QWidget* parent)
    : CatagoryTreePane(parent),
      ui_(std::make_unique<Ui::ItemListPane>()),
      barcode_picture_(new QAction(tr("&Barcode Picture"), this)) {
    ui_->setupUi(this);
    set_up({*ui_->filter, *ui_->item_tree, *ui_->tree_hint}, item_tree_contents(),
           {.hint_when_empty = tr("Press \"New Item\" to enter your first item."),
            .hint_when_none_match = tr("No item matches. Esc shows all items again."),
            .opens_up_to = few_items});
    set_up_columns();
    ui_->filter->setMinimumWidth(ui_->filter->fontMetrics().averageCharWidth() * 14);
    connect(ui_->expand_tree, &QPushButton::clicked, this, [this] { expand_all(true); });
    connect(ui_->collapse_tree, &QPushButton::clicked, this, [this] { expand_all(false); });
    connect(ui_->toggle_view, &QPushButton::clicked, this,
            [this] { set_view(model().view() == View::tree ? View::list : View::tree); });
    barcode_picture_->setObjectName(QStringLiteral("barcode_picture"));
    barcode_picture_->setToolTip(tr("Show the item's barcode, and save it as a picture."));
    connect(barcode_picture_, &QAction::triggered, this,
            [this] { Q_EMIT command([item = marked_leaf()] { show_barcode_of(item); }); });
    set_view(View::tree);
}

ItemListPane::~ItemListPane() = default;

void ItemListPane::set_up_columns() {
    const QFontMetrics metrics = fontMetrics();
    ui_->item_tree->header()->setAccessibleName(tr("Columns of the items"));
    ui_->item_tree->setColumnWidth(item_stock_column,
                                   metrics.horizontalAdvance("000.00 bottle(s)"));
    ui_->item_tree->setColumnWidth(
        item_attention_column, metrics.horizontalAdvance("Expires soon") + metrics.height() * 3);
}

void ItemListPane::read(View view) {
    seen_.renew();
    guarded([&] { populate(view); }, populate_error);
}

void ItemListPane::set_view(View view) {
    const bool flat = view == View::list;
    read(view);
    ui_->toggle_view->setText(flat ? QStringLiteral("List") : QStringLiteral("Normal"));
    ui_->toggle_view->setToolTip(
        flat ? tr("Shows all items as one list. Press to see the categories.")
             : tr("Shows the categories. Press to see all items as one list."));
    ui_->toggle_view->setAccessibleName(tr("View: %1").arg(ui_->toggle_view->text()));
    ui_->expand_tree->setEnabled(!flat);
    ui_->collapse_tree->setEnabled(!flat);
}

void ItemListPane::refresh() {
    read(model().view());
}

void ItemListPane::follow_changes() {
    if (seen_.is_stale() && !is_naming()) refresh();
}

void ItemListPane::mark_item(i16 item) {
    mark(item == 0 ? QString() : model().key_of_leaf(item));
}

void ItemListPane::mark_catagory(i16 row) {
    mark(model().key_of_catagory(row));
}

void ItemListPane::set_item_on_show(i16 item) {
    set_on_show(item == 0 ? QString() : model().key_of_leaf(item));
}

std::vector<QWidget*> ItemListPane::boxes_in_order() const {
    return {ui_->filter, ui_->toggle_view, ui_->item_tree, ui_->expand_tree, ui_->collapse_tree};
}

void ItemListPane::set_menu(const MenuCommands& commands) {
    connect(this, &ItemListPane::menu_wanted, this,
            [this, commands](const QPoint& on_screen) { show_menu(on_screen, commands); });
}

void ItemListPane::show_menu(const QPoint& on_screen, const MenuCommands& commands) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("tree_menu"));
    menu.setToolTipsVisible(true);
    barcode_picture_->setEnabled(marked_leaf() != 0);
    menu.addActions({commands.new_item, commands.new_category});
    menu.addSeparator();
    menu.addActions({rename_action(), commands.copy, barcode_picture_, commands.remove});
    menu.addSeparator();
    for (QPushButton* button : {ui_->expand_tree, ui_->collapse_tree}) {
        QAction* entry = menu.addAction(button->text());
        entry->setEnabled(button->isEnabled());
        connect(entry, &QAction::triggered, button, &QAbstractButton::click);
    }
    menu.addSeparator();
    menu.addAction(commands.count_texts);
    menu.exec(on_screen);
}

}  // namespace tavernook
