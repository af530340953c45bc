#include "screens/frame/Splash.h"

#include <QCoreApplication>
#include <QScreen>

#include "screens/parts/icons.h"
#include "ui_Splash.h"

namespace tavernook {

Splash::Splash()
    : QFrame(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      ui_(std::make_unique<Ui::Splash>()) {
    ui_->setupUi(this);
    const int line = fontMetrics().height();
    ui_->splash_icon->setPixmap(
        icon(QStringLiteral("app")).pixmap(QSize(line * 5, line * 5), devicePixelRatio()));
    ui_->splash_icon->setAccessibleName(tr("Tavernook's icon"));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 2);
    ui_->splash_name->setFont(large);
    ui_->splash_version->setText(tr("Version %1").arg(QStringLiteral(TAVERNOOK_VERSION)));
}

Splash::~Splash() = default;

void Splash::come_up() {
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
    show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace tavernook
