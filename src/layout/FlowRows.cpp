#include "layout/FlowRows.h"

#include <utility>

#include "layout/RowElements.h"

namespace gazetteer {

BuiltRow PassRows::Title(const host::IHostPoint& position) {
    return Measured(MakeTitleGroup(pass_, position));
}

BuiltRow PassRows::Heading(const std::string& rowKey, HeadingKind kind,
                           const host::IHostPoint& position, bool alternate) {
    return Measured(MakeBreakGroup(pass_, rowKey, kind, position, alternate));
}

BuiltRow PassRows::Listing(const std::string& rowKey, const host::IHostPoint& position,
                           bool alternate) {
    return Measured(MakeRowGroup(pass_, rowKey, position, alternate));
}

double PassRows::WidthOf(const std::string&, const BuiltRow& row) {
    return pass_.GetElementWidth(*row.group);
}

bool PassRows::BeginsLetter(const std::string& rowKey, const std::string& previousRow) {
    return RowNeedsBreak(pass_, rowKey, previousRow);
}

bool PassRows::HasLetter(const std::string& rowKey) {
    return RowHasLetter(pass_, rowKey);
}

BuiltRow PassRows::Measured(host::Ref<host::IHostElement> group) {
    const double height = pass_.GetElementHeight(*group);
    return {std::move(group), height};
}

}  // namespace gazetteer
