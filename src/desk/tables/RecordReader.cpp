#include "desk/tables/RecordReader.h"

#include <algorithm>

#include "desk/tables/DbfSchema.h"
#include "desk/tables/RecordFile.h"

namespace desk {
namespace {

/// Large enough that the calls do not count, small enough to stay in the cache.
constexpr std::int64_t kBlockBytes = std::int64_t{256} * 1024;

}  // namespace

RecordReader::RecordReader(std::shared_ptr<const DbfSchema> schema)
    : schema_(std::move(schema)),
      recordsPerBlock_(std::max<std::int64_t>(1, kBlockBytes / schema_->recordLength)) {}

RecordReader::~RecordReader() = default;

bool RecordReader::Next() {
    const auto length = static_cast<std::size_t>(schema_->recordLength);
    while (number_ < schema_->recordCount) {
        if (number_ == blockEnd_) Fill();
        const auto place = static_cast<std::size_t>(number_ - blockFirst_) * length;
        ++number_;
        if (block_[place] == '*') continue;
        record_ = {block_.data() + place, length};
        return true;
    }
    // Blocks from before and after a change do not belong together.
    schema_->file->CheckUnchanged();
    return false;
}

void RecordReader::Fill() {
    blockFirst_ = blockEnd_;
    blockEnd_ = std::min(schema_->recordCount, blockFirst_ + recordsPerBlock_);
    block_.resize(static_cast<std::size_t>((blockEnd_ - blockFirst_) * schema_->recordLength));
    schema_->file->Read(schema_->headerLength + blockFirst_ * schema_->recordLength, block_.data(),
                        block_.size());
}

}  // namespace desk
