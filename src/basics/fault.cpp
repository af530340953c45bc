#include "basics/fault.h"

#include <utility>

namespace tavernook {

namespace {

struct Description {
    int number;
    const char* text;
};

constexpr Description descriptions[] = {
    {fault_number::overflow, "Overflow"},
    {fault_number::out_of_memory, "Out of memory"},
    {fault_number::subscript_out_of_range, "Subscript out of range"},
    {fault_number::division_by_zero, "Division by zero"},
    {fault_number::type_mismatch, "Type mismatch"},
    {fault_number::internal_error, "Internal error"},
    {fault_number::file_not_found, "File not found"},
    {fault_number::device_io_error, "Device I/O error"},
    {fault_number::disk_full, "Disk full"},
    {fault_number::input_past_end, "Input past end of file"},
    {fault_number::bad_record_number, "Bad record number"},
    {fault_number::permission_denied, "Permission denied"},
    {fault_number::path_file_access_error, "Path/File access error"},
    {fault_number::path_not_found, "Path not found"},
    {fault_number::cancel_was_selected, "Cancel was selected"},
};

}  // namespace

Fault::Fault(int fault_number) : Fault(fault_number, fault_description(fault_number)) {}

Fault::Fault(int fault_number, std::string text)
    : number(fault_number), description(std::move(text)) {}

std::string fault_description(int number) {
    for (const Description& entry : descriptions) {
        if (entry.number == number) return entry.text;
    }
    return "Error " + std::to_string(number);
}

}  // namespace tavernook
