#pragma once

#include <cstdint>
#include <glib.h>
#include <libdeflate.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "glyphs/Releaser.h"
#include "pdf/file/Output.h"
#include "pdf/file/Violations.h"

namespace pdf {

/// Writes the objects of a PDF file one by one and keeps only their positions. Objects that are not
/// streams are packed into compressed object streams, so that a page and its bookmark take about 30
/// bytes instead of 280.
class ObjectFile {
public:
    /// The version is that of PDF, such as "1.7".
    ObjectFile(Output& output, std::string_view version);

    /// Reserves a number for an object that must be written later.
    int NewObject() { return NewObjects(1); }
    /// Reserves numbers that follow each other, and returns the first. Some may stay unused.
    int NewObjects(int count);

    void WriteObject(int number, std::string_view body);
    /// Writes a compressed stream with dictionary entries other than its length and filter.
    void WriteStream(int number, std::string_view entries, std::string_view data);
    /// The same with a new number, which is returned.
    int WriteStream(std::string_view entries, std::string_view data);
    /// A stream that is not compressed, for those who search the file's bytes.
    int WritePlainStream(std::string_view entries, std::string_view data);
    int WriteObject(std::string_view body);

    /// Writes an object stream whose data begins with the numbers and places of the objects, and
    /// has the first object at the given offset. The data is compressed by the differences of its
    /// rows, each of the given number of bytes.
    void WritePackedRows(const std::vector<int>& numbers, std::size_t first, std::string_view data,
                         std::size_t row);

    /// What the file's parts found that keeps it from being what it claims to be.
    Violations& Found() { return violations_; }
    /// Returns a number that tells the bytes so far from others, in 32 hexadecimal digits.
    std::string Identity() const;

    /// Writes the packed objects and the cross-reference table. Nothing can be written afterwards.
    void Finish(int catalog, int info);

private:
    /// Position of an object: an offset in the file, or an index in an object stream.
    struct Place {
        std::uint64_t where = 0;  ///< Offset, or number of the object stream.
        std::uint16_t index = 0;  ///< Index in the object stream.
        bool packed = false;
    };

    void Write(std::string_view bytes);
    void WriteStreamBytes(int number, const std::string& entries, std::string_view bytes);
    void WriteRows(int number, std::string_view entries, std::string_view data, std::size_t row);
    std::string_view Compress(std::string_view bytes);
    void WritePacked();
    std::string Places(int offsetBytes) const;

    Output& output_;
    Violations violations_;
    std::unique_ptr<GChecksum, glyphs::Releaser<g_checksum_free>>
        identity_;  ///< Of the bytes so far; null once the file's identifier is known.
    std::unique_ptr<libdeflate_compressor, glyphs::Releaser<libdeflate_free_compressor>>
        compressor_;
    std::string compressed_;   ///< Buffer for Compress.
    std::string differences_;  ///< Buffer for WriteRows.
    std::uint64_t written_ = 0;
    std::vector<Place> places_{1};  ///< By object number; there is no object 0.
    // Objects not packed yet: count, numbers with offsets, and bodies.
    int packedCount_ = 0;
    std::string packedHead_;
    std::string packedBodies_;
    int packedStream_ = 0;
};

}  // namespace pdf
