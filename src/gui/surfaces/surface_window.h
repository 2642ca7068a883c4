#pragma once

#include <QMainWindow>
#include <functional>
#include <utility>
#include <vector>

#include "diagrams/surface_sheet.h"
#include "gui/chart/chart3d_widget.h"

class QDockWidget;
class QLabel;
class QMenu;

namespace quor::gui {

class SurfacePanel;

/// A surface of the substance over a regular grid, with the commands on it and the design panel.
/// Several may be open; each keeps its kind and limits, and the one used last gives them to the
/// session.
class SurfaceWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// Computes the session's surface.
    SurfaceWindow();
    ~SurfaceWindow() override;

    /// The surface in use; nullptr when none is open.
    static SurfaceWindow* current();
    /// Opens a view of the session's surface.
    static void Open();

    /// Makes this surface the one of the session.
    void becomeCurrent();

    Module9::SurfaceSheet& sheet() { return sheet_; }
    /// Repaints after a change of the sheet; menus and panel follow.
    void refresh();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    using Command = std::function<void()>;

    QAction* command(QMenu* menu, const QString& caption, const QString& name, Command what);
    QAction* toggle(QMenu* menu, const QString& caption, const QString& name,
                    std::function<bool*()> flag);
    void buildFileMenu();
    void buildAddMenu();
    void buildViewMenu();
    void buildDesignMenu();
    void buildPictureMenu();
    void buildToolBar();

    void newDraw();
    void askLimits();
    void askMeshlines();
    void markCritical();
    void loadOC3();
    void design(const QString& page);
    void followView();
    void setCaption(const QString& file = {});
    void closeView();

    Module9::SurfaceSheet sheet_;
    chart::Chart3DWidget* canvas_ = nullptr;
    SurfacePanel* panel_ = nullptr;
    QDockWidget* dock_ = nullptr;
    QLabel* status_ = nullptr;
    /// Actions with the state that checks or enables them.
    std::vector<std::pair<QAction*, std::function<bool*()>>> toggles_;
    std::vector<std::pair<QAction*, std::function<bool()>>> rules_;
};

namespace graph3d_views {

/// Connects the preparation of surfaces with their view and registers the rows of the menu.
void Install();

}  // namespace graph3d_views

}  // namespace quor::gui
