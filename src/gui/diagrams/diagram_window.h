#pragma once

#include <QMainWindow>

#include "diagrams/diagram_sheet.h"
#include "diagrams/sheet_marks.h"
#include "gui/chart/chart2d_widget.h"

class QDockWidget;
class QLabel;
class QMenu;
class QToolBar;

namespace quor::gui {

class DesignPanel;

/// A 2D diagram: the sheet with its curves, points and marks, the commands on it, and the design
/// panel. Several may be open; the one that was used last is the diagram of the session.
class DiagramWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit DiagramWindow(const diagrams::DiagramRequest& request);
    ~DiagramWindow() override;

    /// The diagram in use; nullptr when none is open.
    static DiagramWindow* current();
    /// Opens a diagram for the session's request.
    static void Open();

    /// Makes this diagram the one of the session.
    void becomeCurrent();

    /// `cmdDraw`: the curve of the session's parameters.
    void draw();
    /// Opens the input of the parameter, or of the range, of the next curve.
    void askParameter();
    void askRange();
    /// Draws a function of the database in its range of validity.
    void ShowDatabaseFunction(float low, float high);

    /// Asks for a saved diagram and shows it.
    void load();

    Module9::DiagramSheet& sheet() { return sheet_; }
    /// Repaints after a change of the sheet; menus and panel follow.
    void refresh();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Command = std::function<void()>;

    QAction* command(QMenu* menu, const QString& caption, const QString& name, Command what);
    void mark(QMenu* menu, const QString& caption, const QString& name, Module9::Mark kind,
              bool (*what)(Module9::DiagramSheet&));
    void buildMarkMenu();
    void buildDeleteMenu();
    void buildDesignMenu();
    void buildPictureMenu();
    void buildFileMenu();
    void buildToolBar();
    void connectCanvas();
    void paintSheet();

    void followMenus();
    void design(const QString& page);
    void designHit(const chart::ChartHit& hit);
    void showReadout(const chart::ChartHit& hit);
    void clicked(const chart::ChartHit& hit);

    void askCoordinates();
    void askIsohygric();
    void askProcessLine(std::uint8_t kind);
    void drawProcessLine();
    void askText();
    void addLegend();
    void copyPicture();
    void savePicture();
    void printPicture();
    void copyTable();
    int curveInUse() const;
    void abortWhenEmpty();
    void setCaption(const QString& file = {});
    void closeView();

    Module9::DiagramSheet sheet_;
    chart::Chart2DWidget* canvas_ = nullptr;
    DesignPanel* panel_ = nullptr;
    QDockWidget* dock_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* parameter_ = nullptr;
    struct MarkRow {
        QAction* action;
        Module9::Mark kind;
    };
    std::vector<MarkRow> marks_;
    /// Actions with the state that enables them.
    std::vector<std::pair<QAction*, std::function<bool()>>> rules_;
};

namespace graph2d_views {

/// Connects the preparation of diagrams with their views and registers the rows of the menu.
void Install();

}  // namespace graph2d_views

}  // namespace quor::gui
