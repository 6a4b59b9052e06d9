#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pdf/file/ObjectFile.h"

namespace pdf {

/// Packs many small objects of one kind, each padded to rows of the same width. A row differs from
/// the one before only in some digits, and mostly by the same amounts, so that the differences of
/// rows, which are what is compressed (the predictor "Up"), repeat: an object takes one or two
/// bytes.
class ObjectRows {
public:
    /// The row is a number of bytes, a multiple of 20.
    ObjectRows(ObjectFile& file, std::size_t row) : file_(file), row_(row) {}

    /// Returns a number for an object of this kind. The next objects have the next numbers.
    int NewObject();

    void Write(int number, std::string_view body);
    /// Writes what is left.
    void Flush();

private:
    ObjectFile& file_;
    std::size_t row_;
    int nextNumber_ = 0, endNumber_ = 0;
    std::vector<int> numbers_;
    std::string head_;
    std::string rows_;
};

/// Appends a reference with blanks before it, so that all take the same number of bytes.
void AppendAligned(std::string& out, int object);

/// Returns an array of references between other parts of an object.
std::string AlignedArray(std::string_view before, const std::vector<int>& objects,
                         std::string_view after);

}  // namespace pdf
