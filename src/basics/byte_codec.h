// Little-endian bytes <-> numbers and texts, the same on every machine.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <string>
#include <string_view>

#include "basics/fault.h"
#include "basics/fixed_string.h"
#include "basics/values.h"

namespace tavernook {

// The bytes need no alignment.
template <typename Number>
Number load_little_endian(const char* bytes) {
    std::array<char, sizeof(Number)> raw;
    std::copy_n(bytes, raw.size(), raw.begin());
    if constexpr (std::endian::native == std::endian::big) std::reverse(raw.begin(), raw.end());
    return std::bit_cast<Number>(raw);
}

template <typename Number>
void store_little_endian(char* bytes, Number value) {
    auto raw = std::bit_cast<std::array<char, sizeof(Number)>>(value);
    if constexpr (std::endian::native == std::endian::big) std::reverse(raw.begin(), raw.end());
    std::copy_n(raw.begin(), raw.size(), bytes);
}

// Reads forward through bytes that somebody else owns. Fault 62 when they run out.
class ByteReader {
  public:
    explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

    i16 read_i16() { return read<i16>(); }
    u16 read_u16() { return read<u16>(); }
    i32 read_i32() { return read<i32>(); }
    f64 read_f64() { return read<f64>(); }

    template <std::size_t N>
    void read_fixed(FixedString<N>& text) {
        text = take(N);
    }

    // One check serves for all the numbers.
    template <std::size_t N>
    void read_f64s(std::array<f64, N>& values) {
        const char* place = take(N * sizeof(f64)).data();
        for (f64& value : values) {
            value = load_little_endian<f64>(place);
            place += sizeof(f64);
        }
    }

    // `count` bytes as they stand, valid as long as the bytes themselves.
    std::string_view take(std::size_t count) {
        if (count > bytes_.size() - offset_) throw Fault(fault_number::input_past_end);
        const std::string_view part = bytes_.substr(offset_, count);
        offset_ += count;
        return part;
    }
    void skip(std::size_t count) { take(count); }

    std::size_t offset() const { return offset_; }
    std::size_t left() const { return bytes_.size() - offset_; }

  private:
    template <typename Number>
    Number read() {
        return load_little_endian<Number>(take(sizeof(Number)).data());
    }

    std::string_view bytes_;
    std::size_t offset_ = 0;
};

// Appends to bytes of its own.
class ByteWriter {
  public:
    void write_i16(i16 value) { write(value); }
    void write_u16(u16 value) { write(value); }
    void write_i32(i32 value) { write(value); }
    void write_f64(f64 value) { write(value); }

    template <std::size_t N>
    void write_fixed(const FixedString<N>& text) {
        write_bytes(text.stored());
    }
    void write_bytes(std::string_view bytes) { bytes_.append(bytes); }
    void write_zeros(std::size_t count) { bytes_.append(count, '\0'); }

    template <std::size_t N>
    void write_f64s(const std::array<f64, N>& values) {
        const std::size_t start = bytes_.size();
        bytes_.resize(start + N * sizeof(f64));
        char* place = bytes_.data() + start;
        for (const f64 value : values) {
            store_little_endian(place, value);
            place += sizeof(f64);
        }
    }

    void reserve(std::size_t count) { bytes_.reserve(count); }
    void clear() { bytes_.clear(); }
    std::size_t size() const { return bytes_.size(); }
    std::string_view bytes() const { return bytes_; }

  private:
    template <typename Number>
    void write(Number value) {
        char raw[sizeof value];
        store_little_endian(raw, value);
        bytes_.append(raw, sizeof raw);
    }

    std::string bytes_;
};

}  // namespace tavernook
