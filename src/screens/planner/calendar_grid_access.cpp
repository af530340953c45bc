#include "screens/planner/calendar_grid_access.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>
#include <array>

#include "screens/planner/calendar_grid.h"

namespace tavernook {

namespace {

constexpr int columns = 7;
constexpr int rows = calendar_cell_count / columns;

class CellAccess : public QAccessibleInterface,
                   public QAccessibleTableCellInterface,
                   public QAccessibleActionInterface {
  public:
    CellAccess(CalendarGrid& grid, int number) : grid_(&grid), number_(number) {}

    bool isValid() const override { return !grid_.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        return isValid() ? grid_->window()->windowHandle() : nullptr;
    }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(grid_.data());
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }

    QString text(QAccessible::Text kind) const override {
        if (!isValid()) return {};
        if (kind == QAccessible::Name) return grid_->cell_name(number_);
        if (kind == QAccessible::Description) return grid_->cell_description(number_);
        return {};
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = grid_->cell_rect(number_);
        return {grid_->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.focusable = true;
        state.selectable = true;
        state.selected = isSelected();
        state.focused = isSelected() && grid_->hasFocus();
        state.invisible = !grid_->isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface) {
            return static_cast<QAccessibleTableCellInterface*>(this);
        }
        if (type == QAccessible::ActionInterface) {
            return static_cast<QAccessibleActionInterface*>(this);
        }
        return nullptr;
    }

    bool isSelected() const override { return isValid() && grid_->selected_cell() == number_; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return number_ % columns; }
    int rowIndex() const override { return number_ / columns; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (!isValid()) return;
        if (name == setFocusAction()) grid_->setFocus();
        grid_->choose(number_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    int number() const { return number_; }

  private:
    QPointer<CalendarGrid> grid_;
    int number_;
};

class GridAccess : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit GridAccess(CalendarGrid& grid)
        : QAccessibleWidget(&grid, QAccessible::Table), grid_(grid) {
        for (int number = 0; number < calendar_cell_count; ++number) {
            ids_[static_cast<std::size_t>(number)] =
                QAccessible::registerAccessibleInterface(new CellAccess(grid, number));
        }
    }
    ~GridAccess() override {
        for (const QAccessible::Id id : ids_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return calendar_cell_count; }
    QAccessibleInterface* child(int number) const override {
        if (number < 0 || number >= calendar_cell_count) return nullptr;
        return QAccessible::accessibleInterface(ids_[static_cast<std::size_t>(number)]);
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        const auto* cell = dynamic_cast<const CellAccess*>(wanted);
        return cell != nullptr && child(cell->number()) == wanted ? cell->number() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(grid_.cell_at(grid_.mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override {
        return grid_.hasFocus() ? child(grid_.selected_cell()) : nullptr;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface) {
            return static_cast<QAccessibleTableInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        const bool inside = row >= 0 && row < rows && column >= 0 && column < columns;
        return inside ? child(row * columns + column) : nullptr;
    }
    int selectedCellCount() const override { return grid_.selected_cell() < 0 ? 0 : 1; }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> cells;
        if (grid_.selected_cell() >= 0) cells.append(child(grid_.selected_cell()));
        return cells;
    }
    QString columnDescription(int column) const override {
        return CalendarGrid::column_name(column);
    }
    QString rowDescription(int) const override { return {}; }
    int columnCount() const override { return columns; }
    int rowCount() const override { return rows; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    CalendarGrid& grid_;
    std::array<QAccessible::Id, calendar_cell_count> ids_{};
};

QAccessibleInterface* access_of(const QString& kind, QObject* object) {
    if (kind != QLatin1String(CalendarGrid::staticMetaObject.className())) return nullptr;
    auto* grid = qobject_cast<CalendarGrid*>(object);
    return grid == nullptr ? nullptr : new GridAccess(*grid);
}

}  // namespace

void install_calendar_access() {
    static const bool installed = [] {
        QAccessible::installFactory(access_of);
        return true;
    }();
    Q_UNUSED(installed);
}

}  // namespace tavernook
