#include "gis/tables/GdalTable.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "desk/files/Files.h"
#include "desk/tables/PlainObjects.h"
#include "gis/tables/Dataset.h"
#include "gis/tables/Misfits.h"
#include "gis/tables/Values.h"
#include "host/Failure.h"

namespace gis {
namespace {

/// GDAL's warnings that are told of one table.
constexpr std::size_t kMostWarnings = 10;

void AddWarnings(GdalMessages& messages, TableNotes& notes) {
    for (const auto& warning : messages.TakeWarnings())
        if (notes.Faults().size() < kMostWarnings) notes.AddFault(warning);
}

OpenLayer OpenWithoutGeometry(const std::string& source, const std::string& layer,
                              const std::string& where) {
    auto opened = OpenLayerOf(source, layer, where);
    const char* ignored[] = {"OGR_GEOMETRY", nullptr};
    if (opened.layer->TestCapability(OLCIgnoreFields) != 0) opened.layer->SetIgnoredFields(ignored);
    return opened;
}

}  // namespace

struct GdalTable::Shared {
    Shared(const std::string& from, const std::string& layerName, const std::string& condition)
        : source(from),
          layer(layerName),
          where(condition),
          notes(layerName.empty() ? from : from + '/' + layerName),
          state(desk::FileState::At(from)) {
        GdalMessages messages;
        auto opened = OpenWithoutGeometry(source, layer, where);
        fields = DescribeFields(*opened.layer->GetLayerDefn(), IsUntyped(opened));
        NoteNames();
        AddWarnings(messages, notes);
        idle = std::move(opened);
    }

    void NoteNames() {
        std::vector<std::string> fieldNames;
        for (const auto& field : fields.fields) fieldNames.push_back(field.name);
        names = desk::FieldNames(fieldNames);
        for (const auto& name : names.Repeated())
            notes.AddFault("more than one field is named " + name +
                           "; the one so written counts, else the first.");
        std::string bytes;
        for (const auto& field : fields.fields)
            if (field.kind == FieldKind::Memo) bytes += (bytes.empty() ? "" : ", ") + field.name;
        if (!bytes.empty())
            notes.AddRemark("pictures and other bytes are not read (" + bytes + ").");
        for (const auto& name : fieldNames)
            if (name.find(kNoUtf8) != std::string::npos)
                notes.AddFault("the field name \"" + name + "\" has " + kHasNoUtf8 + '.');
    }

    /// Opens the layer again, unless it is open and no cursor reads it.
    OpenLayer Take() {
        const GdalMessages messages;
        CheckUnchanged();
        OpenLayer opened;
        if (idle) {
            opened = std::move(*idle);
            idle.reset();
        } else {
            opened = OpenWithoutGeometry(source, layer, where);
        }
        if (DescribeFields(*opened.layer->GetLayerDefn(), fields.isUntyped).fields != fields.fields)
            Fail(" has other fields than when it was opened.");
        return opened;
    }

    /// Keeps what was taken for the next reading. On a server this ends a query.
    void GiveBack(OpenLayer opened) {
        const GdalMessages messages(opened.watch);
        opened.layer->ResetReading();
        idle = std::move(opened);
    }

    /// Looks for values of other types than the fields have, once.
    void CheckTypes(OpenLayer& opened) {
        if (std::exchange(typesAreChecked, true)) return;
        misfits = FindMisfits(opened, where, fields, notes);
    }

    void CheckUnchanged() const {
        const auto now = desk::FileState::At(source);
        if (state.exists && !now.exists) Fail(" is no longer there.");
        if (!(now == state)) Fail(" was changed by another program while it was read.");
    }

    [[noreturn]] void Fail(const std::string& fault) const {
        throw host::Failure(host::kFailureUnspecified, "GdalTable", notes.Path() + fault);
    }

    std::string source;
    std::string layer;
    std::string where;
    TableNotes notes;
    desk::FileState state;  ///< Of the file when the table was opened.
    LayerFields fields;
    desk::FieldNames names;
    Misfits misfits;
    bool typesAreChecked = false;
    std::optional<OpenLayer> idle;
};

namespace {

using Shared = GdalTable::Shared;

class GdalRow : public host::IHostRow {
public:
    explicit GdalRow(std::shared_ptr<Shared> table) : table_(std::move(table)) {}

    void Take(OGRFeatureUniquePtr feature) { feature_ = std::move(feature); }

    host::Variant Value(std::int32_t index) const override {
        const auto field = static_cast<std::size_t>(index);
        if (index < 0 || field >= table_->fields.fields.size())
            table_->Fail(" has no field number " + std::to_string(index) + '.');
        if (IsMisfit(table_->misfits, field, *feature_)) return host::Null{};
        return ReadValue(table_->fields, *feature_, field, table_->notes);
    }
    void SetValue(std::int32_t, host::Variant) override { FailReadOnly(table_->notes.Path()); }
    std::int32_t OID() const override {
        const std::int64_t number = feature_->GetFID();
        return number > std::numeric_limits<std::int32_t>::max()
                   ? -1
                   : static_cast<std::int32_t>(number);
    }

private:
    std::shared_ptr<Shared> table_;
    OGRFeatureUniquePtr feature_;
};

class GdalCursor : public host::IHostCursor {
public:
    GdalCursor(const std::shared_ptr<Shared>& table, bool recycling)
        : table_(table), open_(table->Take()), recycling_(recycling) {
        table->CheckTypes(open_);
    }
    GdalCursor(const GdalCursor&) = delete;
    GdalCursor& operator=(const GdalCursor&) = delete;
    ~GdalCursor() override {
        if (open_.dataset) table_->GiveBack(std::move(open_));
    }

    host::Ref<host::IHostRow> NextRow() override {
        if (!open_.dataset) return nullptr;
        GdalMessages messages(open_.watch);
        OGRFeatureUniquePtr feature(open_.layer->GetNextFeature());
        AddWarnings(messages, table_->notes);
        if (!feature) {
            End(messages);
            return nullptr;
        }
        if (!row_ || !recycling_) row_ = std::make_shared<GdalRow>(table_);
        row_->Take(std::move(feature));
        return row_;
    }
    void InsertRow(const host::Ref<host::IHostRow>&) override {
        FailReadOnly(table_->notes.Path());
    }
    void Flush() override {}

private:
    void End(const GdalMessages& messages) {
        auto open = std::move(open_);
        messages.ThrowIfFailed(table_->notes.Path());
        table_->CheckUnchanged();
        table_->GiveBack(std::move(open));
    }

    std::shared_ptr<Shared> table_;
    OpenLayer open_;  ///< Empty at the end.
    bool recycling_;
    host::Ref<GdalRow> row_;
};

}  // namespace

GdalTable::GdalTable(const std::string& source, const std::string& layer, const std::string& where)
    : shared_(std::make_shared<Shared>(source, layer, where)) {}

host::Ref<host::IHostFields> GdalTable::Fields() const {
    return desk::HostFields(shared_->fields.fields);
}

std::int32_t GdalTable::FindField(const std::string& name) const {
    return shared_->names.Find(name);
}

host::Ref<host::IHostCursor> GdalTable::Search(const host::Ref<host::IHostQueryFilter>& filter,
                                               bool recycling) {
    desk::RequireEveryRow(filter);
    return std::make_shared<GdalCursor>(shared_, recycling);
}

std::int64_t GdalTable::CountRows() const {
    const auto& idle = shared_->idle;
    const GdalMessages messages(idle ? idle->watch : nullptr);
    const bool isFast = idle && idle->layer->TestCapability(OLCFastFeatureCount) != 0;
    return isFast ? std::max<std::int64_t>(0, idle->layer->GetFeatureCount()) : 0;
}

std::vector<SourceField> GdalTable::SourceFields() const {
    return shared_->fields.fields;
}

std::string GdalTable::EncodingFrom() const {
    return "as GDAL reads every format";
}

std::int64_t GdalTable::LiveRecords() const {
    auto opened = shared_->Take();
    const GdalMessages messages(opened.watch);
    const std::int64_t count = opened.layer->GetFeatureCount();
    messages.ThrowIfFailed(shared_->notes.Path());
    shared_->GiveBack(std::move(opened));
    return std::max<std::int64_t>(0, count);
}

const TableNotes& GdalTable::Notes() const {
    return shared_->notes;
}

}  // namespace gis
