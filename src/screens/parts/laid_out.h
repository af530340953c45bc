// A widget and its layout file, so that the controls are there before the members that name them.
#pragma once

#include <memory>

namespace tavernook {

// The layout, set up in the widget; the first member of its class.
template <typename Layout, typename Widget>
std::unique_ptr<Layout> laid_out(Widget& widget) {
    auto layout = std::make_unique<Layout>();
    layout->setupUi(&widget);
    return layout;
}

}  // namespace tavernook
