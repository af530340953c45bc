// What the recipe on show amounts to, and the two boxes for its serving size and unit. What is
// typed into them is the user's until the screen has taken it: the figures around may follow other
// changes meanwhile, the boxes stay.
#pragma once

#include <QGroupBox>
#include <QStringListModel>
#include <memory>
#include <optional>
#include <vector>

#include "recipes/roll_up.h"

namespace tavernook {

namespace Ui {
class FiguresPane;
}

class FiguresPane : public QGroupBox {
    Q_OBJECT

  public:
    explicit FiguresPane(QWidget* parent = nullptr);
    ~FiguresPane() override;

    // The figures, and the boxes as the recipe has them; what was typed goes.
    void show_recipe(const RollUp& figures, f64 serving_size, i16 unit);
    void show_nothing();

    // The figures alone.
    void show_figures(const RollUp& figures);

    // The units as they are now are offered; the boxes keep their texts.
    void offer_units();

    // What the user has typed and nobody has taken. An empty size is 0.
    bool is_edited() const;
    std::optional<f64> typed_size() const;
    std::optional<QString> typed_unit() const;

    std::vector<QWidget*> parts_in_order() const;

  Q_SIGNALS:
    // One of the boxes was left, or Enter pressed, with something typed.
    void serving_entered();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void show_unit(const QString& unit);

    std::unique_ptr<Ui::FiguresPane> ui_;
    QStringListModel* unit_names_;
    QString shown_unit_;
};

}  // namespace tavernook
