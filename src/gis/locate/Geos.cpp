#include "gis/locate/Geos.h"

#include <algorithm>

namespace gis {
namespace {

constexpr std::size_t kNodeCapacity = 10;

Geos::Geometry BoxOf(const Geos& geos, const OGREnvelope& box) {
    return geos.Own(
        GEOSGeom_createRectangle_r(geos.Context(), box.MinX, box.MinY, box.MaxX, box.MaxY));
}

}  // namespace

Geos::Geos() : context_(GEOS_init_r()) {}

Geos::~Geos() {
    GEOS_finish_r(context_);
}

Geos::Geometry Geos::Copy(const OGRGeometry& geometry) const {
    return Own(geometry.exportToGEOS(context_));
}

Geos::PreparedArea Geos::PrepareCopy(const OGRGeometry& area) const {
    PreparedArea copy{Copy(area), nullptr};
    if (copy.area) copy.prepared = Prepare(copy.area);
    return copy;
}

bool Geos::IsEmpty(const Geometry& geometry) const {
    return GEOSisEmpty_r(context_, geometry.get()) != 0;
}

bool Geos::IsValid(const Geometry& geometry) const {
    return GEOSisValid_r(context_, geometry.get()) == 1;
}

Geos::Geometry Geos::MakeValid(const Geometry& geometry) const {
    return Own(GEOSMakeValid_r(context_, geometry.get()));
}

Geos::Geometry Geos::ValidArea(const OGRGeometry& geometry, bool& isMended) const {
    auto area = Copy(geometry);
    isMended = area && !IsValid(area);
    return isMended ? Areas(MakeValid(area)) : std::move(area);
}

std::unique_ptr<OGRGeometry> Geos::Shape(const Geometry& geometry) const {
    return std::unique_ptr<OGRGeometry>(
        OGRGeometryFactory::createFromGEOS(context_, geometry.get()));
}

Geos::Geometry Geos::Areas(Geometry geometry) const {
    if (!geometry || IsEmpty(geometry)) return nullptr;
    if (GEOSGeomTypeId_r(context_, geometry.get()) != GEOS_GEOMETRYCOLLECTION)
        return GEOSGeom_getDimensions_r(context_, geometry.get()) == 2 ? std::move(geometry)
                                                                       : nullptr;
    std::vector<GEOSGeometry*> areas;
    for (int i = 0; i < GEOSGetNumGeometries_r(context_, geometry.get()); ++i) {
        const auto* const part = GEOSGetGeometryN_r(context_, geometry.get(), i);
        // Parts that are collections themselves do not occur in what GEOS makes of areas.
        const int type = GEOSGeomTypeId_r(context_, part);
        if (type == GEOS_POLYGON) areas.push_back(GEOSGeom_clone_r(context_, part));
        if (type != GEOS_MULTIPOLYGON) continue;
        for (int j = 0; j < GEOSGetNumGeometries_r(context_, part); ++j)
            areas.push_back(GEOSGeom_clone_r(context_, GEOSGetGeometryN_r(context_, part, j)));
    }
    if (areas.empty()) return nullptr;
    return Own(GEOSGeom_createCollection_r(context_, GEOS_MULTIPOLYGON, areas.data(),
                                           static_cast<unsigned>(areas.size())));
}

Geos::Geometry Geos::Intersection(const GEOSGeometry* one, const GEOSGeometry* other) const {
    return Own(GEOSIntersection_r(context_, one, other));
}

Geos::Geometry Geos::Difference(const GEOSGeometry* one, const GEOSGeometry* other) const {
    return Own(GEOSDifference_r(context_, one, other));
}

double Geos::Area(const GEOSGeometry* geometry) const {
    double area = 0;
    GEOSArea_r(context_, geometry, &area);
    return area;
}

double Geos::Extent(const GEOSGeometry* geometry) const {
    double length = 0;
    switch (GEOSGeom_getDimensions_r(context_, geometry)) {
        case 2:
            return Area(geometry);
        case 1:
            GEOSLength_r(context_, geometry, &length);
            return length;
        default:
            return GEOSisEmpty_r(context_, geometry) != 0
                       ? 0
                       : GEOSGetNumGeometries_r(context_, geometry);
    }
}

BoxIndex::BoxIndex(const Geos& geos, const std::vector<OGREnvelope>& boxes)
    : geos_(geos), tree_(GEOSSTRtree_create_r(geos.Context(), kNodeCapacity)) {
    numbers_.reserve(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        numbers_.push_back(i);
        GEOSSTRtree_insert_r(geos.Context(), tree_, BoxOf(geos, boxes[i]).get(), &numbers_.back());
    }
}

BoxIndex::~BoxIndex() {
    GEOSSTRtree_destroy_r(geos_.Context(), tree_);
}

const std::vector<std::size_t>& BoxIndex::Find(const OGREnvelope& box) {
    found_.clear();
    const auto take = [](void* number, void* found) {
        static_cast<std::vector<std::size_t>*>(found)->push_back(
            *static_cast<const std::size_t*>(number));
    };
    GEOSSTRtree_query_r(geos_.Context(), tree_, BoxOf(geos_, box).get(), take, &found_);
    std::ranges::sort(found_);
    return found_;
}

}  // namespace gis
