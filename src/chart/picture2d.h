#pragma once

#include <string>
#include <variant>
#include <vector>

#include "chart/sheet2d.h"

namespace quor::chart {

/// A rectangle with a frame. Nothing is filled by a colour that is wholly translucent.
struct PictureBox {
    SheetRect rect;
    Colour fill;
    Frame frame;
};

/// A line without a gap, cut at the plot area where it belongs there.
struct PictureLine {
    std::vector<SheetPoint> points;
    LineStyle style;
    bool square_ends = false;  ///< the ends reach out by half the width, so that axes join
};

/// The points of a series.
struct PictureSymbols {
    std::vector<SheetPoint> places;
    SymbolShape shape = SymbolShape::Dot;
    float size = 0;  ///< width of one, pixels
    Colour colour;
};

/// A text around its centre, turned by degrees counter-clockwise.
struct PictureText {
    SheetPoint centre;
    std::string text;
    Font font;
    Colour colour;
    int rotation = 0;
};

using PictureItem = std::variant<PictureBox, PictureLine, PictureSymbols, PictureText>;

/// A 2D chart ready to be painted on a sheet of one size: all places in pixels of 1/96 inch, y
/// down. Nothing needs clipping, which not every vector format knows.
struct Picture2D {
    Sheet2D sheet;                   ///< where the parts stand
    Colour paper;                    ///< fills the sheet beneath everything
    std::vector<PictureItem> items;  ///< in the order of painting
};

/// Lays the chart out once; screen, paper and files paint the same picture. It is painted within a
/// tenth of a second, whatever the chart holds: where that is too much, lines become fine, symbols
/// that cover each other are left out, and at last points and texts, which a remark says.
Picture2D picture_of(const Chart2D& chart, double width, double height, const MeasureText& measure);

}  // namespace quor::chart
