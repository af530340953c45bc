// The child screens by name: how each is made, and which of them are loaded. A screen is loaded by
// showing it and unloaded by closing it; loading one that is loaded gives the same one again.
#pragma once

#include <QMdiArea>
#include <QPointer>
#include <QString>
#include <functional>
#include <map>

#include "platform/main_window.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

class LateFront;

// How a screen comes up: over the whole area as long as the user has not arranged the screens
// otherwise, or as a window in the middle, of the size of what it shows.
enum class Opens { over_the_area, at_its_size };

class ScreenRegistry : public ports::Screens, public ScreenSwitch {
  public:
    // Makes a screen; it becomes the content of a child window and goes with it.
    using Factory = std::function<QWidget*()>;

    // The area outlives the registry's use.
    explicit ScreenRegistry(QMdiArea& area);

    void add(const QString& name, Factory factory, Opens opens = Opens::over_the_area);

    // A window that is none of the area's: `come_up` shows it. It is never loaded here, and what
    // is asked of all screens does not concern it.
    void add_window(const QString& name, std::function<void()> come_up);

    // `changed` is called when a child window has gone from sight without being closed.
    void when_hidden(std::function<void()> changed) { hidden_ = std::move(changed); }
    bool knows(const QString& name) const {
        return kinds_.count(name) > 0 || windows_.count(name) > 0;
    }

    // Nothing while the screen is not loaded.
    QWidget* loaded(const QString& name) const override;

    // These return false for a screen that is not known. `show` brings a loaded screen to the
    // front. Of those over the area the first comes up as it was last left, at first maximised, and
    // further ones follow what the user has. None changes how another one stands.
    bool load(const QString& name) override;
    bool show(const QString& name) override;

    // Lets every loaded screen ask about edits that were not accepted yet; false as soon as the
    // user wants to stay with some.
    [[nodiscard]] bool settle_edits();

    // Asks where a print or a save would be lost; false as soon as the user wants to wait for one.
    [[nodiscard]] bool may_end_work();

    // The one in front, and those that usually do, fill the area.
    void give_full_size();

    void unload_all() override;
    void hide_all() override;
    void show_meal_plan() override { show(QStringLiteral("MealPlan")); }
    void load_food_inventory() override { load(QStringLiteral("FoodInventory")); }

    // Over a dialog that keeps the main window from the user it comes in a window of its own, and
    // returns when that is closed.
    void show_preview() override;

  private:
    struct Kind {
        Factory factory;
        Opens opens;
    };

    void come_up(const QString& name);
    void show_over(QWidget& dialog, const QString& name);
    bool comes_over_the_area(const QMdiSubWindow& child) const;
    const QMdiSubWindow* front_one_over_the_area() const;

    QMdiArea& area_;
    LateFront& front_;
    std::map<QString, Kind> kinds_;
    std::map<QString, std::function<void()>> windows_;
    std::map<QString, QPointer<QWidget>> loaded_;
    std::function<void()> hidden_;
};

}  // namespace tavernook
