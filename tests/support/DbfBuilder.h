#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace support {

struct DbfColumn {
    std::string name;
    char type = 'C';
    int length = 10;
    int decimals = 0;
};

/// Writes dBase III tables for tests: DbfBuilder({{"NAME", 'C', 20}}).Row({"Oak"}).Write(path).
/// Texts are taken byte by byte; numbers stand at the right of their field.
class DbfBuilder {
public:
    explicit DbfBuilder(std::vector<DbfColumn> columns) : columns_(std::move(columns)) {}

    DbfBuilder& LanguageDriver(std::uint8_t driver) {
        driver_ = driver;
        return *this;
    }
    DbfBuilder& Row(const std::vector<std::string>& values, bool deleted = false) {
        records_ += deleted ? '*' : ' ';
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            std::string value = i < values.size() ? values[i] : std::string();
            const auto length = static_cast<std::size_t>(columns_[i].length);
            const bool right = columns_[i].type == 'N' || columns_[i].type == 'F';
            if (value.size() < length)
                value.insert(right ? 0 : value.size(), length - value.size(), ' ');
            records_ += value.substr(0, length);
        }
        ++count_;
        return *this;
    }

    std::string Bytes() const {
        std::string bytes(32, '\0');
        bytes[0] = 3;
        bytes[1] = 124;  // 2024-01-02
        bytes[2] = 1;
        bytes[3] = 2;
        Put(bytes, 4, 4, count_);
        Put(bytes, 8, 2, 32 + 32 * columns_.size() + 1);
        bytes[29] = static_cast<char>(driver_);
        std::size_t recordLength = 1;
        for (const DbfColumn& column : columns_) {
            recordLength += static_cast<std::size_t>(column.length);
            std::string entry(32, '\0');
            entry.replace(0, column.name.size(), column.name);
            entry[11] = column.type;
            entry[16] = static_cast<char>(column.length);
            entry[17] = static_cast<char>(column.decimals);
            bytes += entry.substr(0, 32);
        }
        Put(bytes, 10, 2, recordLength);
        return bytes + '\x0D' + records_ + '\x1A';
    }

    void Write(const std::string& path) const { std::ofstream(path, std::ios::binary) << Bytes(); }

    /// Writes a number, lowest byte first, over bytes that are there.
    static void Put(std::string& bytes, std::size_t offset, std::size_t count, std::size_t value) {
        for (std::size_t i = 0; i < count; ++i, value >>= 8)
            bytes[offset + i] = static_cast<char>(value & 0xFF);
    }

private:
    std::vector<DbfColumn> columns_;
    std::uint8_t driver_ = 0;
    std::string records_;
    std::size_t count_ = 0;
};

}  // namespace support
