#pragma once

#include <array>
#include <functional>
#include <utility>

#include "common/history.h"
#include "datafiles/measured_table.h"
#include "gui/widgets/child_view.h"
#include "gui/widgets/follows_session.h"
#include "gui/widgets/undo_keys.h"

class QAction;
class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QTableView;

namespace quor::gui {

class NumberEdit;
class TpvTableModel;

/// Editor of the experimental data: the table, a line of input, files, clipboard, order. Fitting
/// and graphs of the data belong to others; without their doors the buttons are disabled.
class MeasuredDataEditor : public ChildView, public FollowsSession, public Undoable {
    Q_OBJECT

  public:
    explicit MeasuredDataEditor(Desk& desk, QWidget* parent = nullptr);

    /// Opens the editor on the data of the session. One that is open comes to the front; what is
    /// unsaved in it stays so, unless the data are new.
    static void openNew(Desk& desk);
    static void openPresent(Desk& desk);

    /// Shows the data of the session again when they were changed elsewhere.
    void followSession() override;

    QString undoName() const override;
    QString redoName() const override;
    void undo() override;
    void redo() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Marked lines, counted from 1; 0 and 0 without a mark.
    using Lines = std::pair<int, int>;

    /// What a step of undo takes back.
    struct Content {
        std::vector<datafiles::MeasuredPoint> points;
        std::string comment;

        bool operator==(const Content&) const = default;
    };

    QWidget* buildTable();
    QGroupBox* buildUnits();
    QGroupBox* buildInput();
    QGroupBox* buildTarget();
    QLayout* buildLineButtons();
    QLayout* buildFileButtons();
    void buildMenu();
    void arrange();

    void showData();
    /// Data without a line belong to the active substance; all others keep theirs.
    void adoptSubstance();
    /// Makes a change of the data, as a step that can be taken back.
    void change(const char* name, const std::function<void(Content&)>& what);
    /// Shows the present state of the history and hands it to the session.
    void showPresent();
    /// Takes data over as they are now in the session, with nothing to take back.
    void restart();
    /// Hands data to the session.
    void give(datafiles::MeasuredData data);
    /// Runs a command of this view that changes the data of the session by itself.
    template <class Command>
    bool ownCommand(const Command& run);
    /// Asks whether changed data shall be saved; true when they may be left.
    bool mayLeave();
    datafiles::MeasuredData data() const;
    const std::vector<datafiles::MeasuredPoint>& points() const { return history_.value().points; }
    int lineCount() const { return static_cast<int>(points().size()); }
    Lines markedLines() const;
    void markLine(int line);
    bool editMode() const;
    void setChanged();
    void followTable();
    void followUnits();
    void followProgramUnits();
    void followInput();
    bool takeUnits();

    template <class Which>
    bool readInput(datafiles::MeasuredPoint& set, const Which& asked);
    void takeInput();
    void eraseLines();
    void toggleLines();
    void pasteLines();
    void copyCells();
    void clearCells();
    void sortBy(datafiles::MeasuredColumn column);
    void load(bool append);
    void save();
    void send(const std::function<void()>& door);
    int fitColumn() const;

    History<Content> history_;
    datafiles::MeasuredData given_;  ///< as the session and this view agreed on last
    bool commanding_ = false;        ///< this view changes the data of the session
    TpvTableModel* model_ = nullptr;
    QTableView* table_ = nullptr;
    QMenu* menu_ = nullptr;
    QButtonGroup* temperature_ = nullptr;
    QButtonGroup* pressure_ = nullptr;
    QButtonGroup* density_ = nullptr;
    NumberEdit* moles_ = nullptr;
    QButtonGroup* mode_ = nullptr;
    std::array<QLabel*, datafiles::kMeasuredColumns> captions_{};
    std::array<QLabel*, datafiles::kMeasuredColumns> unitLabels_{};
    std::array<NumberEdit*, datafiles::kMeasuredColumns> input_{};
    QButtonGroup* target_ = nullptr;
    QLineEdit* comment_ = nullptr;
    QLabel* file_ = nullptr;
    QLabel* status_ = nullptr;
};

}  // namespace quor::gui
