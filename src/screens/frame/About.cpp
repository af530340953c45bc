#include "screens/frame/About.h"

#include <QPushButton>

#include "screens/parts/icons.h"
#include "ui_About.h"

namespace tavernook {

About::About(QWidget* parent) : QDialog(parent) {
    Ui::About ui;
    ui.setupUi(this);
    const int line = fontMetrics().height();
    ui.about_icon->setPixmap(
        icon(QStringLiteral("app")).pixmap(QSize(line * 4, line * 4), devicePixelRatio()));
    ui.about_icon->setAccessibleName(tr("Tavernook's icon"));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    ui.about_name->setFont(large);
    ui.about_version->setText(tr("Version %1").arg(QStringLiteral(TAVERNOOK_VERSION)));
    ui.about_licence->setText(
        tr("Built with Qt %1, used under the GNU Lesser General Public License (LGPL) version 3, "
           "with libmspack and libgcab (LGPL version 2.1), and with libcurl (curl licence).")
            .arg(QLatin1String(qVersion())));
    constexpr int comfortable_letters = 46;
    const int width = fontMetrics().averageCharWidth() * comfortable_letters;
    ui.about_sentence->setMinimumWidth(width);
    ui.about_licence->setMinimumWidth(width);
    QPushButton* ok = ui.about_buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("button_ok"));
    ok->setIcon(QIcon());
    ok->setDefault(true);
}

}  // namespace tavernook
