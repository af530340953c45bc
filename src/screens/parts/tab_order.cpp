#include "screens/parts/tab_order.h"

#include <QWidget>

namespace tavernook {

void set_tab_order(const std::vector<QWidget*>& parts) {
    for (std::size_t place = parts.size(); place-- > 1;) {
        QWidget::setTabOrder(parts.front(), parts[place]);
    }
}

}  // namespace tavernook
