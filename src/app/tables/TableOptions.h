#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace app {

/// What of a source becomes which field of a listing table. A field or an expression of fields;
/// empty: the source's field of that name, if it has one.
struct ImportOptions {
    std::string source;
    std::string layer;
    std::string where;  ///< SQL; empty: all records.
    std::string listing;
    std::string page;
    std::string row;
    std::string column;
    std::vector<std::string> keep;  ///< Fields that keep their names.
    bool initial = false;           ///< Adds the index letter of the listing, in a field "Initial".
};

/// Features of one layer, as given on the command line.
struct FeatureOptions {
    std::string source;
    std::string name;   ///< Field or expression of the listing; empty: "Listing" or "name".
    std::string where;  ///< SQL; empty: all features.
    std::vector<std::pair<std::string, std::string>> constants;  ///< Field and value.
};

struct LocateOptions {
    std::vector<FeatureOptions> features;
    std::string sheets;
    std::string page = "page";  ///< Field of the sheets.
    std::string grid;           ///< "ROWSxCOLUMNS"; empty: by the labels, or none.
    std::string rowLabels;
    std::string columnLabels;
    std::string leftOut;              ///< Letters that ranges of labels leave out.
    std::string origin = "top-left";  ///< Corner of the sheet from which squares are labelled.
    std::string cells;                ///< A layer of squares instead of a grid.
    std::string cellRow = "row";      ///< Its fields of the labels.
    std::string cellColumn = "column";
    std::string squares = "longest";  ///< all, longest, first.
    /// Map book to write; the table then names sheets by their number and squares by row and
    /// column from 1, which the map book turns into pages and labels.
    std::string book;
    std::vector<std::string> apart;  ///< Fields.
    bool initial = false;  ///< Adds the index letter of the listing, in a field "Initial".
    std::string locale;    ///< ICU's name, for that letter.
    double distance = 0;
    std::int32_t threads = 0;  ///< 0: as many as the machine has.
    bool wantsSketch = false;  ///< A small map of sheets and features.
};

}  // namespace app
