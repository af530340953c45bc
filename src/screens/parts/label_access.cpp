#include "screens/parts/label_access.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTextDocumentFragment>
#include <algorithm>

namespace tavernook {

namespace {

// As it is seen: the mark of a letter only counts where the label belongs to a field.
QString seen_text(const QLabel& label) {
    QString text = label.text();
    const bool rich = label.textFormat() == Qt::RichText ||
                      (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(text));
    if (rich) text = QTextDocumentFragment::fromHtml(text).toPlainText();
    return label.buddy() == nullptr ? text : text.remove(QLatin1Char('&'));
}

QString caption_of(const QLabel& label) {
    const QString beside = label.property("caption").toString();
    if (beside.isEmpty()) return label.accessibleName();
    const auto* caption = label.parentWidget()->findChild<QLabel*>(beside);
    QString text = caption == nullptr ? QString() : caption->text().trimmed();
    if (text.endsWith(QLatin1Char(':'))) text.chop(1);
    return text;
}

class LabelAccess : public QAccessibleWidget {
  public:
    explicit LabelAccess(QLabel& label)
        : QAccessibleWidget(&label, QAccessible::StaticText), label_(label) {}

    QAccessible::Role role() const override {
        return label_.property("announces").toBool() ? QAccessible::Notification
                                                     : QAccessible::StaticText;
    }

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
        const QString caption = caption_of(label_);
        const QString value = seen_text(label_);
        if (caption.isEmpty() || value.isEmpty()) return caption + value;
        return caption + QLatin1String(": ") + value;
    }

    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        if (label_.buddy() != nullptr && (match & QAccessible::Labelled) != 0) {
            found.append(
                {QAccessible::queryAccessibleInterface(label_.buddy()), QAccessible::Labelled});
        }
        return found;
    }

  private:
    const QLabel& label_;
};

QLabel* label_of(const QComboBox& box) {
    const auto beside = box.parentWidget()->findChildren<QLabel*>();
    const auto found = std::find_if(beside.begin(), beside.end(),
                                    [&box](const QLabel* label) { return label->buddy() == &box; });
    return found == beside.end() ? nullptr : *found;
}

// The label out of sight is no part of any layout.
void label_box(QComboBox& box) {
    if (box.parentWidget() == nullptr) return;
    QLabel* label = label_of(box);
    if (label == nullptr) {
        label = new QLabel(box.accessibleName(), box.parentWidget());
        label->setBuddy(&box);
        label->hide();
    }
    QLineEdit* line = box.lineEdit();
    if (line == nullptr || !line->accessibleName().isEmpty()) return;
    line->setAccessibleName(box.accessibleName().isEmpty() ? seen_text(*label)
                                                           : box.accessibleName());
}

// A picture is left to Qt, and so is a box once it has its label.
QAccessibleInterface* access_of(const QString& kind, QObject* object) {
    if (kind == QLatin1String("QComboBox")) label_box(*qobject_cast<QComboBox*>(object));
    if (kind != QLatin1String("QLabel")) return nullptr;
    auto* label = qobject_cast<QLabel*>(object);
    const bool has_words = label != nullptr && label->pixmap(Qt::ReturnByValue).isNull();
    return has_words ? new LabelAccess(*label) : nullptr;
}

}  // namespace

void install_label_access() {
    static const bool installed = [] {
        QAccessible::installFactory(access_of);
        return true;
    }();
    Q_UNUSED(installed);
}

void announce(QLabel& label) {
    for (const auto what :
         {QAccessible::NameChanged, QAccessible::Alert, QAccessible::ObjectShow}) {
        QAccessibleEvent event(&label, what);
        QAccessible::updateAccessibility(&event);
    }
}

}  // namespace tavernook
