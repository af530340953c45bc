#include "screens/parts/icons.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QMenu>
#include <QPalette>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "gui_support/warning_guard.h"
#include "screens/frame/main_commands_table.h"
#include "screens/parts/house_colours.h"

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

    static QColor accent() { return house_colour(HouseColour::accent, QGuiApplication::palette()); }

    // The colours of all fully covered pixels, at a size where every part of a drawing has some.
    static std::set<QRgb> colours(const QString& name, QIcon::Mode mode) {
        const QImage image = icon(name).pixmap(QSize(96, 96), 1.0, mode).toImage();
        std::map<QRgb, int> found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).alpha() == 255) ++found[image.pixelColor(x, y).rgb()];
            }
        }
        // Where two colours meet there are a few pixels of both.
        std::set<QRgb> many;
        for (const auto& [colour, count] : found) {
            if (count > 12) many.insert(colour);
        }
        return many;
    }

    static QStringList names() {
        QStringList found =
            QDir(QStringLiteral(TAVERNOOK_SOURCE_FOLDER "/assets/icons")).entryList({"*.svg"});
        for (QString& name : found) name.chop(4);
        return found;
    }
    static QByteArray text_of(const QString& name) {
        QFile file(QStringLiteral(TAVERNOOK_SOURCE_FOLDER "/assets/icons/%1.svg").arg(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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

TEST_F(Icons, AreListedOneByOneAndHaveNoColourButThoseThatAreReplaced) {
    QFile list(QStringLiteral(TAVERNOOK_SOURCE_FOLDER "/assets/icons/icons.qrc"));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    const QByteArray listed = list.readAll();
    const QRegularExpression paint(QStringLiteral("(?:stroke|fill|color)=\"([^\"]*)\""));
    for (const QString& name : names()) {
        EXPECT_TRUE(listed.contains("<file>" + name.toLatin1() + ".svg</file>"))
            << name.toStdString();
        EXPECT_TRUE(QSvgRenderer(text_of(name)).isValid()) << name.toStdString();
        const QString text = QString::fromLatin1(text_of(name));
        EXPECT_FALSE(text.contains("style=")) << name.toStdString();
        auto found = paint.globalMatch(text);
        while (found.hasNext()) {
            const QString colour = found.next().captured(1);
            const QStringList known{"none", "currentColor", "#a84f2c", "#b3142e", "#8a6100"};
            EXPECT_TRUE(known.contains(colour)) << name.toStdString() << " " << qPrintable(colour);
        }
    }
}

// Arrows of controls are lines alone, signs of stock have their own colour alone.
TEST_F(Icons, EveryCommandHasALineAndAPartInTheAccentColour) {
    const QPalette palette = QGuiApplication::palette();
    const QRgb text = palette.color(QPalette::WindowText).rgb();
    const QRgb past = house_colour(HouseColour::past_date, palette).rgb();
    const QRgb low = house_colour(HouseColour::low, palette).rgb();
    const std::map<QString, std::set<QRgb>> others = {{"more", {text}},     {"next", {text}},
                                                      {"previous", {text}}, {"past_date", {past}},
                                                      {"clock", {low}},     {"low", {low}}};
    for (const QString& name : names()) {
        const std::set<QRgb> seen = colours(name, QIcon::Normal);
        if (const auto other = others.find(name); other != others.end()) {
            EXPECT_EQ(seen, other->second) << name.toStdString();
        } else {
            EXPECT_TRUE(seen.contains(text)) << name.toStdString();
            EXPECT_TRUE(seen.contains(accent().rgb())) << name.toStdString();
        }
    }
}

TEST_F(Icons, HaveOneToneWhenTheyAreDisabledOrSelected) {
    use_text_colours(Qt::black, Qt::green, Qt::blue);
    for (const QString& name : names()) {
        EXPECT_EQ(colours(name, QIcon::Disabled), std::set<QRgb>{QColor(Qt::green).rgb()})
            << name.toStdString();
        EXPECT_EQ(colours(name, QIcon::Selected), std::set<QRgb>{QColor(Qt::blue).rgb()})
            << name.toStdString();
    }
}

TEST_F(Icons, KeepTheirAccentUnderThePointerButNotInAnOpenMenu) {
    const QRgb text = QGuiApplication::palette().color(QPalette::WindowText).rgb();
    EXPECT_TRUE(colours("save", QIcon::Active).contains(accent().rgb()));
    QMenu menu;
    menu.addAction("Copy");
    menu.popup(QPoint(0, 0));
    EXPECT_EQ(colours("save", QIcon::Active), std::set<QRgb>{text});
    EXPECT_TRUE(colours("save", QIcon::Normal).contains(accent().rgb()));
    menu.close();
}

TEST_F(Icons, TheAccentFollowsThePalette) {
    QPalette dark(QColor("#2d2d30"), QColor("#252528"));
    dark.setColor(QPalette::Base, QColor("#1e1e20"));
    dark.setColor(QPalette::WindowText, QColor("#e6e6e6"));
    const QRgb on_light = accent().rgb();
    EXPECT_TRUE(colours("save", QIcon::Normal).contains(on_light));
    QGuiApplication::setPalette(dark);
    ASSERT_NE(accent().rgb(), on_light);
    EXPECT_TRUE(colours("save", QIcon::Normal).contains(accent().rgb()));
    EXPECT_FALSE(colours("save", QIcon::Normal).contains(on_light));
}

TEST_F(Icons, AnUnknownOneDrawsNothing) {
    const QIcon drawn = icon("no such picture");
    EXPECT_TRUE(drawn.isNull());
    EXPECT_FALSE(line(drawn, QIcon::Normal).isValid());
}

}  // namespace
}  // namespace tavernook
