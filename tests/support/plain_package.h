// Packages put together byte by byte as their rules tell it. Positions count from 1.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavernook {

// A file that grows where bytes are put behind its end.
class PlainBytes {
  public:
    PlainBytes& put(std::size_t position, std::string_view bytes) {
        if (bytes_.size() < position - 1 + bytes.size()) bytes_.resize(position - 1 + bytes.size());
        bytes_.replace(position - 1, bytes.size(), bytes);
        return *this;
    }
    PlainBytes& put_number(std::size_t position, int width, long long value) {
        std::string bytes;
        for (int byte = 0; byte < width; ++byte) {
            bytes += static_cast<char>(static_cast<unsigned long long>(value) >> (8 * byte));
        }
        return put(position, bytes);
    }
    const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

struct PlainDocument {
    std::string name;
    std::string bytes;
};

inline std::string plainly_packed(const std::string& project,
                                  const std::vector<PlainDocument>& documents) {
    PlainBytes file;
    file.put_number(1, 4, static_cast<long long>(project.size()));
    file.put(100, project);
    std::size_t p = project.size() + 1;
    for (const PlainDocument& document : documents) {
        const std::size_t n = document.name.size();
        const std::size_t d = document.bytes.size();
        file.put_number(p, 4, static_cast<long long>(d));
        file.put(p + 4, std::string(6, '\0'));
        file.put_number(p + 10, 2, static_cast<long long>(n));
        file.put(p + 12, std::string(8, '\0'));
        file.put_number(p + 20, 2, 8);
        file.put_number(p + 22, 2, static_cast<long long>(n));
        file.put(p + 24, document.name);
        file.put(p + 24 + n, std::string(6, '\0'));
        file.put(p + 30 + n, document.bytes);
        p = p + 30 + n + d + 1;
    }
    file.put_number(10, 2, static_cast<long long>(documents.size()));
    return file.bytes();
}

}  // namespace tavernook
