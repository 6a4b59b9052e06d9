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
        void operator()(const GEOSPreparedGeometry* prepared) const {
            GEOSPreparedGeom_destroy_r(context, prepared);
        }
    };
    using Geometry = std::unique_ptr<GEOSGeometry, Deleter>;
    /// Of a geometry that many are compared with; it must live as long.
    using Prepared = std::unique_ptr<const GEOSPreparedGeometry, Deleter>;

    GEOSContextHandle_t Context() const { return context_; }
    Geometry Own(GEOSGeometry* geometry) const { return Geometry(geometry, Deleter{context_}); }
    /// Null if GEOS cannot hold the geometry.
    Geometry Copy(const OGRGeometry& geometry) const;

    Geometry Copy(const Geometry& geometry) const {
        return Own(GEOSGeom_clone_r(context_, geometry.get()));
    }
    Prepared Prepare(const Geometry& geometry) const {
        return Prepared(GEOSPrepare_r(context_, geometry.get()), Deleter{context_});
    }
    /// An area that many geometries are compared with.
    struct PreparedArea {
        Geometry area;
        Prepared prepared;  ///< Null if GEOS cannot hold the area.
    };
    PreparedArea PrepareCopy(const OGRGeometry& area) const;
    bool Covers(const PreparedArea& area, const Geometry& geometry) const {
        return GEOSPreparedCovers_r(context_, area.prepared.get(), geometry.get()) == 1;
    }

    bool IsEmpty(const Geometry& geometry) const;
    /// False for what GEOS cannot judge.
    bool IsValid(const Geometry& geometry) const;
    Geometry MakeValid(const Geometry& geometry) const;
    /// The geometry itself or, if it is no valid area, what can be made of it; null if nothing can.
    Geometry ValidArea(const OGRGeometry& geometry, bool& isMended) const;
    std::unique_ptr<OGRGeometry> Shape(const Geometry& geometry) const;
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

/// The boxes of sheets or squares.
template <class Boxed>
std::vector<OGREnvelope> BoxesOf(const std::vector<Boxed>& all) {
    std::vector<OGREnvelope> boxes;
    for (const auto& one : all) boxes.push_back(one.box);
    return boxes;
}

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
