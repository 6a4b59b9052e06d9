#pragma once

#include <cstdint>
#include <libdeflate.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desk/files/ReplacingFile.h"
#include "desk/text/Handles.h"

namespace desk::pdf {

/// Writes the objects of a PDF file one by one, and keeps only where each lies. Objects that are
/// no streams are packed together into compressed streams: a page with its bookmark then takes some
/// 30 bytes instead of 280.
class ObjectFile {
public:
    explicit ObjectFile(ReplacingFile& file);

    /// Returns a number for an object that is written later. Every such object must be written.
    int NewObject();

    void WriteObject(int number, std::string_view body);
    /// Writes a stream, compressed. The entries are those of its dictionary other than its length
    /// and filter.
    void WriteStream(int number, std::string_view entries, std::string_view data);
    /// The same for a new object. They return its number.
    /// @{
    int WriteStream(std::string_view entries, std::string_view data);
    int WriteObject(std::string_view body);
    /// @}

    /// Writes the packed objects and the table of places. Nothing can be written after it.
    void Finish(int catalog, int info);

private:
    /// Where an object lies: at an offset of the file, or as one of those in a packed stream.
    struct Place {
        bool packed = false;
        std::uint64_t where = 0;  ///< Offset, or number of the packed stream.
        std::uint16_t index = 0;  ///< In the packed stream.
    };

    void Write(std::string_view bytes);
    std::string_view Compress(std::string_view bytes);
    void WritePacked();
    std::string Places(int offsetBytes) const;

    ReplacingFile& file_;
    std::unique_ptr<libdeflate_compressor, Releaser<libdeflate_free_compressor>> compressor_;
    std::string compressed_;  ///< Room for the compressed bytes of a stream.
    std::uint64_t written_ = 0;
    std::vector<Place> places_{1};  ///< By object number; there is no object 0.
    // Objects that wait to be packed: their numbers and offsets, and their bodies.
    int packedCount_ = 0;
    std::string packedHead_;
    std::string packedBodies_;
    int packedStream_ = 0;
};

}  // namespace desk::pdf
