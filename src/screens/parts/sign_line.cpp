#include "screens/parts/sign_line.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

namespace tavernook {

SignLine::SignLine(QWidget* parent)
    : QWidget(parent), picture_(new QLabel(this)), words_(new QLabel(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(picture_);
    row->addWidget(words_, 1);
    words_->setObjectName(QStringLiteral("attention_words"));
    words_->setAccessibleName(tr("Attention"));
    show_item(0);
}

void SignLine::show_item(i16 item) {
    sign_ = stock_sign_of(item);
    words_->setText(stock_words(item));
    for (QLabel* label : {picture_, words_}) label->setVisible(sign_ != StockSign::none);
    tell_beside();
    draw();
}

void SignLine::tell_beside() {
    const QString name = property("describes").toString();
    if (name.isEmpty()) return;
    auto* described = parentWidget()->findChild<QWidget*>(name);
    if (described != nullptr) described->setAccessibleDescription(words_->text());
}

void SignLine::draw() {
    if (sign_ == StockSign::none) return;
    const int side = fontMetrics().height();
    picture_->setPixmap(sign_icon(sign_).pixmap(QSize(side, side), devicePixelRatioF()));
    QPalette coloured;
    coloured.setColor(QPalette::WindowText, sign_data(sign_, Qt::ForegroundRole).value<QColor>());
    words_->setPalette(coloured);
}

void SignLine::changeEvent(QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::FontChange) draw();
    QWidget::changeEvent(event);
}

}  // namespace tavernook
