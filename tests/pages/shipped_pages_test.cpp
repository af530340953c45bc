// The templates and pictures that come with the program, and how they get into its folders.
#include "reports/pages/shipped_pages.h"

#include <set>

#include "pages/pages_fixture.h"
#include "reports/pages/calendar_pages.h"
#include "reports/pages/item_label.h"
#include "reports/pages/usage_pages.h"

namespace tavernook {
namespace {

class ShippedPages : public PagesTest {
  protected:
    bool lay_out() { return lay_out_pages(shipped); }

    static bool is_template(const std::string& name) { return name.ends_with(".dat"); }
    static std::string path_of(const ShippedPage& page) {
        return std::string(page.folder) + "/" + page.name;
    }
};

TEST_F(ShippedPages, AllArePlacedOnceTheFoldersAreMade) {
    for (const char* folder : {"dat", "reports", "barcode"}) {
        std::filesystem::remove_all(in_program(folder));
    }
    EXPECT_TRUE(lay_out());
    for (const ShippedPage& file : shipped_pages) {
        EXPECT_EQ(page(path_of(file)), shipped(file.name)) << file.name;
    }
}

TEST_F(ShippedPages, EveryFileIsPlacedSomewhere) {
    std::set<std::string> names;
    for (const ShippedPage& page : shipped_pages) names.insert(page.name);
    for (const auto& entry :
         std::filesystem::directory_iterator(TAVERNOOK_SOURCE_FOLDER "/assets/pages")) {
        EXPECT_EQ(names.count(entry.path().filename().string()), 1u) << entry.path();
    }
}

TEST_F(ShippedPages, WhatTheUserHasChangedStays) {
    put_file("dat/cal.dat", "my own");
    put_file("reports/tvkr.jpg", "");
    std::filesystem::create_symlink("/no such drive/main.dat", in_program("reports/main.dat"));
    EXPECT_TRUE(lay_out());
    EXPECT_EQ(page("dat/cal.dat"), "my own");
    EXPECT_EQ(page("reports/tvkr.jpg"), "");
    EXPECT_TRUE(std::filesystem::is_symlink(in_program("reports/main.dat")));
    EXPECT_TRUE(is_there("reports/list.jpg"));
}

TEST_F(ShippedPages, ANewerProgramRenewsWhatNobodyHasChanged) {
    EXPECT_TRUE(lay_out());
    put_file("dat/cal.dat", "my own");
    EXPECT_TRUE(lay_out_pages([](const std::string& name) { return shipped(name) + " "; }));
    EXPECT_EQ(page("dat/cal.dat"), "my own");
    EXPECT_EQ(page("dat/calm.dat"), shipped("calm.dat") + " ");
}

TEST_F(ShippedPages, NothingIsWrittenWhereAllIsThere) {
    EXPECT_TRUE(lay_out());
    platform.files.start_over();
    EXPECT_TRUE(lay_out());
    EXPECT_EQ(platform.files.operations(), static_cast<int>(shipped_pages.size()));
}

TEST_F(ShippedPages, OneThatCannotBePlacedKeepsNoOtherBack) {
    EXPECT_FALSE(lay_out_pages([](const std::string& name) {
        if (name == "cal.dat") throw Fault(fault_number::file_not_found);
        return shipped(name);
    }));
    EXPECT_FALSE(is_there("dat/cal.dat"));
    EXPECT_TRUE(is_there("barcode/labeldat.dat"));
}

TEST_F(ShippedPages, EveryTemplateHoldsThePlaceholdersOfItsPage) {
    const auto expect = [](const std::string& name, const std::set<std::string>& placeholders) {
        const std::string text = shipped(name);
        for (const std::string& placeholder : placeholders) {
            EXPECT_EQ(occurrences(text, placeholder), 1) << name << " " << placeholder;
        }
    };
    const auto of_cells = [](int cells) {
        std::set<std::string> names = {"%title%", "%note%"};
        for (int cell = 1; cell <= cells; ++cell) {
            for (const char* kind : {"", "ct", "$", "f", "c"}) {
                names.insert("%" + std::string(kind) + std::to_string(cell) + "%");
            }
            if (cells == 42) names.insert("%o" + std::to_string(cell) + "%");
        }
        return names;
    };
    const auto numbers = [](std::initializer_list<int> wanted) {
        std::set<std::string> names;
        for (const int number : wanted) names.insert("%" + std::to_string(number) + "%");
        return names;
    };
    expect("cal.dat", of_cells(7));
    expect("cal.dat", {"%a%", "%b%", "%c%", "%d%", "%e%", "%f%", "%g%"});
    expect("calm.dat", of_cells(42));
    expect("item.dat", numbers({1, 2, 4, 6, 7, 8}));
    expect("main.dat", numbers({1, 2, 3, 4, 5, 6}));
    expect("general.dat", numbers({1, 2, 3, 4, 5, 6}));
    expect("labeldat.dat", numbers({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
    EXPECT_NE(shipped("item.dat").find("%7%\n%4%"), std::string::npos);
}

TEST_F(ShippedPages, NoPlaceholderIsLeftInAPage) {
    ASSERT_TRUE(lay_out());
    add_item(4, "Milk");
    add_day(1, 5, 15, 2024);
    EXPECT_TRUE(Build_HTMLCal() && Build_HTMLCal_Month() && Build_Item_Label(4));
    EXPECT_TRUE(build_item_report(4) && build_main_report() && build_general_report());
    for (const char* name : {"dat/cal.htm", "dat/calm.htm", "barcode/labeldat.htm",
                             "reports/item.htm", "reports/main.htm", "reports/general.htm"}) {
        const std::string text = page(name);
        const std::size_t body = text.find("<body>");
        ASSERT_NE(body, std::string::npos) << name;
        EXPECT_EQ(text.find('%', body), std::string::npos) << name << text.substr(body);
    }
}

TEST_F(ShippedPages, TemplatesForbidScriptsAndHoldNone) {
    for (const ShippedPage& file : shipped_pages) {
        if (!is_template(file.name)) continue;
        const std::string text = shipped(file.name);
        EXPECT_NE(text.find("http-equiv=\"Content-Security-Policy\" content=\"default-src 'none';"),
                  std::string::npos)
            << file.name;
        EXPECT_EQ(text.find("script"), std::string::npos) << file.name;
        EXPECT_NE(text.find("charset=windows-1252"), std::string::npos) << file.name;
        EXPECT_EQ(text.find("http://"), std::string::npos) << file.name;
        EXPECT_EQ(text.find("https://"), std::string::npos) << file.name;
    }
}

TEST_F(ShippedPages, PicturesThatATemplateShowsLieBesideIt) {
    std::set<std::string> there;
    for (const ShippedPage& file : shipped_pages) there.insert(path_of(file));
    for (const ShippedPage& file : shipped_pages) {
        if (!is_template(file.name)) continue;
        std::string text = shipped(file.name);
        for (std::size_t at = text.find("src=\""); at != std::string::npos;
             at = text.find("src=\"", at + 1)) {
            const std::string picture = between(text.substr(at), "src=\"", "\"");
            EXPECT_EQ(there.count(std::string(file.folder) + "/" + picture), 1u) << picture;
        }
    }
}

TEST_F(ShippedPages, TheMainPageLeadsToMonthAndList) {
    EXPECT_NE(shipped("main.dat").find("<a href=\"calm.htm\">"), std::string::npos);
    EXPECT_NE(shipped("main.dat").find("<a href=\"list.htm\">"), std::string::npos);
}

TEST_F(ShippedPages, PicturesAreWhatTheirNamesSayAndSmall) {
    for (const char* name : {"month.jpg", "tvkr.jpg", "list.jpg", "mv.jpg"}) {
        const std::string bytes = shipped(name);
        EXPECT_EQ(bytes.substr(0, 3), "\xFF\xD8\xFF") << name;
        EXPECT_LT(bytes.size(), 12'000u) << name;
    }
    EXPECT_EQ(shipped("point.gif").substr(0, 4), "GIF8");
    EXPECT_LT(shipped("point.gif").size(), 1000u);
}

}  // namespace
}  // namespace tavernook
