#pragma once

#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_marks.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/diagrams/chart_window.h"
#include "gui/widgets/follows_session.h"
#include "gui/widgets/undo_keys.h"

class QLabel;

namespace quor::gui {

class DesignPanel;

/// A 2D diagram: the sheet with its curves, points and marks, the commands on it, and the design
/// panel. Several may be open. Its next curve is drawn with the present fluid, which it shows.
class DiagramWindow : public ChartWindow, public FollowsSession, public Undoable {
    Q_OBJECT

  public:
    DiagramWindow(Desk& desk, const diagrams::PreparedDiagram& prepared,
                  const diagrams::Basis& basis);

    /// Opens a diagram.
    static DiagramWindow* openNew(Desk& desk, const diagrams::PreparedDiagram& prepared,
                                  const diagrams::Basis& basis);

    /// `cmdDraw`: the curve of the sheet's parameters.
    void draw();
    /// Opens the input of the parameter, or of the range, of the next curve.
    void askParameter();
    void askRange();

    /// Asks for a saved diagram and shows it.
    void load();
    /// Shows a known file.
    void load(const std::string& file);

    diagrams::DiagramSheet& sheet() { return sheet_; }
    /// Repaints after a change of the sheet; menus and panel follow.
    void refresh();
    /// Shows the present fluid; after a change of the session's units the sheet is converted.
    void followSession() override;

    QString undoName() const override;
    QString redoName() const override;
    void undo() override;
    void redo() override;

  protected:
    /// The parameters of this diagram are those that the next one begins with.
    void keepChoice() override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

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
    void followUnits();
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
    bool save();
    /// Shows what was loaded, or closes after a failure.
    void take(const diagrams::LoadAnswer& answer);
    void chooseSubstance();
    bool hasFluid() const;
    /// Asks about curves and points that are in no file; true when they may go.
    bool mayLeave();
    void copyPicture();
    void savePicture();
    void printPicture();
    void copyTable();
    int curveInUse() const;
    /// The place of the only curve, or of the one that the user chooses; -1 when there is none.
    int chooseCurve(const QString& title);
    void abortWhenEmpty();
    void showCaption(const QString& file = {});

    /// Before texts or styles that the user has changed are shown.
    void rememberDesign(const QString& what);

    diagrams::DiagramSheet sheet_;
    diagrams::SheetContent shown_;       ///< as it was painted last
    models::UnitChoice seenUnits_;       ///< of the session, as they were seen last
    bool unsaved_ = false;               ///< more than the window has changed since a file had it
    QString designed_;                   ///< control of the design panel that changed it last
    int curveRows_ = 0, pointRows_ = 0;  ///< of the menus that delete
    chart::Chart2DWidget* canvas_ = nullptr;
    DesignPanel* panel_ = nullptr;
    QLabel* fluid_ = nullptr;
    QLabel* parameter_ = nullptr;
};

namespace diagram_views {

/// Gives the calculations and the XY editor the way to a diagram. The desk outlives its doors.
void install(Desk& desk);
/// Opens the diagram chosen last in the menu, and the input of its first curve. A diagram that the
/// present fluid cannot have is refused and said.
void openFromMenu(Desk& desk);
/// Opens a saved diagram. It is shown as it is; its next curve needs a substance.
void openSaved(Desk& desk, const std::string& file);

}  // namespace diagram_views

}  // namespace quor::gui
