#include "platform_web/qt_print_prompt.h"

#include <QLocale>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <set>

#include "basics/code_page.h"

namespace tavernook {

namespace {

QPageSize usual_paper() {
    static const std::set<QLocale::Territory> with_letter = {
        QLocale::UnitedStates, QLocale::Canada,    QLocale::Mexico,    QLocale::Belize,
        QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica, QLocale::ElSalvador,
        QLocale::Guatemala,    QLocale::Nicaragua, QLocale::Panama,    QLocale::Philippines,
        QLocale::PuertoRico,   QLocale::Venezuela};
    const bool is_letter = with_letter.count(QLocale().territory()) > 0;
    return QPageSize(is_letter ? QPageSize::Letter : QPageSize::A4);
}

}  // namespace

std::shared_ptr<QPrinter> QtPrintPrompt::ask(QWidget& over, const std::string& title,
                                             bool is_wide) {
    constexpr double margin_mm = 10;
    const QString shown_title = QString::fromStdString(utf8_from_text(title));
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageSize(usual_paper());
    if (is_wide) printer->setPageOrientation(QPageLayout::Landscape);
    printer->setPageMargins(QMarginsF(margin_mm, margin_mm, margin_mm, margin_mm),
                            QPageLayout::Millimeter);
    printer->setDocName(shown_title);
    // The window under it may go, and take it along, while it asks.
    const QPointer<QPrintDialog> dialog = new QPrintDialog(printer.get(), &over);
    dialog->setObjectName(QStringLiteral("print_dialog"));
    dialog->setWindowTitle(QStringLiteral("Print - ") + shown_title);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (dialog.isNull()) return nullptr;
    delete dialog;
    return accepted ? printer : nullptr;
}

}  // namespace tavernook
