#pragma once

#include <cstdint>
#include <string>

#include "chart/chart3d.h"
#include "diagrams/surface.h"
#include "diagrams/surface_grid.h"
#include "legacy/declare.h"

namespace quor::Module9 {

/// One surface on the screen: what it shows, its working limits, its chart.
struct SurfaceSheet {
    std::int16_t Diagram3DKind = 0;
    bool SCurve3D = false;
    diagrams::Grid3D limits;  ///< in displayed units
    int nx = diagrams::kNodesAtStart,
        ny = diagrams::kNodesAtStart;  ///< mesh lines of each direction
    chart::Chart3D chart;
    /// The texts that the chart was given last: drawing anew renews those that were not changed.
    SurfaceTexts given;
};

/// The surface of the session's kind with the limits of `legacy::the_grid3D`, computed and with its
/// texts.
void open_surface(SurfaceSheet& sheet);

/// Kind and limits of a sheet become those of the session.
void give_to_session(const SurfaceSheet& sheet);

/// `cmdNewDraw`: computes the surface of the present models and units anew; a critical point that
/// is marked moves along. Styles and view stay. An empty surface is remarked upon.
void new_draw(SurfaceSheet& sheet);

/// `cmdCoord3_OK`: takes the limits and draws anew, or tells which are refused. Limits that the
/// kind does not use stay as they are.
bool SetLimits(SurfaceSheet& sheet, const diagrams::Grid3D& limits);

/// `mnuIXIY`: numbers of mesh lines, kept within 2 to 201.
void set_meshlines(SurfaceSheet& sheet, int nx, int ny);

/// Whether the critical point is marked; and its removal.
bool has_critical_mark(const SurfaceSheet& sheet);
void remove_critical_mark(SurfaceSheet& sheet);

/// `mnuSaveOC3`: asks for a name and writes the chart; false when nothing was written.
bool save_oc3(const SurfaceSheet& sheet);

/// `mnuLoadOC3`: asks for a file, whose chart takes the place of the sheet's. Working limits and
/// kind stay. Empty after a cancel or a file that cannot be read, else the file's name.
std::string load_oc3(SurfaceSheet& sheet);

/// x, y and z of a place on the surface with the titles of the axes.
std::string surface_readout(const chart::Chart3D& chart, double x, double y, double z);

}  // namespace quor::Module9
