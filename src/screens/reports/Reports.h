// The screen of the reports: which items match a filter of 77 rows, and which of their fields are
// shown. The list is that of the last search; changing the filter does not search. The filter lives
// as long as the screen, unless it is saved as a report.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/screen_ports.h"
#include "screens/parts/screen.h"

namespace tavernook {

class FilterPane;
class ReportPane;
struct ReportFilter;

namespace Ui {
class Reports;
}

class Reports : public Screen, public ports::Reports {
    Q_OBJECT

  public:
    explicit Reports(QWidget* parent = nullptr);
    ~Reports() override;

    void search_engine() override;  // and fills the list
    void populate_list() override;
    bool Build_HTML_Report_list(i16 size, bool border, std::string_view name) override;

  protected:
    void follow_changes() override;
    void update_commands() override;
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    // The filter and the saved reports. A command that asks holds them, as the screen may go
    // meanwhile.
    struct State;

    void set_up_toolbar();
    void set_up_keys();
    void connect_filter();
    void connect_list();

    void begin();
    void search();
    void run_report();
    void reset_reports();
    void get_configs();

    void edit_filter(const std::function<bool(ReportFilter&)>& edit);
    void check_row(int row, bool checked);

    void load_report(int number);
    void save_report();
    void delete_configuration();
    void choose_configuration(const std::string& file_name);
    void show_choice();
    std::string name_shown() const;

    void print_preview();
    void show_usage();
    void view_selected();
    i16 selected_item() const;  // 0, told in the message panel, when it has gone

    std::unique_ptr<Ui::Reports> ui_;
    FilterPane& filter_pane_;
    ReportPane& report_;
    std::shared_ptr<State> state_;
};

}  // namespace tavernook
