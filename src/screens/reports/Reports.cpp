#include "screens/reports/Reports.h"

#include <QFocusEvent>
#include <QPointer>
#include <QToolBar>
#include <QTreeView>
#include <algorithm>

#include "platform/platform.h"
#include "reports/pages/report_page.h"
#include "reports/preview.h"
#include "reports/report_configurations.h"
#include "reports/report_filter.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/toolbar_parts.h"
#include "screens/reports/filter_pane.h"
#include "screens/reports/report_pane.h"
#include "ui_Reports.h"

namespace tavernook {

struct Reports::State {
    ReportFilter filter;
    Configurations configurations;
};

namespace {

TextTable table_of(const ReportList& list) {
    TextTable table;
    for (int column = 0; column < list.columns(); ++column) {
        table.titles.emplace_back(list.title(column));
    }
    for (int row = 0; row < list.rows(); ++row) {
        std::vector<std::string>& cells = table.rows.emplace_back();
        for (int column = 0; column < list.columns(); ++column) {
            cells.emplace_back(list.cell(row, column));
        }
    }
    return table;
}

// Of those that are listed; 0 for none.
i16 number_of(const Configurations& configurations, const std::string& file_name) {
    for (const i16 number : configurations.listed()) {
        if (configurations.numbered(number).file_name == file_name) return number;
    }
    return 0;
}

QString in_quotes(const std::string& name) {
    return QLatin1Char('"') + shown_text(name).trimmed() + QLatin1Char('"');
}

}  // namespace

Reports::Reports(QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::Reports>()),
      filter_pane_((ui_->setupUi(this), *ui_->filter_panel)),
      report_(*ui_->report_panel),
      state_(std::make_shared<State>()) {
    setWindowIcon(icon(QStringLiteral("reports")));
    ui_->main_splitter->setSizes({820, 400});
    ui_->main_splitter->setStretchFactor(0, 1);
    ui_->main_splitter->setStretchFactor(1, 0);
    set_up_toolbar();
    set_up_keys();
    connect_filter();
    connect_list();
    enter_presses_buttons(*this);
    set_reports(this);
    begin();
}

Reports::~Reports() {
    if (reports() == this) set_reports(nullptr);
}

void Reports::set_up_toolbar() {
    QToolBar& bar = *ui_->report_toolbar;
    show_captions(bar);
    fill_toolbar(*this, bar, {{1, "run"}, {2, "print"}, {3, "save"}, {4, nullptr}, {5, "usage"}});
    on_command(ui_->report_toolbar_1, [this] { run_report(); });
    on_command(ui_->report_toolbar_2, [this] { print_preview(); });
    on_command(ui_->report_toolbar_3, [this] { save_report(); });
    on_command(ui_->report_toolbar_5, [this] { show_usage(); });
    on_command(ui_->delete_configuration, [this] { delete_configuration(); });
    connect(ui_->saved_reports, &QComboBox::activated, this, [this](int place) {
        const int number = ui_->saved_reports->itemData(place).toInt();
        run([this, number] { load_report(number); });
    });
}

void Reports::set_up_keys() {
    on_keys(*this, QKeySequence::Refresh, [this] { ui_->report_toolbar_1->trigger(); });
    on_keys(*this, QKeySequence::Print, [this] { ui_->report_toolbar_2->trigger(); });
    on_keys(*this, Qt::Key_Escape, [this] { close_screen(*this); });
}

void Reports::connect_filter() {
    const auto edits = [this](bool (*ask)(ReportFilter&, int) noexcept) {
        return [this, ask](int row) {
            run([&] { edit_filter([&](ReportFilter& filter) { return ask(filter, row); }); });
        };
    };
    connect(&filter_pane_, &FilterPane::search_string_wanted, this, edits(ask_search_string));
    connect(&filter_pane_, &FilterPane::logic_string_wanted, this, edits(ask_logic_string));
    connect(&filter_pane_, &FilterPane::check_wanted, this,
            [this](int row, bool checked) { run([&] { check_row(row, checked); }); });
    connect(&filter_pane_, &FilterPane::view_wanted, this, [this] {
        run([this] {
            edit_filter([](ReportFilter& filter) {
                view_none_or_all(filter);
                return true;
            });
        });
    });
    connect(&filter_pane_, &FilterPane::reset_wanted, this,
            [this] { run([this] { reset_reports(); }); });
}

void Reports::connect_list() {
    connect(&report_, &ReportPane::view_wanted, this, [this] { run([this] { view_selected(); }); });
    connect(&report_, &ReportPane::usage_wanted, this, [this] { run([this] { show_usage(); }); });
    connect(&report_, &ReportPane::sort_wanted, this,
            [this](int column) { run([&] { report_.sort_by(column); }); });
    connect(&report_, &ReportPane::selection_changed, this, [this] { update_commands(); });
}

// --- search --------------------------------------------------------------------------------------

// The report is shown at once, with all items and the first 22 fields.
void Reports::begin() {
    begin_report_filter(state_->filter);
    filter_pane_.show(state_->filter);
    get_configs();
    search_engine();
}

void Reports::search() {
    tavernook::search_engine(state_->filter);
    report_.fill(state_->filter);
}

void Reports::search_engine() {
    guarded([this] { search(); });
}

void Reports::populate_list() {
    guarded([this] { report_.fill(state_->filter); });
}

bool Reports::Build_HTML_Report_list(i16 size, bool border, std::string_view name) {
    return tavernook::Build_HTML_Report_list(table_of(report_.list()), size, border, name);
}

void Reports::run_report() {
    search();
    const int found = report_.list().rows();
    say(found == 1 ? tr("1 item found.") : tr("%1 items found.").arg(found));
}

void Reports::reset_reports() {
    reset_report_filter(state_->filter);
    filter_pane_.show(state_->filter);
    get_configs();
    search();
}

// --- the filter ----------------------------------------------------------------------------------

void Reports::edit_filter(const std::function<bool(ReportFilter&)>& edit) {
    const QPointer<Reports> screen(this);
    const std::shared_ptr<State> state = state_;
    if (!edit(state->filter) || screen.isNull()) return;
    filter_pane_.show(state->filter);
    report_.show_outdated();
}

void Reports::check_row(int row, bool checked) {
    edit_filter([&](ReportFilter& filter) {
        tavernook::check_row(filter, row, checked);
        return true;
    });
    if (row == item_row && !checked) say(tr("The item's name is always shown."));
}

// --- saved reports -------------------------------------------------------------------------------

void Reports::get_configs() {
    tavernook::get_configs(state_->configurations);
    QComboBox& box = *ui_->saved_reports;
    box.clear();
    for (const i16 number : state_->configurations.listed()) {
        box.addItem(shown_text(state_->configurations.numbered(number).display_name), number);
    }
    show_choice();
}

// The chosen one in the list; none where it is not in there.
void Reports::show_choice() {
    const i16 chosen = state_->configurations.current_config;
    ui_->saved_reports->setCurrentIndex(chosen == 0 ? -1 : ui_->saved_reports->findData(chosen));
}

void Reports::choose_configuration(const std::string& file_name) {
    Configurations& configurations = state_->configurations;
    configurations.current_config = number_of(configurations, file_name);
    show_choice();
}

// The text of the list, blanks at its end included.
std::string Reports::name_shown() const {
    return typed_text(ui_->saved_reports->currentText());
}

void Reports::load_report(int number) {
    Configurations& configurations = state_->configurations;
    const std::string before = configurations.numbered(configurations.current_config).file_name;
    const ConfigFile chosen = configurations.numbered(number);
    ReportLook look = report_.look();
    if (!tavernook::load_report(chosen.file_name, state_->filter, look)) {
        get_configs();
        choose_configuration(before);
        return say(tr("The saved report %1 cannot be read. Nothing has changed.")
                       .arg(in_quotes(chosen.display_name)));
    }
    configurations.current_config = static_cast<i16>(number);
    show_choice();
    report_.set_look(look);
    filter_pane_.show(state_->filter);
    search();
}

void Reports::save_report() {
    const QPointer<Reports> screen(this);
    const std::shared_ptr<State> state = state_;
    Configurations before;
    tavernook::get_configs(before);
    const SavedAs saved =
        ask_and_save_report(name_shown(), state->filter, report_.look(), state->configurations);
    if (screen.isNull() || saved.name.empty()) return;
    const std::string file_name = report_file_name(saved.name);
    if (saved.is_new) {
        get_configs();
        choose_configuration(file_name);
    }
    const bool replaced = saved.is_new && number_of(before, file_name) != 0;
    say((replaced ? tr("The report is saved as %1, in place of the older one.")
                  : tr("The report is saved as %1."))
            .arg(in_quotes(saved.name)));
}

void Reports::delete_configuration() {
    const QPointer<Reports> screen(this);
    const std::shared_ptr<State> state = state_;
    const std::string name = name_shown();
    if (!ask_and_delete_configuration(state->configurations) || screen.isNull()) return;
    reset_reports();
    say(tr("The saved report %1 is deleted.").arg(in_quotes(name)));
}

// --- commands ------------------------------------------------------------------------------------

i16 Reports::selected_item() const {
    const i16 item = report_.selected_item();
    if (item == 0 && report_.has_selection()) say(tr("This item is not there any more."));
    return item;
}

void Reports::print_preview() {
    preview_report(name_shown());
}

void Reports::show_usage() {
    if (const i16 item = selected_item(); item != 0) preview_usage(item);
}

void Reports::view_selected() {
    const i16 item = selected_item();
    if (item == 0 || show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (ports::FoodInventory* screen = food_inventory()) screen->view_item(item, i16_true);
}

void Reports::follow_changes() {
    report_.follow_changes();
}

void Reports::update_commands() {
    ui_->report_toolbar_5->setEnabled(report_.has_selection());
    show_choice();
}

// --- what Qt tells -------------------------------------------------------------------------------

void Reports::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    report_.follow_header();
}

// What is looked for comes first. No focus proxy, as the Tab key's round would begin again there.
void Reports::focusInEvent(QFocusEvent* event) {
    filter_pane_.rows().setFocus(event->reason());
}

}  // namespace tavernook
