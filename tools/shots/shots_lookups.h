// Pictures of the screens around stores, units, lots and measures.
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace tavernook {

class Main;

using TakePicture = std::function<void(const QString& name, QWidget& window)>;

// Fills the open project with a small household for it, and empties what it filled afterwards.
void take_lookup_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
