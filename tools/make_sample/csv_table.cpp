#include "csv_table.h"

#include <fstream>

#include "basics/code_page.h"
#include "basics/number_text.h"
#include "basics/text.h"

namespace tavernook::make_sample {

namespace {

// Splits one line; a doubled quote inside quotes is one.
std::vector<std::string> fields_of(const std::string& line, const std::string& place) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
            fields.back() += line[++i];
        } else if (c == '"') {
            quoted = !quoted;
        } else if (c == ',' && !quoted) {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    if (quoted) throw SourceError(place, "a quote is not closed");
    return fields;
}

std::string in_code_page(const std::string& utf8, const std::string& place) {
    std::string text(trim(text_from_utf8(utf8)));
    if (utf8_from_text(text) != trim(utf8)) {
        throw SourceError(place, "a character outside the code page in \"" + utf8 + "\"");
    }
    return text;
}

}  // namespace

SourceError::SourceError(const std::string& place, const std::string& what)
    : std::runtime_error(place + ": " + what) {}

Row::Row(std::string place, std::map<std::string, std::string> fields)
    : place_(std::move(place)), fields_(std::move(fields)) {}

const std::string& Row::text(const std::string& column) const {
    const auto field = fields_.find(column);
    if (field == fields_.end()) fail("no column \"" + column + "\"");
    return field->second;
}

f64 Row::number(const std::string& column, f64 lowest, f64 highest) const {
    f64 value = 0;
    try {
        value = whole_number_text(text(column));
    } catch (const Fault&) {
        fail(column + " \"" + text(column) + "\" is no number");
    }
    if (!(value >= lowest && value <= highest)) {
        fail(column + " is not from " + number_text(lowest) + " to " + number_text(highest));
    }
    return value;
}

int Row::whole(const std::string& column, int lowest, int highest) const {
    const f64 value = number(column, lowest, highest);
    if (value != static_cast<int>(value)) fail(column + " is no whole number");
    return static_cast<int>(value);
}

const std::string& Row::name(const std::string& column, std::size_t size) const {
    const std::string& wanted = text(column);
    if (wanted.empty()) fail(column + " is missing");
    if (wanted.size() > size) {
        fail("\"" + wanted + "\" is longer than " + std::to_string(size) + " characters");
    }
    return wanted;
}

void Row::fail(const std::string& what) const {
    throw SourceError(place_, what);
}

std::vector<Row> read_table(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw SourceError(file.string(), "cannot be read");
    std::vector<Row> rows;
    std::vector<std::string> columns;
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        const std::string place = file.string() + ":" + std::to_string(number);
        const std::vector<std::string> fields = fields_of(line, place);
        if (number == 1) {
            columns = fields;
            continue;
        }
        if (fields.size() != columns.size()) {
            throw SourceError(place, std::to_string(fields.size()) + " fields for " +
                                         std::to_string(columns.size()) + " columns");
        }
        std::map<std::string, std::string> named;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            named[columns[i]] = in_code_page(fields[i], place);
        }
        rows.emplace_back(place, std::move(named));
    }
    return rows;
}

}  // namespace tavernook::make_sample
