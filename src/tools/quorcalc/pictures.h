#pragma once

#include <functional>
#include <string>

#include "chart/chart3d.h"
#include "chart/chart_file.h"
#include "diagrams/diagram_sheet.h"
#include "tools/quorcalc/arguments.h"

namespace quor::quorcalc {

/// Draws diagrams into files without a window. The program hands it in, so that the commands know
/// nothing of fonts and painters; with empty functions a picture cannot be made.
struct PictureDrawer {
    /// The outcome of writing a file of `format`: "png", "svg" or "pdf".
    using Outcome = Result<void>;
    std::function<Outcome(diagrams::DiagramSheet&, const std::string& format,
                          const std::string& file)>
        draw_sheet;
    std::function<Outcome(const chart::Chart3D&, const std::string& format,
                          const std::string& file)>
        draw_surface;
};

/// True when the call asks for a picture.
bool wants_picture(const Arguments& arguments);

/// Writes every picture that the call asks for. Throws `CannotBeDone` with the reason.
void write_pictures(const PictureDrawer& drawer, const Arguments& arguments,
                    diagrams::DiagramSheet& sheet);
void write_pictures(const PictureDrawer& drawer, const Arguments& arguments,
                    const chart::Chart3D& surface);

}  // namespace quor::quorcalc
