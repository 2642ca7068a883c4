#pragma once

#include <QMainWindow>

#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_marks.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/diagrams/window_menus.h"
#include "gui/widgets/follows_session.h"

class QDockWidget;
class QLabel;

namespace quor::gui {

class DesignPanel;

/// A 2D diagram: the sheet with its curves, points and marks, the commands on it, and the design
/// panel. Several may be open. Its next curve is drawn with the present fluid, which it shows.
class DiagramWindow : public QMainWindow, public FollowsSession {
    Q_OBJECT

  public:
    DiagramWindow(const diagrams::PreparedDiagram& prepared, const diagrams::Basis& basis);
    ~DiagramWindow() override;

    /// The diagram in use; nullptr when none is open.
    static DiagramWindow* current();
    /// Opens a diagram.
    static void Open(const diagrams::PreparedDiagram& prepared, const diagrams::Basis& basis);

    /// Makes this diagram the one whose parameters the next one begins with.
    void becomeCurrent();

    /// `cmdDraw`: the curve of the sheet's parameters.
    void draw();
    /// Opens the input of the parameter, or of the range, of the next curve.
    void askParameter();
    void askRange();

    /// Asks for a saved diagram and shows it.
    void load();

    diagrams::DiagramSheet& sheet() { return sheet_; }
    /// Repaints after a change of the sheet; menus and panel follow.
    void refresh();
    void followSession() override;

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Marking = bool (*)(diagrams::DiagramSheet&, const diagrams::Pen&);

    void buildMenus();
    void buildToolBar();
    MenuRow fileMenu();
    MenuRow markMenu();
    MenuRow deleteMenu();
    MenuRow designMenu();
    MenuRow pictureMenu();
    MenuRow mark(const QString& caption, const QString& name, diagrams::Mark kind, Marking what);
    MenuRow removal(const QString& caption, const QString& name,
                    void (*what)(diagrams::DiagramSheet&), std::function<bool()> when);
    MenuRow deletionOfCurve(int number);
    MenuRow deletionOfPoints(int number);
    std::vector<MenuRow> drawButtons();
    std::vector<MenuRow> windowButtons();
    void connectCanvas();
    void paintSheet();

    void followMenus();
    void design(const QString& page);
    void designHit(const chart::ChartHit& hit);
    void showReadout(const chart::ChartHit& hit);
    void clicked(const chart::ChartHit& hit);

    void askCoordinates();
    void askIsohygric();
    void askProcessLine(diagrams::ProcessKind kind);
    void drawProcessLine(const diagrams::ProcessLine& line);
    void askText();
    void addLegend();
    void addMeasuredPoints();
    void addEditorPoints(bool asCurve);
    void saveCurve();
    void save();
    void copyPicture();
    void savePicture();
    void printPicture();
    void copyTable();
    int curveInUse() const;
    void abortWhenEmpty();
    void setCaption(const QString& file = {});
    void closeView();

    /// Before texts or styles that the user has changed are shown.
    void rememberDesign(const QString& what);

    diagrams::DiagramSheet sheet_;
    diagrams::SheetContent shown_;  ///< as it was painted last
    QString designed_;              ///< control of the design panel that changed it last
    WindowMenus menus_;
    int curveRows_ = 0, pointRows_ = 0;  ///< of the menus that delete
    chart::Chart2DWidget* canvas_ = nullptr;
    DesignPanel* panel_ = nullptr;
    QDockWidget* dock_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* fluid_ = nullptr;
    QLabel* parameter_ = nullptr;
};

namespace graph2d_views {

/// Connects the preparation of diagrams with their views and registers the rows of the menu.
void Install();
/// Opens a diagram for a file: that of the kind chosen last, without a curve.
void openEmpty();

}  // namespace graph2d_views

}  // namespace quor::gui
