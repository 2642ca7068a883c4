#pragma once

#include <QMainWindow>

#include "diagrams/surface_sheet.h"
#include "gui/chart/chart3d_widget.h"
#include "gui/diagrams/window_menus.h"

class QDockWidget;
class QLabel;

namespace quor::gui {

class SurfacePanel;

/// A surface of a fluid over a regular grid, with the commands on it and the design panel. Several
/// may be open; each keeps its fluid, kind and limits.
class SurfaceWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit SurfaceWindow(diagrams::SurfaceSheet sheet);
    ~SurfaceWindow() override;

    /// The surface in use; nullptr when none is open.
    static SurfaceWindow* current();
    /// Opens a view of a surface.
    static void Open(diagrams::SurfaceSheet sheet);

    /// Makes this surface the one used last.
    void becomeCurrent();

    diagrams::SurfaceSheet& sheet() { return sheet_; }
    /// Repaints after a change of the sheet; menus and panel follow.
    void refresh();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

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
    void setCaption(const QString& file = {});
    void closeView();

    diagrams::SurfaceSheet sheet_;
    WindowMenus menus_;
    chart::Chart3DWidget* canvas_ = nullptr;
    SurfacePanel* panel_ = nullptr;
    QDockWidget* dock_ = nullptr;
    QLabel* status_ = nullptr;
};

namespace graph3d_views {

/// Connects the preparation of surfaces with their view and registers the rows of the menu.
void Install();

}  // namespace graph3d_views

}  // namespace quor::gui
