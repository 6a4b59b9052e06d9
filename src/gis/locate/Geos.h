#pragma once

#include <functional>
#include <geos_c.h>
#include <memory>
#include <ogr_geometry.h>
#include <vector>

namespace gis {

/// A context of GEOS for one thread, which reports nothing: functions tell a failure by null.
class Geos {
public:
    Geos();
    Geos(const Geos&) = delete;
    Geos& operator=(const Geos&) = delete;
    ~Geos();

    struct Deleter {
        GEOSContextHandle_t context;
        void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
    };
    using Geometry = std::unique_ptr<GEOSGeometry, Deleter>;

    GEOSContextHandle_t Context() const { return context_; }
    Geometry Own(GEOSGeometry* geometry) const { return Geometry(geometry, Deleter{context_}); }
    /// Null if GEOS cannot hold the geometry.
    Geometry Copy(const OGRGeometry& geometry) const;

    bool IsEmpty(const Geometry& geometry) const;
    /// False for what GEOS cannot judge.
    bool IsValid(const Geometry& geometry) const;
    Geometry MakeValid(const Geometry& geometry) const;
    /// The areas of what may also contain lines and points; null if it has none.
    Geometry Areas(Geometry geometry) const;
    Geometry Intersection(const GEOSGeometry* one, const GEOSGeometry* other) const;
    Geometry Difference(const GEOSGeometry* one, const GEOSGeometry* other) const;
    double Area(const GEOSGeometry* geometry) const;
    /// Area of areas, length of lines, number of points: of the highest dimension that it has.
    double Extent(const GEOSGeometry* geometry) const;

private:
    GEOSContextHandle_t context_;
};

/// Finds rectangles that a rectangle meets. Each thread needs its own.
class BoxIndex {
public:
    BoxIndex(const Geos& geos, const std::vector<OGREnvelope>& boxes);
    BoxIndex(const BoxIndex&) = delete;
    BoxIndex& operator=(const BoxIndex&) = delete;
    ~BoxIndex();

    /// Returns the numbers of the boxes, ascending; valid until the next call.
    const std::vector<std::size_t>& Find(const OGREnvelope& box);

private:
    const Geos& geos_;
    GEOSSTRtree* tree_;
    std::vector<std::size_t> numbers_;
    std::vector<std::size_t> found_;
};

}  // namespace gis
