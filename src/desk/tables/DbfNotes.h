#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace desk {

/// What is odd about a table: faults of the file, and the first faulty value of each field.
class DbfNotes {
public:
    /// Every sentence begins with the file's path.
    explicit DbfNotes(std::string path) : path_(std::move(path)) {}

    void Add(const std::string& fault) { sentences_.push_back(path_ + ": " + fault); }

    /// Notes a faulty value; later ones of the same field are not noted again. Record numbers
    /// count from 1.
    void AddValue(std::size_t field, const std::string& fieldName, std::int64_t record,
                  const std::string& fault);

    const std::vector<std::string>& Sentences() const { return sentences_; }

private:
    std::string path_;
    std::vector<std::string> sentences_;
    std::vector<bool> noted_;  ///< By field.
};

}  // namespace desk
