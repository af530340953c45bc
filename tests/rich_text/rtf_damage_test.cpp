#include <QBuffer>
#include <QImage>
#include <random>

#include "rich_text/rtf_testing.h"

namespace tavernook::rtf {
namespace {

// Black and white, so that its bytes are few.
std::string blank_picture(int width, int height) {
    QImage image(width, height, QImage::Format_Mono);
    image.fill(0);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return "{\\pict\\pngblip " + png.toHex().toStdString() + "}";
}

TEST(RtfDamage, WhatIsNoRichTextIsATypeMismatch) {
    EXPECT_EQ(fault_of(""), fault_number::type_mismatch);
    EXPECT_EQ(fault_of("plain words"), fault_number::type_mismatch);
    EXPECT_EQ(fault_of("{\\html}"), fault_number::type_mismatch);
}

TEST(RtfDamage, GroupsAreBounded) {
    const auto nested = [](std::size_t groups) {
        return "{\\rtf1" + std::string(groups, '{') + "x" + std::string(groups, '}') + "}";
    };
    EXPECT_EQ(fault_of(nested(199)), 0);
    EXPECT_EQ(fault_of(nested(200)), fault_number::bad_record_number);
}

TEST(RtfDamage, ParagraphsAreBounded) {
    std::string text = "{\\rtf1";
    for (int i = 0; i < 200'001; ++i) text += "\\par";
    EXPECT_EQ(fault_of(text + "}"), fault_number::bad_record_number);
}

TEST(RtfDamage, APictureOfMoreThanThirtyMillionPixelsIsLeftOut) {
    EXPECT_EQ(parse("{\\rtf1" + blank_picture(5000, 6000) + "}").pictures.size(), 1u);
    EXPECT_EQ(parse("{\\rtf1" + blank_picture(5000, 6001) + "}").pictures.size(), 0u);
}

TEST(RtfDamage, NoFurtherPictureIsDrawnAfterAHundredMillionPixels) {
    const std::string large = blank_picture(5000, 6000);
    const std::string small = blank_picture(8, 8);
    const std::string ninety = "{\\rtf1" + large + large + large;
    EXPECT_EQ(parse(ninety + small + large + small + "}").pictures.size(), 5u);
    EXPECT_EQ(parse(ninety + blank_picture(4000, 2500) + small + "}").pictures.size(), 4u);
}

TEST(RtfDamage, AMissingEndIsAFault) {
    EXPECT_EQ(fault_of("{\\rtf1 a{b}"), fault_number::bad_record_number);
}

TEST(RtfDamage, WhatFollowsTheEndIsIgnored) {
    EXPECT_EQ(text_of(std::string("{\\rtf1 a}\0}}x", 13)), "a");
}

TEST(RtfDamage, AFaultLeavesTheDocument) {
    QTextDocument document;
    document.setPlainText(QStringLiteral("before"));
    EXPECT_THROW(read("{\\rtf1 after", document), Fault);
    EXPECT_EQ(document.toPlainText(), QStringLiteral("before"));
}

TEST(RtfDamage, EverySampleIsReadWhole) {
    const auto files = sample_files();
    ASSERT_FALSE(files.empty());
    for (const auto& file : files) {
        QTextDocument document;
        EXPECT_NO_THROW(read(file_bytes(file), document)) << file;
        EXPECT_FALSE(document.isEmpty()) << file;
    }
}

// Some writers leave more behind the end; without that a text loses nothing.
TEST(RtfDamage, ACutFileIsRefusedOrLosesNothing) {
    for (const auto& file : sample_files()) {
        const std::string bytes = file_bytes(file);
        const std::string whole = text_of(bytes);
        int refused = 0;
        for (std::size_t size = 0; size < bytes.size(); size += 50) {
            const std::string_view cut = std::string_view(bytes).substr(0, size);
            if (fault_of(cut) != 0) {
                ++refused;
            } else {
                EXPECT_EQ(text_of(cut), whole) << file << " " << size;
            }
        }
        EXPECT_GT(refused, 0) << file;
    }
}

TEST(RtfDamage, EveryCutOfTheOfficeSuitesDocumentIsAFault) {
    const std::string bytes =
        file_bytes(std::string(TAVERNOOK_TEST_DATA) + "/rtf/office_suite.rtf");
    const std::size_t end = bytes.rfind('}');
    for (std::size_t size = 0; size <= end; size += size < 200 ? 1 : 7) {
        const int expected =
            size < 5 ? fault_number::type_mismatch : fault_number::bad_record_number;
        ASSERT_EQ(fault_of(std::string_view(bytes).substr(0, size)), expected) << size;
    }
}

TEST(RtfDamage, RandomDamageIsReadOrRefused) {
    std::mt19937 random(20);
    const std::string signs = "{}\\\\'*;0189abfu \n\xff";
    for (const auto& file : sample_files()) {
        const std::string whole = file_bytes(file);
        for (int round = 0; round < 60; ++round) {
            std::string bytes = whole;
            for (int i = 0; i < 12; ++i) {
                bytes[6 + random() % (bytes.size() - 6)] = signs[random() % signs.size()];
            }
            const int fault = fault_of(bytes);
            EXPECT_TRUE(fault == 0 || fault == fault_number::bad_record_number) << file << fault;
        }
    }
}

}  // namespace
}  // namespace tavernook::rtf
