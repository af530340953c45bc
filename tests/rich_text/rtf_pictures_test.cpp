#include "rich_text/rtf_pictures.h"

#include <QBuffer>
#include <QFile>
#include <gtest/gtest.h>

#include "fakes/temp_folder.h"

namespace tavernook::rtf {
namespace {

QByteArray bytes_of(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QImage plain(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

TEST(RasterPicture, IsReadInEachOfItsFormats) {
    for (const char* format : {"PNG", "JPEG", "BMP"}) {
        const RasterPicture picture = raster_picture(bytes_of(plain(40, 20), format));
        EXPECT_EQ(picture.image.size(), QSize(40, 20)) << format;
    }
}

// A drawing reads what it refers to, other files too.
TEST(RasterPicture, ADrawingIsNoPicture) {
    const QByteArray drawing =
        "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'>"
        "<rect width='8' height='8' fill='red'/></svg>";
    EXPECT_TRUE(raster_picture(drawing).image.isNull());
    EXPECT_TRUE(raster_picture("\xEF\xBB\xBF" + drawing).image.isNull());
    EXPECT_TRUE(raster_picture({}).image.isNull());
}

TEST(RasterPicture, APhotographIsScaledDown) {
    for (const char* format : {"PNG", "JPEG"}) {
        const RasterPicture picture = raster_picture(bytes_of(plain(4000, 3000), format));
        EXPECT_EQ(picture.image.size(), QSize(1600, 1200)) << format;
    }
    EXPECT_EQ(kept_picture(plain(1600, 9)).size(), QSize(1600, 9));
    EXPECT_EQ(kept_picture(plain(8, 3200)).size(), QSize(4, 1600));
    EXPECT_EQ(kept_picture(plain(5000, 1)).size(), QSize(1600, 1));
}

TEST(RasterPicture, TooManyPixelsAreToldBeforeTheyAreDrawn) {
    QImage large(5000, 6001, QImage::Format_Mono);
    large.fill(0);
    EXPECT_TRUE(raster_picture(bytes_of(large, "PNG")).is_too_large);
    EXPECT_FALSE(raster_picture(bytes_of(plain(3, 3), "PNG")).is_too_large);
}

}  // namespace
}  // namespace tavernook::rtf
