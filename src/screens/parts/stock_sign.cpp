#include "screens/parts/stock_sign.h"

#include <QGuiApplication>
#include <QPalette>

#include "inventory/item_form.h"
#include "screens/parts/house_colours.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

StockSign stock_sign_of(i16 item) {
    if (item == 0) return StockSign::none;
    const Attention attention = attention_of(item);
    return attention.expired        ? StockSign::past_date
           : attention.expires_soon ? StockSign::soon
           : attention.low          ? StockSign::low
                                    : StockSign::none;
}

QString stock_words(i16 item) {
    return item == 0 ? QString() : shown_text(attention_text(attention_of(item)));
}

QIcon sign_icon(StockSign sign) {
    switch (sign) {
        case StockSign::past_date:
            return icon(QStringLiteral("past_date"));
        case StockSign::soon:
            return icon(QStringLiteral("clock"));
        case StockSign::low:
            return icon(QStringLiteral("low"));
        default:
            return {};
    }
}

QVariant sign_data(StockSign sign, int role) {
    if (sign == StockSign::none) return {};
    if (role == Qt::DecorationRole) return sign_icon(sign);
    if (role != Qt::ForegroundRole) return {};
    const bool is_past = sign == StockSign::past_date;
    return house_colour(is_past ? HouseColour::past_date : HouseColour::low,
                        QGuiApplication::palette());
}

}  // namespace tavernook
