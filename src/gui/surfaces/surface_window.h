#pragma once

#include "diagrams/surface_sheet.h"
#include "gui/chart/chart3d_widget.h"
#include "gui/diagrams/chart_window.h"
#include "gui/widgets/follows_session.h"

namespace quor::gui {

class SurfacePanel;

/// A surface of a fluid over a regular grid, with the commands on it and the design panel. Several
/// may be open; each keeps its fluid, kind and limits.
class SurfaceWindow : public ChartWindow, public FollowsSession {
    Q_OBJECT

  public:
    SurfaceWindow(Desk& desk, diagrams::SurfaceSheet sheet);

    /// Opens a view of a surface.
    static SurfaceWindow* openNew(Desk& desk, diagrams::SurfaceSheet sheet);

    diagrams::SurfaceSheet& sheet() { return sheet_; }
    /// Repaints after a change of the sheet; menus and panel follow.
    void refresh();
    /// After a change of the session's units the surface is converted.
    void followSession() override;

  protected:
    void keepChoice() override;

  private:
    void buildMenus();
    void buildToolBar();
    MenuRow toggle(const QString& caption, const QString& name, bool& flag,
                   const QString& tip = {});

    void newDraw();
    void askLimits();
    void askMeshlines();
    void markCritical();
    void loadOC3();
    void saveOC3();
    void design(const QString& page);
    void followView();
    void showCaption(const QString& file = {});

    diagrams::SurfaceSheet sheet_;
    models::UnitChoice seenUnits_;  ///< of the session, as they were seen last
    chart::Chart3DWidget* canvas_ = nullptr;
    SurfacePanel* panel_ = nullptr;
};

namespace surface_views {

/// Opens the surface chosen last in the menu, of the present fluid.
void openFromMenu(Desk& desk);

}  // namespace surface_views

}  // namespace quor::gui
