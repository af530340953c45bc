// The page of the help that lists the keys, against the commands of the main window.
#include "screens/aids/help_sources.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

using KeyOfCommand = std::set<std::pair<std::string, std::string>>;

TEST_F(MainWindowTest, TheHelpListsTheKeysOfAllCommands) {
    start();
    KeyOfCommand are;
    for (const QAction* command : window.findChildren<QAction*>()) {
        if (command->text().isEmpty() || command->objectName().isEmpty()) continue;
        const std::string caption = command->text().remove(QLatin1Char('&')).toStdString();
        for (const QKeySequence& keys : command->shortcuts()) {
            are.insert({keys.toString().toStdString(), caption});
        }
    }
    const std::string page = help_pages().at("keys");
    const std::size_t begin = page.find("<h2>Commands of the main window</h2>");
    ASSERT_NE(begin, std::string::npos);
    const std::string table = page.substr(begin, page.find("</table>", begin) - begin);
    KeyOfCommand listed;
    for (const std::string& row : all_matches(table, "<tr>(<td>.*</td>)</tr>")) {
        const std::vector<std::string> cells = all_matches(row, "<td>([^<]*)</td>");
        ASSERT_EQ(cells.size(), 2U) << row;
        listed.insert({cells[0], cells[1]});
    }
    EXPECT_EQ(listed, are);
}

}  // namespace
}  // namespace tavernook
