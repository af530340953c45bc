#include "reports/pages/placeholders.h"

#include <gtest/gtest.h>
#include <random>

namespace tavernook {
namespace {

const PageValues values = {{"1", "one"}, {"2", ""}, {"ct12", "plan"}, {"$1", "$3.0"}};

TEST(FirstReplaced, EachPlaceholderOnce) {
    EXPECT_EQ(with_first_replaced("a %1% b %1% c %ct12%%$1%|%2%|", values),
              "a one b %1% c plan$3.0||");
}

TEST(FirstReplaced, CapitalsCount) {
    EXPECT_EQ(with_first_replaced("%CT12% %ct12%", values), "%CT12% plan");
}

TEST(FirstReplaced, ATemplateWithoutPlaceholdersKeepsItsText) {
    for (const char* text :
         {"", "plain", "100%", "%", "%%", "width: 50%; height: 3%", "%3% %ct%"}) {
        EXPECT_EQ(with_first_replaced(text, values), text);
    }
}

TEST(AllReplaced, EveryOccurrence) {
    EXPECT_EQ(with_all_replaced("%1%%1% a %1%|%2%|%2%|", values), "oneone a one|||");
}

TEST(AllReplaced, PercentSignsBesidePlaceholdersStay) {
    EXPECT_EQ(with_all_replaced("100%%1%% and 5% of %1%", values), "100%one% and 5% of one");
}

TEST(AllReplaced, ATemplateWithoutPlaceholdersKeepsItsText) {
    for (const char* text :
         {"", "plain", "100%", "%", "%%", "width: 50%; height: 3%", "%3% %01%"}) {
        EXPECT_EQ(with_all_replaced(text, values), text);
    }
}

TEST(AllReplaced, AValueThatHoldsAPlaceholderStandsAsItIs) {
    EXPECT_EQ(with_all_replaced("%1% %2%", {{"1", "a %1% %2%"}, {"2", "%1%%2%"}}),
              "a %1% %2% %1%%2%");
    EXPECT_EQ(with_first_replaced("%1% %2%", {{"1", "%2%"}, {"2", "b"}}), "%2% b");
}

TEST(NumberedValues, CountFrom1) {
    EXPECT_EQ(numbered_values({"none", "a", "b"}, 2), (PageValues{{"1", "a"}, {"2", "b"}}));
}

TEST(NumberedValues, BehindTheLastEntryStandsNothing) {
    EXPECT_EQ(numbered_values({"", "a"}, 3), (PageValues{{"1", "a"}, {"2", ""}, {"3", ""}}));
    EXPECT_EQ(numbered_values({}, 1), (PageValues{{"1", ""}}));
}

TEST(NumberedValues, ThoseAboveTheCountStayInThePage) {
    EXPECT_EQ(with_all_replaced("%1% %2%", numbered_values({"", "a", "b"}, 1)), "a %2%");
    EXPECT_EQ(with_all_replaced("%1% %10%", numbered_values(std::vector<std::string>(11, "x"), 9)),
              "x %10%");
}

// --- beside the plain way: one placeholder after the other, each searched from the start ---------

std::string one_after_the_other(std::string page, const PageValues& values, bool every) {
    for (const auto& [name, value] : values) {
        const std::string placeholder = "%" + name + "%";
        std::size_t at = page.find(placeholder);
        while (at != std::string::npos) {
            page.replace(at, placeholder.size(), value);
            at = every ? page.find(placeholder) : std::string::npos;
        }
    }
    return page;
}

TEST(Placeholders, OrdinaryValuesComeOutAsInThePlainWay) {
    const std::vector<std::string> parts = {"%1%", "%2%", "%ct12%", "%$1%", "%3%", " ", "a", "<p>"};
    std::minstd_rand random(7);
    for (int turn = 0; turn < 3000; ++turn) {
        std::string page;
        for (std::size_t part = random() % 12; part > 0; --part) {
            page += parts[random() % parts.size()];
        }
        EXPECT_EQ(with_all_replaced(page, values), one_after_the_other(page, values, true)) << page;
        EXPECT_EQ(with_first_replaced(page, values), one_after_the_other(page, values, false))
            << page;
    }
}

}  // namespace
}  // namespace tavernook
