// The walk through a section's records, for whoever reads a project file: into the tables, or into
// others.
#pragma once

#include <string_view>

#include "core/project_file/project_file_format.h"
#include "core/project_file/project_file_records.h"
#include "core/project_file/sequential_file.h"

namespace tavernook::project_file {

template <typename Record>
void read_record(std::string_view bytes, Record& record) {
    ByteReader reader(bytes);
    FieldReader code(reader);
    fields(code, record);
}

// Calls `visit(slot, bytes)` for each saved record, with its slot number as it stands in the file
// and as many bytes as a record has, valid until the next. The last record's slack may lie beyond
// the end of the file: only what is read must be there. Fault 63 when the file is short of it.
template <typename Visit>
void for_each_record(File& file, const ProjectHeader::Section& section, int record_size, int stride,
                     Visit&& visit) {
    if (section.count == 0) return;
    SequentialReader reader(file, section.position);
    const auto slack = static_cast<std::size_t>(stride - slot_size - record_size);
    for (int record = 0; record < section.count; ++record) {
        if (record > 0) reader.skip(slack);
        const i16 slot = reader.take_i16();
        visit(slot, reader.take(static_cast<std::size_t>(record_size)));
    }
}

// A block of texts, one for each entry.
template <typename Texts>
void read_texts(File& file, i32 position, Texts& texts) {
    if (position <= 0) return;
    SequentialReader reader(file, position);
    for (std::string& text : texts) reader.take_variable(text);
}

}  // namespace tavernook::project_file
