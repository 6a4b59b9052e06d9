#include "gis/tables/Misfits.h"

#include <memory>
#include <string>

namespace gis {
namespace {

bool IsSqlite(const OpenLayer& opened) {
    const std::string driver = opened.dataset->GetDriverName();
    return driver == "GPKG" || driver == "SQLite";
}

/// A name in SQL.
std::string Quoted(const std::string& name) {
    std::string quoted = "\"";
    for (const char letter : name) quoted += letter == '"' ? "\"\"" : std::string(1, letter);
    return quoted + '"';
}

/// The condition under which a column has a value that GDAL changes; empty if it changes none.
std::string ConditionOf(const OGRFieldDefn& field) {
    const std::string column = Quoted(field.GetNameRef());
    switch (field.GetType()) {
        case OFTInteger:  // Of 32 bits, and GDAL drops the higher ones.
            return "(typeof(" + column + ") NOT IN ('integer', 'null') OR " + column +
                   " NOT BETWEEN -2147483648 AND 2147483647)";
        case OFTInteger64:
            return "(typeof(" + column + ") NOT IN ('integer', 'null'))";
        case OFTReal:
            return "(typeof(" + column + ") NOT IN ('integer', 'real', 'null'))";
        default:
            return {};
    }
}

/// The rows of a query.
class Query {
public:
    Query(GDALDataset& dataset, const std::string& sql)
        : dataset_(dataset), result_(dataset.ExecuteSQL(sql.c_str(), nullptr, nullptr)) {}
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;
    ~Query() {
        if (result_ != nullptr) dataset_.ReleaseResultSet(result_);
    }

    OGRFeatureUniquePtr Next() {
        return OGRFeatureUniquePtr(result_ == nullptr ? nullptr : result_->GetNextFeature());
    }

private:
    GDALDataset& dataset_;
    OGRLayer* result_;
};

/// A layer of several geometries is named "table(geometry)".
std::string TableOf(OGRLayer& layer) {
    const std::string name = layer.GetName();
    const std::string geometry = '(' + std::string(layer.GetGeometryColumn()) + ')';
    return Quoted(name.ends_with(geometry) ? name.substr(0, name.size() - geometry.size()) : name);
}

class Search {
public:
    Search(OpenLayer& opened, const std::string& where, const LayerFields& fields,
           TableNotes& notes)
        : opened_(opened),
          fields_(fields),
          notes_(notes),
          from_(" FROM " + TableOf(*opened.layer) + " WHERE " +
                (where.empty() ? "TRUE" : '(' + where + ')')) {}

    Misfits Find() {
        const auto& layer = *opened_.layer->GetLayerDefn();
        std::string counts;
        std::vector<std::size_t> counted;
        for (int i = 0; i < layer.GetFieldCount(); ++i) {
            const std::string condition = ConditionOf(*layer.GetFieldDefn(i));
            if (condition.empty()) continue;
            counts += (counts.empty() ? "SELECT total" : ", total") + condition;
            counted.push_back(static_cast<std::size_t>(i));
        }
        if (counted.empty()) return {};
        Query query(*opened_.dataset, counts + from_);
        const auto found = query.Next();
        for (std::size_t i = 0; found && i < counted.size(); ++i)
            if (found->GetFieldAsDouble(static_cast<int>(i)) > 0) FindIn(counted[i]);
        return std::move(misfits_);
    }

private:
    void FindIn(std::size_t field) {
        const auto& layer = *opened_.layer->GetLayerDefn();
        const auto& definition = *layer.GetFieldDefn(static_cast<int>(field));
        const std::string key = opened_.layer->GetFIDColumn();
        const std::string text =
            "substr(CAST(" + Quoted(definition.GetNameRef()) + " AS TEXT), 1, 40)";
        Query query(*opened_.dataset, "SELECT " + (key.empty() ? "-1" : Quoted(key) + " + 0") +
                                          " AS number, " + text + " AS text" + from_ + " AND " +
                                          ConditionOf(definition));
        misfits_.resize(fields_.fields.size());
        while (const auto row = query.Next()) {
            const GIntBig feature = row->GetFieldAsInteger64("number");
            misfits_[field].insert(feature);
            notes_.AddFaultyValue(field, fields_.fields[field].name, feature,
                                  '"' + std::string(row->GetFieldAsString("text")) +
                                      "\" is no number of the kind that the field has, and was "
                                      "taken for no value");
        }
    }

    OpenLayer& opened_;
    const LayerFields& fields_;
    TableNotes& notes_;
    std::string from_;  ///< With the condition on the records.
    Misfits misfits_;
};

}  // namespace

Misfits FindMisfits(OpenLayer& opened, const std::string& where, const LayerFields& fields,
                    TableNotes& notes) {
    if (!IsSqlite(opened)) return {};
    const GdalMessages messages;
    Misfits misfits = Search(opened, where, fields, notes).Find();
    messages.ThrowIfFailed(notes.Path());
    return misfits;
}

bool IsMisfit(const Misfits& misfits, std::size_t field, const OGRFeature& feature) {
    return field < misfits.size() && misfits[field].contains(feature.GetFID());
}

}  // namespace gis
