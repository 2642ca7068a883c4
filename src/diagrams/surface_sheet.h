#pragma once

#include <optional>
#include <string>

#include "chart/chart3d.h"
#include "common/result.h"
#include "diagrams/surface.h"
#include "diagrams/surface_grid.h"

namespace quor::diagrams {

/// The numbers of a surface that depend on units.
struct SurfaceNumbers {
    SurfaceLimits limits;
    chart::SurfaceGrid grid;
    chart::Box3D axes;                     ///< limits of the axes, as they are set
    std::vector<chart::Marker3D> markers;  ///< and their places
    friend bool operator==(const SurfaceNumbers&, const SurfaceNumbers&) = default;
};

/// A surface before a change of units, and as it has left it: a change back finds the same numbers.
struct SurfaceOrigin {
    models::UnitChoice units;
    SurfaceNumbers before, after;
};

/// One surface on the screen: what it shows and of which fluid, its working limits, its chart.
struct SurfaceSheet {
    const SurfaceKind* kind = nullptr;
    Basis basis;  ///< of its values; it stays until the surface is drawn anew
    bool s_curve = false;
    SurfaceLimits limits;                        ///< in displayed units
    int nx = kNodesAtStart, ny = kNodesAtStart;  ///< mesh lines of each direction
    chart::Chart3D chart;
    /// The texts that the chart was given last: drawing anew renews those that were not changed.
    SurfaceTexts given;
    bool foreign = false;  ///< the chart comes from a file whose axes are not those of the kind
    std::optional<SurfaceOrigin> origin{};
};

/// A surface with the default limits of its kind, computed and with its texts and fonts. The S
/// shape is for cubic equations; a V-only one has none.
SurfaceSheet open_surface(const SurfaceKind& kind, const Basis& basis, bool s_curve,
                          int nx = kNodesAtStart, int ny = kNodesAtStart);

/// `cmdNewDraw`: computes the surface of a basis, the present one, anew; a critical point that is
/// marked moves along. Styles and view stay. An empty surface is remarked upon.
void new_draw(SurfaceSheet& sheet, const Basis& basis);

/// Shows all of a surface in other units; texts that the user has changed stay. A chart of another
/// kind from a file keeps its units until it is drawn anew, and so does a surface whose units the
/// fluid cannot have: the failure says it.
Result<void> change_units(SurfaceSheet& sheet, const models::UnitChoice& choice);

/// The unit of an axis of the surface, in which its limits can be typed.
struct SurfaceQuantity {
    models::Dimension dimension;
    models::Scale scale;
};
std::optional<SurfaceQuantity> quantity_of(const SurfaceSheet& sheet, Axis axis);

/// `cmdCoord3_OK`: takes the limits and draws anew, of the fluid that the sheet shows, or tells
/// which are refused. Limits that the kind does not use stay as they are.
bool set_limits(SurfaceSheet& sheet, const SurfaceLimits& limits);

/// `mnuIXIY`: numbers of mesh lines, kept within 2 to 201.
void set_meshlines(SurfaceSheet& sheet, int nx, int ny);

/// The critical point of the sheet's fluid as a marker; false, after a box, where there is none.
bool add_critical_point(SurfaceSheet& sheet);
/// Whether the critical point is marked; and its removal.
bool has_critical_mark(const SurfaceSheet& sheet);
void remove_critical_mark(SurfaceSheet& sheet);

/// The remark of a chart without a surface; false when there is something to see.
bool tell_empty_surface(const chart::Chart3D& chart);

/// What came of reading a file.
struct SurfaceFileAnswer {
    std::optional<std::string> file;  ///< that was read
    std::string folder;               ///< in which the next file is looked for
};
/// The name proposed for the file of a surface: of a substance and the axes, such as "Propane
/// h-p-T.oc3".
std::string proposed_file(const SurfaceSheet& sheet, const std::string& substance);
/// `mnuSaveOC3`: asks for a name, beginning with one in a folder, and writes the chart;
/// the path of the file, if there is one now.
std::optional<std::string> save_oc3(const SurfaceSheet& sheet, const std::string& folder,
                                    const std::string& proposed);

/// `mnuLoadOC3`: asks for a file, whose chart takes the place of the sheet's. Working limits, kind
/// and fluid stay; their units become those that the axes of the file name. Nothing changes after a
/// cancel or with a file that cannot be read.
SurfaceFileAnswer load_oc3(SurfaceSheet& sheet, const std::string& folder);

/// x, y and z of a place on the surface with the titles of the axes.
std::string surface_readout(const chart::Chart3D& chart, double x, double y, double z);

}  // namespace quor::diagrams
