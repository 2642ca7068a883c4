#include <QAction>
#include <QToolBar>

#include "gui/chart/picture_commands.h"
#include "gui/surfaces/surface_window.h"
#include "gui/widgets/theme.h"

// The menus and the tool bar of a surface.

namespace quor::gui {

namespace {

using chart::PresetView;

constexpr double kZoomStep = 1.25;

picture_commands::Picture pictureOf(const chart::Chart3D& c) {
    return {chart::paintingOf(c), c.print, QString::fromStdString(c.header.text)};
}

}  // namespace

MenuRow SurfaceWindow::toggle(const QString& caption, const QString& name, bool& flag,
                              const QString& tip) {
    return {.caption = caption,
            .name = name,
            .run =
                [this, &flag] {
                    flag = !flag;
                    refresh();
                },
            .checked = [&flag] { return flag; },
            .tip = tip};
}

void SurfaceWindow::buildMenus() {
    const auto preset = [this](const char* caption, const char* name, PresetView view) {
        return MenuRow{
            .caption = caption, .name = name, .run = [this, view] { canvas_->setPreset(view); }};
    };
    const auto page = [this](const char* caption, const char* name, const char* shown) {
        return MenuRow{.caption = caption, .name = name, .run = [this, shown] { design(shown); }};
    };
    menus_.addMenu(
        {.caption = "&File",
         .name = "mnuFile",
         .rows = {
             {.caption = "Load a diagram ...", .name = "mnuLoadOC3", .run = [this] { loadOC3(); }},
             {.caption = "Save the diagram ...",
              .name = "mnuSaveOC3",
              .run = [this] { saveOC3(); }},
             {},
             {.caption = "Back to the main menu", .name = "mnuHaupt", .run = [this] {
                  closeView();
              }}}});
    menus_.addMenu({.caption = "&Add ...",
                    .name = "mnuAdd",
                    .rows = {{.caption = "Critical point",
                              .name = "mnuAddCritPoint",
                              .run = [this] { markCritical(); },
                              .checked = [this] { return diagrams::has_critical_mark(sheet_); }}}});
    menus_.addMenu(
        {.caption = "&View",
         .name = "mnuView",
         .rows = {preset("Default view", "mnuViewDefault", PresetView::Default),
                  preset("Along X", "mnuViewX", PresetView::AlongX),
                  preset("Along Y", "mnuViewY", PresetView::AlongY),
                  preset("Along Z", "mnuViewZ", PresetView::AlongZ),
                  {},
                  {.caption = "Zoom in",
                   .name = "mnuZoomIn",
                   .run = [this] { canvas_->zoom(kZoomStep); }},
                  {.caption = "Zoom out",
                   .name = "mnuZoomOut",
                   .run = [this] { canvas_->zoom(1 / kZoomStep); }},
                  {},
                  toggle("Perspective", "mnuPerspective", sheet_.chart.view.perspective)}});
    menus_.addMenu({.caption = "De&sign",
                    .name = "mnuDesign",
                    .rows = {page("Surface", "mnuSurfaceDesign", "surface"),
                             page("Sections Z = const ", "mnuSectionDesign", "sections"),
                             page("Axes", "mnuAxesDesign", "axes"),
                             page("Titles and texts", "mnuTextDesign", "texts"),
                             page("View", "mnuViewDesign", "view")}});
    menus_.addMenu({.caption = "&Picture",
                    .name = "mnuBild",
                    .rows = {{.caption = "... to the Clipboard",
                              .name = "mnuBild_0",
                              .run = [this] { picture_commands::copy(pictureOf(sheet_.chart)); }},
                             {.caption = "... Save as Image File (.BMP,.WMF)",
                              .name = "mnuBild_1",
                              .run =
                                  [this] {
                                      picture_commands::save(pictureOf(sheet_.chart),
                                                             session_->folder_surfaces);
                                  }},
                             {.caption = "... to the Printer", .name = "mnuBild_2", .run = [this] {
                                  picture_commands::print(pictureOf(sheet_.chart),
                                                          desk_.frameWindow());
                              }}}});
}

void SurfaceWindow::buildToolBar() {
    chart::SurfaceStyle& s = sheet_.chart.style;
    QToolBar* bar = menus_.addToolBar(
        "Toolbar3D",
        {{.caption = "New Draw",
          .name = "cmdNewDraw",
          .run = [this] { newDraw(); },
          .tip = "Computes the surface anew",
          .icon = "graph3d"},
         {.caption = "Coordinates ...",
          .name = "mnuCoord",
          .run = [this] { askLimits(); },
          .tip = "Limits of the axes"},
         {.caption = "x-y meshlines ...",
          .name = "mnuIXIY",
          .run = [this] { askMeshlines(); },
          .tip = "Numbers of mesh lines"},
         {},
         toggle("Contours", "cmdContoured", s.contoured, "Lines z = const on the surface"),
         toggle("Zones", "cmdZoned", s.zoned, "Colours by bands of z"),
         toggle("Transparent", "cmdTransparent", s.transparent, "What is behind shines through"),
         toggle("Map", "cmd2D", s.projection_2d, "2D projection: a flat map, coloured by z"),
         {}});
    // The button and the row of the menu are one action.
    auto* standard = findChild<QAction*>("mnuViewDefault");
    standard->setToolTip("Default view (double click)");
    standard->setIcon(theme::icon("zoom_fit"));
    bar->addAction(standard);
    bar->widgetForAction(standard)->setObjectName(standard->objectName());
}

}  // namespace quor::gui
