#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "desk/drawing/OutputFile.h"
#include "desk/drawing/pdf/Deflate.h"

namespace desk::pdf {

/// The objects of a PDF file, written as they come. What is kept of an object is where it lies.
/// Objects that are no streams are packed together into compressed ones: a page with its bookmark
/// then takes some 30 bytes and not 280.
class ObjectFile {
public:
    explicit ObjectFile(OutputFile& file);

    /// A number for an object that is written later. Every one must be.
    int NewObject();

    void WriteObject(int number, std::string_view body);
    /// Writes a stream, compressed. The entries are those of its dictionary other than its length
    /// and filter.
    void WriteStream(int number, std::string_view entries, std::string_view data);
    int WriteStream(std::string_view entries, std::string_view data);
    int WriteObject(std::string_view body);

    /// Writes what remains. Nothing can be written after it.
    void Finish(int catalog, int info);

private:
    /// Where an object lies: at an offset of the file, or as one of those in a packed stream.
    struct Place {
        bool packed = false;
        std::uint64_t where = 0;  ///< Offset, or number of the packed stream.
        std::uint16_t index = 0;  ///< In the packed stream.
    };

    void Write(std::string_view bytes);
    void WritePacked();
    std::string Places(int offsetBytes) const;

    OutputFile& file_;
    Deflate deflate_;
    std::uint64_t written_ = 0;
    std::vector<Place> places_{1};  ///< By object number; there is no object 0.
    // Objects that wait to be packed: their numbers and offsets, and their bodies.
    int packedCount_ = 0;
    std::string packedHead_;
    std::string packedBodies_;
    int packedStream_ = 0;
    std::string scratch_;
};

}  // namespace desk::pdf
