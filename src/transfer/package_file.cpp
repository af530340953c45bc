#include "transfer/package_file.h"

#include <algorithm>
#include <limits>

#include "basics/byte_codec.h"
#include "basics/code_page.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/project_file/sequential_file.h"

namespace tavernook {

namespace {

constexpr std::size_t block_size = std::size_t{1024} * 1024;

constexpr i64 length_position = 1;
constexpr i64 count_position = 10;

// Within a document record.
constexpr i64 name_length_place = 10;
constexpr i64 tag_place = 20;
constexpr i64 name_place = 24;
constexpr i64 bytes_place = 30;  // and the length of the name
constexpr i64 gap = 1;           // behind the bytes

constexpr i16 tag_of_text = 8;

i32 to_length(i64 length) {
    if (length > std::numeric_limits<i32>::max()) throw Fault(fault_number::overflow);
    return static_cast<i32>(length);
}

// One past the bytes that are 99 from the end.
i64 first_document_position(i64 project_length) {
    return project_length + 1;
}

template <typename Number>
void write_number(File& file, i64 position, Number number) {
    char bytes[sizeof number];
    store_little_endian(bytes, number);
    file.write(position - 1, {bytes, sizeof bytes});
}

template <typename Number>
Number read_number(File& file, i64 position) {
    return load_little_endian<Number>(read_exactly(file, position, sizeof(Number)).data());
}

[[noreturn]] void fail_as_damaged() {
    throw Fault(fault_number::bad_record_number);
}

bool is_control(char letter) {
    return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F;
}

// The program's own working copies would take a text's place by themselves.
bool is_working_copy(std::string_view name) {
    const std::string lower = lower_case(name);
    const auto ends_in = [&](std::string_view ending) { return lower.ends_with(ending); };
    return ends_in(".ready") || ends_in(".before") || ends_in(".new");
}

bool is_bare_name(std::string_view name) {
    if (trim(name).empty() || name == "." || name == "..") return false;
    if (file_name_part(name) != name || utf8_from_text(name).size() > longest_file_name)
        return false;
    return std::none_of(name.begin(), name.end(), is_control) && !is_working_copy(name);
}

// Moves the position to the next document.
PackedDocument read_document(File& package, i64 length_of_package, i64& position) {
    PackedDocument document;
    document.length = read_number<i32>(package, position);
    const i16 name_length = read_number<i16>(package, position + name_length_place);
    if (document.length < 0 || name_length < 1) fail_as_damaged();
    document.name =
        read_exactly(package, position + name_place, static_cast<std::size_t>(name_length));
    document.position = position + bytes_place + name_length;
    const i64 end = document.position + document.length;
    if (end - 1 > length_of_package || !is_bare_name(document.name)) fail_as_damaged();
    position = end + gap;
    return document;
}

}  // namespace

void copy_bytes(File& from, i64 from_position, File& to, i64 to_position, i64 count,
                const EachBlock& each_block) {
    std::string block;
    for (i64 done = 0; done < count;) {
        each_block();
        block.resize(std::min(block_size, static_cast<std::size_t>(count - done)));
        if (from.read(from_position - 1 + done, block.data(), block.size()) < block.size()) {
            fail_as_damaged();
        }
        to.write(to_position - 1 + done, block);
        done += static_cast<i64>(block.size());
    }
}

void PackageWriter::put_project(File& project, const EachBlock& each_block) {
    const i32 length = to_length(project.length());
    write_number(package_, length_position, length);
    copy_bytes(project, 1, package_, packed_project_position, length, each_block);
    position_ = first_document_position(length);
}

void PackageWriter::add_document(std::string_view name, File& document,
                                 const EachBlock& each_block) {
    const i32 length = to_length(document.length());
    const i16 name_length = to_i16(static_cast<i64>(name.size()));
    ByteWriter record;
    record.write_i32(length);
    record.write_zeros(static_cast<std::size_t>(name_length_place) - record.size());
    record.write_i16(name_length);
    record.write_zeros(static_cast<std::size_t>(tag_place) - record.size());
    record.write_i16(tag_of_text);
    record.write_i16(name_length);
    record.write_bytes(name);
    record.write_zeros(static_cast<std::size_t>(bytes_place - name_place));
    package_.write(position_ - 1, record.bytes());
    const i64 bytes = position_ + static_cast<i64>(record.size());
    copy_bytes(document, 1, package_, bytes, length, each_block);
    position_ = bytes + length + gap;
    ++documents_;
}

void PackageWriter::finish() {
    write_number(package_, count_position, to_i16(documents_));
}

Package read_package(File& package) {
    Package contents;
    const i64 length = package.length();
    contents.project_length = read_number<i32>(package, length_position);
    const i64 end = packed_project_position + contents.project_length - 1;
    if (contents.project_length < 1 || end > length) fail_as_damaged();
    const i16 count = read_number<i16>(package, count_position);
    if (count < 0 || count > meal_capacity) fail_as_damaged();
    i64 position = first_document_position(contents.project_length);
    for (i16 document = 0; document < count; ++document) {
        contents.documents.push_back(read_document(package, length, position));
    }
    return contents;
}

}  // namespace tavernook
