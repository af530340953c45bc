#include "screens/cookbook/recipe_list_pane.h"

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include "core/project_data.h"
#include "core/rows.h"
#include "recipes/recipe_names.h"
#include "screens/parts/drag_text.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "ui_recipe_list_pane.h"

namespace tavernook {

namespace {

QString recipe_name(i16 slot) {
    return shown_text(row_or_none(meals, slot).name.trimmed());
}

std::vector<TreeLeaf> live_recipes() {
    std::vector<TreeLeaf> found;
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        if (!is_live_meal(slot)) continue;
        const QString name = folded(recipe_name(slot));
        found.push_back({slot, home_recipe_catagory(slot), name, name});
    }
    return found;
}

// But for projects, which the main window opens.
QStringList dropped_files(const QMimeData& data) {
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        const QString path = url.isLocalFile() ? url.toLocalFile() : QString();
        const bool is_project = path.endsWith(QLatin1String(".tvk"), Qt::CaseInsensitive);
        if (!path.isEmpty() && !is_project) paths.append(path);
    }
    return paths;
}

bool is_link(const QMimeData& data) {
    return data.text().startsWith(QLatin1String("http"), Qt::CaseInsensitive);
}

bool takes_drop(const QMimeData& data) {
    return is_link(data) || !dropped_files(data).isEmpty();
}

}  // namespace

TreeContents RecipeListPane::contents() {
    const auto mark = [](i16) { return QVariant(icon(QStringLiteral("recipes"))); };
    return {.is_shown = is_recipe_catagory,
            .read_leaves = live_recipes,
            .columns = {{.title = {}, .text = recipe_name, .decoration = mark}},
            .drag_text = text_of_dragged_recipe,
            .root_name = QStringLiteral("General"),
            .is_number_first = true,
            .rename_catagory = rename_recipe_catagory,
            .rename_leaf = rename_meal,
            .move_leaf = move_meal,
            .dropped_leaf = [](const QString& text) { return dragged(text).recipe(); },
            .takes_drop = takes_drop,
            .take_drop = [this](const QMimeData& data, i16 row) { take_drop(data, row); }};
}

RecipeListPane::RecipeListPane(QWidget* parent)
    : CatagoryTreePane(parent), ui_(laid_out<Ui::RecipeListPane>(*this)) {
    set_up({*ui_->filter, *ui_->recipe_tree, *ui_->tree_hint}, contents(),
           {.hint_when_empty = tr("Press \"New Recipe\" to write your first recipe."),
            .hint_when_none_match = tr("No recipe matches. Esc shows all recipes again.")});
    connect(this, &CatagoryTreePane::menu_wanted, this, &RecipeListPane::show_menu);
    connect(ui_->recipe_tree, &QTreeView::doubleClicked, this, [this] {
        if (marked_leaf() != 0) Q_EMIT leaf_double_clicked();
    });
    ui_->filter->setMinimumWidth(letters_wide(*ui_->filter, 14));
    ui_->recipe_tree->setMinimumWidth(letters_wide(*ui_->recipe_tree, 24));
}

RecipeListPane::~RecipeListPane() = default;

QString RecipeListPane::key_of_recipe(i16 recipe) {
    return recipe != 0 ? QStringLiteral("%1c").arg(recipe) : QString();
}

QString RecipeListPane::key_of_catagory(i16 row) {
    return row != 0 ? QStringLiteral("%1r").arg(row) : QStringLiteral("r0");
}

i16 RecipeListPane::catagory_for_new() const {
    const i16 recipe = marked_leaf();
    return recipe != 0 ? home_recipe_catagory(recipe) : marked_catagory();
}

void RecipeListPane::take_drop(const QMimeData& data, i16 catagory) {
    if (is_link(data)) return Q_EMIT link_dropped();
    Q_EMIT files_dropped(dropped_files(data), catagory);
}

// A file that is taken is copied, whatever the file manager proposes: one that is moved would go.
bool RecipeListPane::eventFilter(QObject* watched, QEvent* event) {
    const bool enters = event->type() == QEvent::DragEnter;
    if (enters || event->type() == QEvent::DragMove || event->type() == QEvent::Drop) {
        auto& drop = *static_cast<QDropEvent*>(event);
        if (takes_drop(*drop.mimeData())) {
            drop.setDropAction(Qt::CopyAction);
        } else if (enters && drop.mimeData()->hasUrls()) {
            drop.ignore();
            return true;
        }
    }
    return CatagoryTreePane::eventFilter(watched, event);
}

void RecipeListPane::show_menu(const QPoint& on_screen) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("tree_menu"));
    for (QAction* action : menu_) {
        if (action == nullptr) {
            menu.addSeparator();
        } else {
            menu.addAction(action);
        }
    }
    menu.exec(on_screen);
}

void RecipeListPane::follow_changes() {
    if (!seen_.is_stale() || is_naming()) return;
    populate();
    seen_.renew();
}

std::vector<QWidget*> RecipeListPane::parts_in_order() const {
    return {ui_->filter, ui_->recipe_tree};
}

}  // namespace tavernook
