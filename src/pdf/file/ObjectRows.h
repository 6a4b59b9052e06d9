#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pdf/file/ObjectFile.h"

namespace pdf {

/// Packs many small objects of one kind, each padded to a row of the same width. A row differs from
/// the one before only in some digits, and mostly by the same amounts, so that the differences of
/// rows, which are what is compressed (the predictor "Up"), repeat: an object takes about one byte.
class ObjectRows {
public:
    explicit ObjectRows(ObjectFile& file) : file_(file) {}

    /// An object that is longer than a row is written among the file's other objects.
    void Write(int number, std::string_view body);
    void Flush();

private:
    ObjectFile& file_;
    std::vector<int> numbers_;
    std::string rows_;
};

/// Appends a reference with blanks before it, so that all take the same number of bytes.
void AppendAlignedReference(std::string& out, int object);

/// Writes an array of references as an object, compressed as rows are. With a number of 0 it gets a
/// new one, which is returned.
int WriteReferences(ObjectFile& file, int number, std::string_view before,
                    const std::vector<int>& objects, std::string_view after);

}  // namespace pdf
