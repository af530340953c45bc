#include "screens/parts/icons.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <gtest/gtest.h>
#include <set>

#include "gui_support/warning_guard.h"
#include "screens/frame/main_commands_table.h"

namespace tavernook {
namespace {

class Icons : public testing::Test {
  protected:
    ~Icons() override { QGuiApplication::setPalette(QPalette()); }

    // The colour of the icon's fully covered pixels; invalid when it draws nothing.
    static QColor line(const QIcon& drawn, QIcon::Mode mode) {
        const QImage image = drawn.pixmap(QSize(96, 96), 1.0, mode).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).alpha() == 255) return image.pixelColor(x, y);
            }
        }
        return {};
    }

    static void use_text_colours(const QColor& normal, const QColor& disabled,
                                 const QColor& selected) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, normal);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, disabled);
        palette.setColor(QPalette::HighlightedText, selected);
        QGuiApplication::setPalette(palette);
    }
};

TEST_F(Icons, TakeTheirColoursFromThePaletteAndFollowIt) {
    const QIcon drawn = icon("save");
    use_text_colours(Qt::red, Qt::green, Qt::blue);
    EXPECT_EQ(line(drawn, QIcon::Normal), QColor(Qt::red));
    EXPECT_EQ(line(drawn, QIcon::Disabled), QColor(Qt::green));
    EXPECT_EQ(line(drawn, QIcon::Selected), QColor(Qt::blue));
    use_text_colours(Qt::white, Qt::gray, Qt::yellow);
    EXPECT_EQ(line(drawn, QIcon::Normal), QColor(Qt::white));
}

TEST_F(Icons, AreDrawnInEveryDevicePixel) {
    const QPixmap fine = icon("save").pixmap(QSize(24, 24), 2.0);
    EXPECT_EQ(fine.size(), QSize(48, 48));
    EXPECT_EQ(fine.devicePixelRatio(), 2.0);
    const QPixmap scaled = icon("save").pixmap(QSize(24, 24), 1.0).scaled(48, 48);
    EXPECT_NE(fine.toImage(), scaled.toImage());
}

TEST_F(Icons, EveryCommandsIconIsThereAndLooksDifferent) {
    std::set<QByteArray> seen;
    int count = 0;
    for (const MainCommand& command : main_commands()) {
        if (command.icon == nullptr) continue;
        const QIcon drawn = icon(QLatin1String(command.icon));
        EXPECT_FALSE(drawn.isNull()) << command.icon;
        const QImage image = drawn.pixmap(QSize(24, 24), 1.0).toImage();
        seen.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        ++count;
    }
    EXPECT_EQ(count, 15);
    EXPECT_EQ(seen.size(), 15u);
}

TEST_F(Icons, AreOneFamily) {
    const QDir folder(QStringLiteral(TAVERNOOK_SOURCE_FOLDER "/assets/icons"));
    const QStringList names = folder.entryList({"*.svg"});
    QFile list(folder.filePath("icons.qrc"));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    EXPECT_GE(names.size(), 16);
    EXPECT_EQ(list.readAll().count("<file>"), names.size());
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        for (const char* part :
             {"viewBox=\"0 0 24 24\"", "stroke-width=\"1.75\"", "stroke=\"currentColor\"",
              "fill=\"none\"", "stroke-linecap=\"round\"", "stroke-linejoin=\"round\""}) {
            EXPECT_TRUE(text.contains(part)) << name.toStdString() << " lacks " << part;
        }
    }
}

TEST_F(Icons, AnUnknownOneDrawsNothing) {
    const QIcon drawn = icon("no such picture");
    EXPECT_TRUE(drawn.isNull());
    EXPECT_FALSE(line(drawn, QIcon::Normal).isValid());
}

}  // namespace
}  // namespace tavernook
