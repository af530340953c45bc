#include <gtest/gtest.h>

#include "reports/html/BuildHTML.h"

namespace tavernook {
namespace {

TEST(BuildHTML, FragmentsWithoutArguments) {
    EXPECT_EQ(TagHead(),
              "<html><head><meta http-equiv='Content-Language' content='en-us'><meta "
              "http-equiv='Content-Type' content='text/html; charset=windows-1252'><meta "
              "name='GENERATOR' content='Brenwyk'><meta name='ProgId' "
              "content='Brenwyk.Editor.Document'><title>New Page 1</title></head><body>");
    EXPECT_EQ(TagTail(), "</body></html>");
    EXPECT_EQ(TagRow(), "<tr>");
    EXPECT_EQ(TagRowEnd(), "</tr>");
    EXPECT_EQ(TagTableEnd(), "</table>");
    EXPECT_EQ(TagBold(), "<b>");
    EXPECT_EQ(TagBoldEnd(), "</b>");
    EXPECT_EQ(TagRule(), "<hr color='#000080'>");
    EXPECT_EQ(TagFontEnd(), "</font>");
}

TEST(BuildHTML, FragmentsWithArguments) {
    EXPECT_EQ(TagTable(1, 100), "<table border='1' width='100%'>");
    EXPECT_EQ(TagPara("Milk", 2), "<p><font face='Arial' size='2'>Milk</font></p>");
    EXPECT_EQ(TagLine("Milk", 3),
              "<p style='margin-top: 0; margin-bottom: 0'><font size='3' face='Arial'>Milk</font>"
              "</p>");
    EXPECT_EQ(TagCell("Milk", 6), "<td width='20%'><font face='Arial' size='6'>Milk</font></td>");
    EXPECT_EQ(TagFont("arial", 1), "<font face='arial' size='1'>");
}

TEST(BuildHTML, AWidthOf0IsWritten) {
    EXPECT_EQ(TagTable(0, 0), "<table border='0' width='0%'>");
}

TEST(BuildHTML, NumbersArePlain) {
    EXPECT_EQ(TagTable(-1, 32767), "<table border='-1' width='32767%'>");
}

TEST(BuildHTML, AnEmptyTextGivesTheEmptyElement) {
    EXPECT_EQ(TagPara("", 1), "<p><font face='Arial' size='1'></font></p>");
    EXPECT_EQ(TagCell("", 1), "<td width='20%'><font face='Arial' size='1'></font></td>");
}

TEST(BuildHTML, TextStandsAsItIs) {
    EXPECT_EQ(TagCell("<b>Salt & 'Pepper'</b>\x80", 1),
              "<td width='20%'><font face='Arial' size='1'><b>Salt & 'Pepper'</b>\x80"
              "</font></td>");
}

}  // namespace
}  // namespace tavernook
