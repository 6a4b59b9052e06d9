#include "listings/Combine.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "listings/ReferenceGroups.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using host::IHostPropertySet;
using host::Ref;

// Two rows are the same if their texts, joined without separators, are equal.
struct RowTexts {
    std::string all;
    std::size_t leadingSize = 0;  // Without the last column.

    std::string_view Leading() const { return std::string_view(all).substr(0, leadingSize); }
};

class ListingBuilder {
public:
    ListingBuilder(host::IHost& host, const Settings& settings, const host::IHostTable& indexTable)
        : host_(host),
          settings_(settings),
          groups_(ReferenceGroups::For(settings)),
          result_(host.NewPropertySet()) {
        for (const std::string& name : NamesOf(*settings.columnDisplayOrder)) {
            fields_.push_back(indexTable.FindField(name));
            sets_.push_back(host.NewPropertySet());
            result_->SetItem(name, Ref<host::IHostObject>(sets_.back()));
        }
        cells_.resize(fields_.size());
        head_.resize(fields_.size());
        separator_ =
            settings.combineWithNewLine ? std::string(kNewLineToken) : settings.combineDelimeter;
    }

    void Take(const host::IHostRow& row, RunReport& report) {
        Read(row);
        if (SameText(previous_.all, texts_.all)) {
            ++report.duplicates;
            return;
        }
        if (!MayCombine()) {
            Begin(row.OID(), report);
        } else if (!haveHead_ || !SameText(previous_.Leading(), texts_.Leading())) {
            if (combined_) FinishCombination();
            Begin(row.OID(), report);
        } else {
            Merge();
            ++report.combined;
        }
        std::swap(previous_, texts_);
    }

    // Stores the last listing as it is: FinishCombination runs only when another one begins.
    Ref<IHostPropertySet> Finish() {
        StoreHead();
        return result_;
    }

private:
    void Read(const host::IHostRow& row) {
        texts_.all.clear();
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            cells_[i] = ToText(row.Value(fields_[i]), host_.Locale());
            texts_.leadingSize = texts_.all.size();
            texts_.all += cells_[i];
        }
    }

    bool SameText(std::string_view text1, std::string_view text2) {
        if (text1 == text2) return true;
        compared1_ = text1;
        compared2_ = text2;
        return host_.Locale().CompareText(compared1_, compared2_) == 0;
    }

    bool MayCombine() const { return fields_.size() >= 2 && settings_.combineListings; }

    void Begin(std::int32_t oid, RunReport& report) {
        StoreHead();
        headKey_ = std::to_string(oid);
        std::swap(head_, cells_);  // The cells are read anew for the next row.
        if (groups_) references_ = {head_.back()};
        haveHead_ = true;
        combined_ = false;
        ++report.listings;
    }

    void StoreHead() {
        if (!haveHead_) return;
        if (groups_) head_.back() = groups_->Text(references_, separator_);
        for (std::size_t i = 0; i < sets_.size(); ++i)
            sets_[i]->SetItem(headKey_, std::move(head_[i]));
    }

    void FinishCombination() {
        head_.back() = ReplaceAll(std::move(head_.back()), kLastCombineToken, "");
    }

    void Merge() {
        if (groups_) return references_.push_back(cells_.back());
        std::string& stored = head_.back();
        if (settings_.combineFirstAndLast) {
            combined_ = true;
            const auto firstEnd = stored.find(kLastCombineToken);
            if (firstEnd != std::string::npos) stored.resize(firstEnd);
            stored += kLastCombineToken;
        }
        stored += separator_;
        stored += cells_.back();
    }

    host::IHost& host_;
    const Settings& settings_;
    std::optional<ReferenceGroups> groups_;
    std::vector<std::string> references_;  // Of the head, where they are grouped.
    Ref<IHostPropertySet> result_;
    std::vector<Ref<IHostPropertySet>> sets_;
    std::vector<std::int32_t> fields_;
    std::string separator_;

    std::vector<std::string> cells_;  // Of the row just read.
    std::vector<std::string> head_;   // Of the listing that may still grow.
    std::string headKey_;
    bool haveHead_ = false;
    bool combined_ = false;  // In first-and-last mode: the head has taken in a further row.
    RowTexts texts_;         // Of the row just read.
    RowTexts previous_;      // Of the last row that was no duplicate.
    std::string compared1_, compared2_;  // Kept for their storage.
};

}  // namespace

Ref<IHostPropertySet> PopulateRowValuesPropertySet(host::IHost& host, const Settings& settings,
                                                   host::IHostCursor& cursor,
                                                   const host::IHostTable& indexTable,
                                                   RunReport& report) try {
    ListingBuilder builder(host, settings, indexTable);
    Status status(host);
    const std::int64_t count = CountRows(indexTable);
    std::int64_t counter = 0;
    for (auto row = cursor.NextRow(); row; row = cursor.NextRow()) {
        ++counter;
        status.Show("Removing Duplicates, Combining and Storing listings...", counter, counter,
                    count);
        builder.Take(*row, report);
    }
    return builder.Finish();
} catch (...) {
    PassOn("PopulateRowValuesPropertySet", kManagerLabel);
}

}  // namespace gazetteer
