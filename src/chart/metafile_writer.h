#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "chart/chart_style.h"

/// Windows metafiles, written record by record: formats [MS-EMF] and [MS-WMF] of the Open
/// Specifications.
namespace quor::chart::metafile {

/// A place in units of the metafile, y down.
struct MetaPoint {
    std::int32_t x = 0, y = 0;
    friend bool operator==(const MetaPoint&, const MetaPoint&) = default;
};

struct MetaRect {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    friend bool operator==(const MetaRect&, const MetaRect&) = default;
};

/// How lines end and meet.
enum class Cap : std::uint8_t { Round, Square, Flat };
enum class Join : std::uint8_t { Round, Bevel, Miter };

/// A solid pen; dashes come as single lines.
struct MetaPen {
    Colour colour;
    std::int32_t width = 1;
    Cap cap = Cap::Flat;
    Join join = Join::Round;
    friend bool operator==(const MetaPen&, const MetaPen&) = default;
};

struct MetaFont {
    std::string family;
    std::int32_t height = 12;        ///< of the em square
    std::int32_t tenth_degrees = 0;  ///< turn counter-clockwise
    bool bold = false, italic = false;
    friend bool operator==(const MetaFont&, const MetaFont&) = default;
};

struct MetaText {
    MetaPoint baseline;  ///< where the first character begins
    std::u16string text;
    std::vector<std::int32_t> advances;  ///< of each code unit
    Colour colour;
    MetaFont font;
};

using Polygon = std::vector<MetaPoint>;

/// Writes one picture. Calls come in the order of painting; `finish` ends the picture.
class Writer {
  public:
    virtual ~Writer() = default;

    virtual void polyline(std::span<const MetaPoint> points, const MetaPen& pen) = 0;
    /// Fills polygons as one area. A metafile knows no translucency: a translucent colour is laid
    /// over white and combined with what is there so that darker things stay visible through it.
    virtual void fill(const std::vector<Polygon>& polygons, bool winding, Colour colour) = 0;
    virtual void text(const MetaText& text) = 0;
    /// Limits the following calls to a rectangle; none lifts the limit.
    virtual void clip(const std::optional<MetaRect>& rect) = 0;
    /// True when the format can hold the text; others are painted as outlines.
    virtual bool holds(const std::u16string& text) const = 0;
    /// The whole file.
    virtual std::vector<std::uint8_t> finish() = 0;
};

/// Size of a picture: units to each side, and units an inch.
struct MetaSize {
    std::int32_t width = 0, height = 0, units_per_inch = 1200;
};

/// Enhanced metafile (.emf).
std::unique_ptr<Writer> make_emf_writer(const MetaSize& size, const std::string& title);
/// Windows metafile with the placeable header (.wmf). Sides up to 32767 units.
std::unique_ptr<Writer> make_wmf_writer(const MetaSize& size);

}  // namespace quor::chart::metafile
