#include "listings/Combine.h"

#include <string>
#include <utility>
#include <vector>

#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using host::IHostPropertySet;
using host::Ref;

// What makes a row the same as the row before it. The texts are joined with nothing between them.
struct RowTexts {
    std::string all;
    std::string leading;  // Without the last column.
};

class ListingBuilder {
public:
    ListingBuilder(host::IHost& host, const Settings& settings, const host::IHostTable& indexTable)
        : host_(host), settings_(settings), result_(host.NewPropertySet()) {
        for (const std::string& name : NamesOf(*settings.columnDisplayOrder)) {
            fields_.push_back(indexTable.FindField(name));
            sets_.push_back(host.NewPropertySet());
            result_->SetItem(name, Ref<host::IHostObject>(sets_.back()));
        }
        cells_.resize(fields_.size());
        separator_ =
            settings.combineWithNewLine ? std::string(kNewLineToken) : settings.combineDelimeter;
    }

    void Take(const host::IHostRow& row, RunReport& report) {
        RowTexts texts = Read(row);
        if (SameText(previous_.all, texts.all)) {
            ++report.duplicates;
            return;
        }
        if (!MayCombine()) {
            Begin(row.OID(), std::move(texts), report);
        } else if (!haveHead_ || !SameText(previous_.leading, texts.leading)) {
            if (combined_) FinishCombination();
            Begin(row.OID(), std::move(texts), report);
        } else {
            Merge();
            previous_ = std::move(texts);
            ++report.combined;
        }
    }

    // The listing that is still growing goes in as it stands: only the next one finishes it.
    Ref<IHostPropertySet> Finish() {
        StoreHead();
        return result_;
    }

private:
    RowTexts Read(const host::IHostRow& row) {
        RowTexts texts;
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            cells_[i] = ToText(row.Value(fields_[i]), host_.Locale());
            if (i + 1 == fields_.size()) texts.leading = texts.all;
            texts.all += cells_[i];
        }
        return texts;
    }

    bool SameText(const std::string& text1, const std::string& text2) {
        return text1 == text2 || host_.Locale().CompareText(text1, text2) == 0;
    }

    bool MayCombine() const { return fields_.size() >= 2 && settings_.combineListings; }

    void Begin(std::int32_t oid, RowTexts texts, RunReport& report) {
        StoreHead();
        headKey_ = std::to_string(oid);
        head_ = cells_;
        haveHead_ = true;
        combined_ = false;
        previous_ = std::move(texts);
        ++report.listings;
    }

    void StoreHead() {
        if (!haveHead_) return;
        for (std::size_t i = 0; i < sets_.size(); ++i)
            sets_[i]->SetItem(headKey_, std::move(head_[i]));
    }

    void FinishCombination() {
        head_.back() = ReplaceAll(std::move(head_.back()), kLastCombineToken, "");
    }

    void Merge() {
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
    Ref<IHostPropertySet> result_;
    std::vector<Ref<IHostPropertySet>> sets_;
    std::vector<std::int32_t> fields_;
    std::string separator_;

    std::vector<std::string> cells_;  // Of the row just read.
    std::vector<std::string> head_;   // Of the listing that may still grow.
    std::string headKey_;
    bool haveHead_ = false;
    bool combined_ = false;  // In first-and-last mode: the head has taken in a further row.
    RowTexts previous_;      // Of the last row that was no duplicate.
};

}  // namespace

Ref<IHostPropertySet> PopulateRowValuesPropertySet(host::IHost& host, const Settings& settings,
                                                   host::IHostCursor& cursor,
                                                   const host::IHostTable& indexTable,
                                                   RunReport& report) try {
    ListingBuilder builder(host, settings, indexTable);
    Status status(host);
    std::int64_t counter = 0;
    for (auto row = cursor.NextRow(); row; row = cursor.NextRow()) {
        status.Show("Removing Duplicates, Combining and Storing listings...", ++counter);
        builder.Take(*row, report);
    }
    return builder.Finish();
} catch (...) {
    PassOn("PopulateRowValuesPropertySet", kManagerLabel);
}

}  // namespace gazetteer
