// What stands in the pages of the help: that there is one for everything, that nothing leads
// nowhere, and that what they name is there.
#include <algorithm>
#include <gtest/gtest.h>

#include "screens/aids/help_book.h"
#include "screens/aids/help_sources.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;
using Names = std::set<std::string>;

// Of the sources below src with that ending, as one text.
std::string sources(const std::string& folder, const std::string& ending) {
    std::string all;
    for (const auto& one :
         fs::recursive_directory_iterator(fs::path(TAVERNOOK_SOURCE_FOLDER) / "src" / folder)) {
        if (one.path().extension() == ending) all += read_whole_file(one.path().string());
    }
    return all;
}

Names as_names(const Texts& texts) {
    return {texts.begin(), texts.end()};
}

class HelpPages : public testing::Test {
  protected:
    const std::map<std::string, std::string> pages = help_pages();

    std::string title(const std::string& page) const {
        const Texts found = all_matches(pages.at(page), "<title>([^<]+)</title>");
        return found.size() == 1 ? found[0] : "";
    }
    Texts keywords(const std::string& page) const {
        const Texts all =
            all_matches(pages.at(page), "<meta name=\"keywords\" content=\"([^\"]+)\">");
        return all.size() == 1 ? all_matches(all[0], "([^,]+)(?:, |$)") : Texts{};
    }
};

TEST_F(HelpPages, EveryScreenHasOne) {
    const Texts screens = all_matches(
        read_whole_file(TAVERNOOK_SOURCE_FOLDER "/src/screens/frame/register_screens.cpp"),
        "registry, \"([A-Za-z0-9_]+)\"");
    EXPECT_GE(screens.size(), 13U);
    for (const std::string& name : screens) EXPECT_EQ(pages.count(name), 1U) << name;
    for (const char* name : {"Main", "Calculator", "Dialog", "VII", "tut", "help_window"}) {
        EXPECT_EQ(pages.count(name), 1U) << name;
    }
}

TEST_F(HelpPages, EveryDialogHasOneButThoseThatOnlyTell) {
    const Texts dialogs =
        all_matches(sources("screens", ".ui"), "<widget class=\"QDialog\" name=\"([^\"]+)\">");
    EXPECT_GE(dialogs.size(), 6U);
    for (const std::string& name : dialogs) {
        const bool only_tells = name == "SaveProgress" || name == "Splash";
        EXPECT_EQ(pages.count(name), only_tells ? 0U : 1U) << name;
    }
}

TEST_F(HelpPages, EveryFileThatAUserMeetsHasOne) {
    Names described;
    for (const auto& [name, text] : pages) {
        if (name.rfind("file_", 0) != 0) continue;
        for (const std::string& word : keywords(name)) described.insert(word);
    }
    for (const char* ending :
         {".tvk", ".vzk", ".vpk", ".rpf", ".ipf", ".csv", ".lst", ".rcg", ".rtf"}) {
        EXPECT_EQ(described.count(ending), 1U) << ending;
    }
    EXPECT_EQ(pages.count("file_codes"), 1U);
    EXPECT_EQ(pages.count("file_csv_export"), 1U);
}

TEST_F(HelpPages, EachHasATitleAHeadingAndWordsInTheIndex) {
    Names words;
    Names titles;
    for (const auto& [name, text] : pages) {
        EXPECT_NE(title(name), "") << name;
        EXPECT_TRUE(titles.insert(title(name)).second) << name;
        EXPECT_EQ(all_matches(text, "<h1>([^<]+)</h1>"), Texts{title(name)}) << name;
        EXPECT_FALSE(keywords(name).empty()) << name;
        // A word of the index leads to one page.
        for (const std::string& word : keywords(name)) {
            EXPECT_TRUE(words.insert(word).second) << name << ": " << word;
        }
        EXPECT_EQ(text.find("<script"), std::string::npos) << name;
        EXPECT_EQ(all_matches(text, "<link rel=\"stylesheet\" href=\"([^\"]+)\">"),
                  Texts{"help.css"})
            << name;
    }
}

TEST_F(HelpPages, EveryLinkLeadsSomewhere) {
    for (const auto& [name, text] : pages) {
        for (const std::string& link : all_matches(text, "<a href=\"([^\"]+)\">")) {
            const std::string page = link.substr(0, link.find('#'));
            ASSERT_TRUE(page.size() > 5 && page.substr(page.size() - 5) == ".html")
                << name << ": " << link;
            const auto target = pages.find(page.substr(0, page.size() - 5));
            ASSERT_NE(target, pages.end()) << name << ": " << link;
            if (page == link) continue;
            const std::string place = "id=\"" + link.substr(page.size() + 1) + "\"";
            EXPECT_NE(target->second.find(place), std::string::npos) << name << ": " << link;
        }
    }
}

TEST_F(HelpPages, TheContentsHaveEveryPageOnceUnderItsTitle) {
    const std::string& contents = pages.at("index");
    const Texts listed = all_matches(contents, "<li><a href=\"([^\"]+)\\.html\">");
    EXPECT_EQ(listed.size(), as_names(listed).size());
    for (const auto& [name, text] : pages) {
        EXPECT_EQ(as_names(listed).count(name), name == "index" ? 0U : 1U) << name;
    }
    for (const std::string& name : listed) {
        const std::string row = "<li><a href=\"" + name + ".html\">" + title(name) + "</a>: ";
        EXPECT_NE(contents.find(row), std::string::npos) << row;
    }
}

// What is bold is written on the screens, letter for letter but for the mark of the mnemonic.
TEST_F(HelpPages, WhatIsBoldIsOnAScreen) {
    Names captions;
    const auto add = [&captions](const std::string& written) {
        std::string caption = read_text(written);
        caption.erase(std::remove(caption.begin(), caption.end(), '&'), caption.end());
        captions.insert(caption);
    };
    for (const auto& text : all_matches(sources("screens", ".ui"), "<string>([^<]+)</string>")) {
        add(text);
    }
    for (const auto& text : all_matches(sources("screens", ".cpp"), "\"([^\"\\n]+)\"")) add(text);
    int checked = 0;
    for (const auto& [name, text] : pages) {
        for (const std::string& bold : all_matches(text, "<b>([^<]+)</b>")) {
            EXPECT_EQ(captions.count(read_text(bold)), 1U) << name << ": " << read_text(bold);
            ++checked;
        }
    }
    EXPECT_GT(checked, 200);
}

TEST_F(HelpPages, NoneTellsOfWhatIsNotThere) {
    for (const auto& [name, text] : pages) {
        const std::string read = read_text(text);
        for (const char* words :
             {"not yet", "not available", "later version", "coming soon", "will be able", "TODO"}) {
            EXPECT_EQ(read.find(words), std::string::npos) << name << ": " << words;
        }
    }
}

TEST_F(HelpPages, TheHelpFileHasThemAll) {
    HelpBook book({QStringLiteral(TAVERNOOK_HELP_FOLDER)});
    ASSERT_TRUE(book.open());
    EXPECT_EQ(static_cast<std::size_t>(book.pages().size()), pages.size());
    for (const auto& [name, text] : pages) {
        EXPECT_EQ(book.bytes(book.page_of(QString::fromStdString(name))).toStdString(), text);
    }
    EXPECT_TRUE(book.page_of(QStringLiteral("SaveProgress")).isEmpty());
}

}  // namespace
}  // namespace tavernook
