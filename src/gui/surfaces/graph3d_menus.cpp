#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "gui/chart/picture_commands.h"
#include "gui/surfaces/surface_window.h"
#include "gui/widgets/theme.h"
#include "legacy/declare.h"

// The menus and the tool bar of a surface.

namespace quor::gui {

namespace {

using chart::PresetView;

constexpr QSize kToolIcon(20, 20);
constexpr double kZoomStep = 1.25;

struct Preset {
    const char* caption;
    const char* name;
    PresetView view;
};
constexpr std::array<Preset, 4> kPresets{{{"Default view", "mnuViewDefault", PresetView::Default},
                                          {"Along X", "mnuViewX", PresetView::AlongX},
                                          {"Along Y", "mnuViewY", PresetView::AlongY},
                                          {"Along Z", "mnuViewZ", PresetView::AlongZ}}};

QMenu* addMenu(QWidget* view, QMenuBar* bar, const QString& caption, const QString& name) {
    auto* menu = new QMenu(caption, view);
    menu->setObjectName(name);
    bar->addMenu(menu);
    return menu;
}

picture_commands::Picture pictureOf(const chart::Chart3D& c) {
    return {chart::paintingOf(c), c.print, QString::fromStdString(c.header.text)};
}

}  // namespace

QAction* SurfaceWindow::command(QMenu* menu, const QString& caption, const QString& name,
                                Command what) {
    auto* action = new QAction(caption, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, [this, what] {
        becomeCurrent();
        what();
    });
    if (menu != nullptr) menu->addAction(action);
    return action;
}

QAction* SurfaceWindow::toggle(QMenu* menu, const QString& caption, const QString& name,
                               std::function<bool*()> flag) {
    QAction* action = command(menu, caption, name, [this, flag] {
        *flag() = !*flag();
        refresh();
    });
    action->setCheckable(true);
    toggles_.emplace_back(action, flag);
    return action;
}

void SurfaceWindow::buildFileMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&File", "mnuFile");
    command(menu, "Load a diagram ...", "mnuLoadOC3", [this] { loadOC3(); });
    command(menu, "Save the diagram ...", "mnuSaveOC3", [this] { Module9::save_oc3(sheet_); });
    menu->addSeparator();
    command(menu, "Back to the main menu", "mnuHaupt", [this] { closeView(); });
}

void SurfaceWindow::buildAddMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&Add ...", "mnuAdd");
    QAction* critical =
        command(menu, "Critical point", "mnuAddCritPoint", [this] { markCritical(); });
    critical->setCheckable(true);
    rules_.emplace_back(critical, [this] { return Module9::has_critical_mark(sheet_); });
}

void SurfaceWindow::buildViewMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&View", "mnuView");
    for (const Preset& preset : kPresets)
        command(menu, preset.caption, preset.name,
                [this, view = preset.view] { canvas_->setPreset(view); });
    menu->addSeparator();
    command(menu, "Zoom in", "mnuZoomIn", [this] { canvas_->zoom(kZoomStep); });
    command(menu, "Zoom out", "mnuZoomOut", [this] { canvas_->zoom(1 / kZoomStep); });
    menu->addSeparator();
    toggle(menu, "Perspective", "mnuPerspective",
           [this] { return &sheet_.chart.view.perspective; });
}

void SurfaceWindow::buildDesignMenu() {
    QMenu* menu = addMenu(this, menuBar(), "De&sign", "mnuDesign");
    command(menu, "Surface", "mnuSurfaceDesign", [this] { design("surface"); });
    command(menu, "Sections Z = const ", "mnuSectionDesign", [this] { design("sections"); });
    command(menu, "Axes", "mnuAxesDesign", [this] { design("axes"); });
    command(menu, "Titles and texts", "mnuTextDesign", [this] { design("texts"); });
    command(menu, "View", "mnuViewDesign", [this] { design("view"); });
}

void SurfaceWindow::buildPictureMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&Picture", "mnuBild");
    command(menu, "... to the Clipboard", "mnuBild_0",
            [this] { picture_commands::Copy(pictureOf(sheet_.chart)); });
    command(menu, "... Save as Image File (.BMP,.WMF)", "mnuBild_1", [this] {
        picture_commands::Save(pictureOf(sheet_.chart), legacy::the_session.FolderDiagram3D);
    });
    command(menu, "... to the Printer", "mnuBild_2",
            [this] { picture_commands::Print(pictureOf(sheet_.chart)); });
}

void SurfaceWindow::buildToolBar() {
    auto* bar = addToolBar("Diagram");
    bar->setObjectName("Toolbar3D");
    bar->setMovable(false);
    bar->setIconSize(kToolIcon);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [bar](QAction* action, const QString& tip) {
        action->setToolTip(tip);
        bar->addAction(action);
        bar->widgetForAction(action)->setObjectName(action->objectName());
        return action;
    };
    add(command(nullptr, "New Draw", "cmdNewDraw", [this] { newDraw(); }),
        "Computes the surface anew")
        ->setIcon(theme::icon("graph3d"));
    add(command(nullptr, "Coordinates ...", "mnuCoord", [this] { askLimits(); }),
        "Limits of the axes");
    add(command(nullptr, "x-y meshlines ...", "mnuIXIY", [this] { askMeshlines(); }),
        "Numbers of mesh lines");
    bar->addSeparator();
    chart::SurfaceStyle& s = sheet_.chart.style;
    add(toggle(nullptr, "Contours", "cmdContoured", [&s] { return &s.contoured; }),
        "Lines z = const on the surface");
    add(toggle(nullptr, "Zones", "cmdZoned", [&s] { return &s.zoned; }), "Colours by bands of z");
    add(toggle(nullptr, "Transparent", "cmdTransparent", [&s] { return &s.transparent; }),
        "What is behind shines through");
    add(toggle(nullptr, "Map", "cmd2D", [&s] { return &s.projection2D; }),
        "2D projection: a flat map, coloured by z");
    bar->addSeparator();
    add(findChild<QAction*>("mnuViewDefault"), "Default view (double click)")
        ->setIcon(theme::icon("zoom_fit"));
}

}  // namespace quor::gui
