#pragma once

#include "diagrams/diagram_sheet.h"

/// The window of a sheet, its axes and their scaling.
namespace quor::diagrams {

chart::Window as_chart_window(const CurveWindow& window);

/// Shows a window; lines that cross the whole of it reach its new end. The coordinates stay.
void show_window(DiagramSheet& sheet, const chart::Window& window);

/// Window and computing range. Refused, and said, when a lower limit is not below its upper one.
bool set_coordinates(DiagramSheet& sheet, const chart::Window& window);
/// After the user has zoomed or panned the shown window: what spans the window reaches its new end.
/// The coordinates stay.
void follow_window(DiagramSheet& sheet);
/// The window goes to the data, as new coordinates; false without data.
bool fit_window(DiagramSheet& sheet);
/// The window as it was first proposed.
void default_coordinates(DiagramSheet& sheet);

/// `cmdChangeXY`: exchanges the axes with all that belongs to them.
void change_xy(DiagramSheet& sheet);

/// While it lives, a turned sheet stands upright: curves and points are computed for the axes of
/// its diagram, and turn with it afterwards.
class Upright {
  public:
    explicit Upright(DiagramSheet& sheet) : sheet_(sheet), turned_(sheet.chart.swapped) {
        if (turned_) change_xy(sheet_);
    }
    ~Upright() {
        if (turned_) change_xy(sheet_);
    }
    /// True for a sheet that was turned.
    bool turned() const { return turned_; }
    Upright(const Upright&) = delete;
    Upright& operator=(const Upright&) = delete;

  private:
    DiagramSheet& sheet_;
    bool turned_;
};

void set_logarithmic(DiagramSheet& sheet, bool x_axis, bool on);

/// Spacings and digits as typed; 0 or less leaves a value to the chart, digits below 0 too.
struct Scaling {
    double x_tick = 0, y_tick = 0, x_grid = 0, y_grid = 0;
    int x_digits = -1, y_digits = -1;
};
/// `optScaling`: index 0 leaves grid, ticks and digits to the chart, 1 takes the values.
void set_scaling(DiagramSheet& sheet, int index, const Scaling& values);

}  // namespace quor::diagrams
