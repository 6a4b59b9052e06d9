#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "gis_locate/Layers.h"

namespace tests {

/// Reference system of the random sheets.
inline constexpr int kSheetsSystem = 3035;

/// A rectangle in any rotation around its centre.
struct RandomSheet {
    int page = 0;
    OGRRawPoint centre;
    double width = 0;
    double height = 0;
    double angle = 0;  ///< Degrees to the left.

    /// The place at shares of width and height from the centre, -0.5 to 0.5, x to the right and y
    /// upwards as the reader sees the sheet, whose top is the edge nearest to the horizontal.
    OGRRawPoint At(double x, double y) const;
};

/// A square as the test computes it; row and column from 0.
struct Cell {
    std::size_t sheet = 0;  ///< In page order.
    int row = 0;
    int column = 0;
    std::string wkt;
};

/// Draws sheets and features; the same ones for the same seed.
class RandomMap {
public:
    explicit RandomMap(std::uint32_t seed) : random_(seed) {}

    /// Sheets in page order that overlap, and of which some places lie on none.
    std::vector<RandomSheet> Sheets(int count);
    /// The sheets as a layer in another order, with the corners from any one on in either
    /// direction.
    Layer SheetLayer(std::vector<RandomSheet> sheets);
    static std::vector<Cell> Cells(const std::vector<RandomSheet>& sheets, int rows, int columns);

    /// Points, lines and areas of all kinds in a reference system (0: unknown, as the sheets), with
    /// names that several share. The fields are name and town.
    Layer Features(const std::string& name, int count, int epsg);

    double Between(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(random_);
    }
    int Whole(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }

private:
    using Points = std::vector<OGRRawPoint>;
    OGRRawPoint Place();
    double Size();
    Points Walk();
    Points Star(const OGRRawPoint& centre, double inner, double outer);
    std::string Polygon(const OGRRawPoint& centre, double size);
    std::string PointFeature();
    std::string LineFeature();
    std::string AreaFeature();

    std::mt19937 random_;
};

}  // namespace tests
