#include "platform_qt/qt_text.h"

#include <gtest/gtest.h>

namespace tavernook {
namespace {

TEST(QtText, AccentsAndSignsOfTheCodePage) {
    EXPECT_EQ(text_to_qstring("Cr\xE8me br\xFBl\xE9"
                              "e \x80 5"),
              QString::fromUtf16(u"Cr\u00E8me br\u00FBl\u00E9e \u20AC 5"));
    EXPECT_EQ(qstring_to_text(QString::fromUtf16(u"\u0153uf \u2026 \u20AC")), "\x9Cuf \x85 \x80");
}

TEST(QtText, CharactersOutsideTheCodePageBecomeOneQuestionMarkEach) {
    EXPECT_EQ(qstring_to_text(QString::fromUtf16(u"a\u03B1b\U0001F372c")), "a?b?c");
    EXPECT_EQ(qstring_to_text(QString(QChar(0xD83C))), "?");
}

TEST(QtText, EveryByteComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(text_to_qstring(all).size(), 256);
    EXPECT_EQ(qstring_to_text(text_to_qstring(all)), all);
}

TEST(QtText, LineEndsStay) {
    EXPECT_EQ(text_to_qstring("a\r\nb\rc\n"), QStringLiteral("a\r\nb\rc\n"));
}

TEST(QtText, PathsAreUtf8) {
    const std::string path =
        "/home/K\xC3\xBC"
        "che/\xF0\x9F\x8D\xB2.tvk";
    EXPECT_EQ(path_to_qstring(path), QString::fromUtf16(u"/home/K\u00FCche/\U0001F372.tvk"));
    EXPECT_EQ(qstring_to_path(path_to_qstring(path)), path);
}

}  // namespace
}  // namespace tavernook
