#include "gis/locate/LocateFeatures.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "gis/locate/FeatureLayer.h"
#include "gis/locate/InOrder.h"
#include "gis/locate/ListingSquares.h"
#include "gis/locate/Locator.h"
#include "gis/locate/Sheets.h"
#include "gis/locate/Sketch.h"

namespace gis {
namespace {

/// Features whose squares are found by one thread at a time: so many that handing them over costs
/// little, so few that they take little memory.
constexpr std::size_t kBatch = 256;

/// Lines of features on a small map.
constexpr std::size_t kMostLines = 100'000;

struct Feature {
    std::int64_t number = 0;
    std::string name;
    std::vector<std::string> apart;
    std::unique_ptr<OGRGeometry> geometry;
    LocatedGeometry located;
};
using Batch = std::vector<Feature>;

Batch Locate(Locator& locator, Batch batch) {
    for (auto& feature : batch) {
        feature.located = locator.Locate(feature.geometry.get());
        feature.geometry.reset();
    }
    return batch;
}

class Work {
public:
    explicit Work(const LocateJob& job)
        : job_(job), sheets_(ReadSheets(job)), listings_(job.squares, job.distance) {
        result_.notes = sheets_.notes;
        isUsed_.resize(sheets_.sheets.size());
    }

    LocateResult Run() {
        for (std::size_t i = 0; i < job_.features.size(); ++i) Read(i);
        listings_.MoveTo(result_);
        for (std::size_t i = 0; i < isUsed_.size(); ++i) {
            result_.pages.push_back(sheets_.sheets[i].page);
            if (!isUsed_[i]) result_.emptySheets.push_back(sheets_.sheets[i].page);
        }
        if (job_.wantsSketch) result_.sketch.sheets = SketchSheets(sheets_);
        result_.isInPageOrder = sheets_.isInPageOrder;
        result_.rowLabels = std::move(sheets_.rowLabels);
        result_.columnLabels = std::move(sheets_.columnLabels);
        return std::move(result_);
    }

private:
    void Read(std::size_t number) {
        const LocatedLayer& place = job_.features[number];
        FeatureLayer layer(place);
        std::vector<std::int32_t> apart;
        for (const auto& name : place.apart) apart.push_back(name.empty() ? -1 : layer.Field(name));
        NoteReference(layer);
        const std::int64_t count = layer.Count();
        const auto threads = static_cast<std::size_t>(std::max(1, job_.threads));
        // Made here, because reference systems are not for several threads.
        std::vector<std::unique_ptr<Locator>> locators;
        for (std::size_t i = 0; i < threads; ++i)
            locators.push_back(std::make_unique<Locator>(
                sheets_, layer.Reference(), LocatorWishes{job_.wantsSketch, job_.distance > 0}));
        InOrder<Batch, Batch> order(
            threads,
            [&](std::size_t thread, Batch batch) {
                return Locate(*locators[thread], std::move(batch));
            },
            [&](Batch batch) {
                for (auto& feature : batch) Take(number, feature);
                if (job_.progress) job_.progress(number, result_.counts[number].read, count);
            });
        result_.counts.emplace_back();
        Batch batch;
        while (const auto& row = layer.Next()) {
            Feature feature;
            feature.number = row->Feature().GetFID();
            feature.name = place.listingOf(row);
            for (const auto field : apart)
                feature.apart.push_back(field < 0 ? std::string() : WholeText(row->Value(field)));
            feature.geometry.reset(row->Feature().StealGeometry());
            batch.push_back(std::move(feature));
            if (batch.size() == kBatch) order.Push(std::exchange(batch, {}));
        }
        order.Push(std::move(batch));
        order.Finish();
        layer.AddNotes(result_.notes);
    }

    void NoteReference(const FeatureLayer& layer) {
        const bool isKnown = layer.Reference() != nullptr;
        if (isKnown == sheets_.hasReference) return;
        const std::string& unknown = isKnown ? job_.sheets.Text() : layer.Name();
        result_.notes.push_back(unknown + " has no reference system; it is taken for that of " +
                                (isKnown ? layer.Name() : job_.sheets.Text()) + '.');
    }

    void Take(std::size_t number, Feature& feature) {
        LayerCounts& counts = result_.counts[number];
        ++counts.read;
        LocatedGeometry& located = feature.located;
        for (const auto& part : located.parts)
            for (const auto& square : part.squares) isUsed_[square.sheet] = true;
        if (located.isMended && !located.isBroken) counts.mended.Add(feature.number);
        if (feature.name.empty())
            counts.unnamed.Add(feature.number);
        else if (located.isEmpty)
            counts.withoutGeometry.Add(feature.number);
        else if (located.isBroken)
            counts.broken.Add(feature.number);
        else if (located.parts.empty())
            (located.hasNoLength  ? counts.withoutLength
             : located.meetsSheet ? counts.inNoSquare
                                  : counts.outside)
                .Add(feature.number);
        else
            listings_.Add(job_.features[number].group, feature.name, feature.apart,
                          std::move(located.parts));
        for (auto& line : located.sketch)
            if (result_.sketch.features.size() < kMostLines)
                result_.sketch.features.push_back(std::move(line));
    }

    const LocateJob& job_;
    Sheets sheets_;
    ListingSquares listings_;
    std::vector<bool> isUsed_;  ///< By sheet.
    LocateResult result_;
};

}  // namespace

LocateResult LocateFeatures(const LocateJob& job) {
    return Work(job).Run();
}

}  // namespace gis
