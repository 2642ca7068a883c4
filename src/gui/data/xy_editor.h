#pragma once

#include <array>

#include "common/history.h"
#include "datafiles/xy_file.h"
#include "datafiles/xy_points.h"
#include "gui/widgets/child_view.h"
#include "gui/widgets/undo_keys.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;

namespace quor::gui {

class NumberEdit;
class XyTableModel;

/// The editor of x-y points: typed, loaded, pasted, changed; for files, the fitting and diagrams.
class XyEditor : public ChildView, public Undoable {
    Q_OBJECT

  public:
    explicit XyEditor(Desk& desk, QWidget* parent = nullptr);

    /// Shows the list as it stands, after it was changed elsewhere.
    void showList();

    /// Asks for a file and shows its points in place of the list.
    void load();

    QString undoName() const override;
    QString redoName() const override;
    void undo() override;
    void redo() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildTable();
    void buildMenu();
    QWidget* buildInput();
    QWidget* buildFile();
    QWidget* buildLines();
    QWidget* buildManipulation();
    QWidget* buildTargets();

    /// Marked lines, counted from 1; first 0 for none.
    struct Marked {
        int first = 0, last = 0;
    };
    Marked marked() const;
    void mark(int first, int last);
    bool adding() const;

    /// Makes a change of the list, as a step that can be taken back.
    template <class Change>
    void change(const QString& name, const Change& what);
    /// Shows the present state of the history and hands it to the session.
    void showPresent();
    const std::vector<datafiles::FitPoint>& points() const { return history_.value().points; }
    void follow();
    void takeInput();
    void showMarkedInFields();
    void save();
    void removeMarked();
    void toggleMarked();
    void zeroMarkedCells();
    void copy();
    void paste();
    void manipulate();
    void print();
    void draw();
    void fit();

    History<datafiles::XyData> history_;
    XyTableModel* model_ = nullptr;
    QTableView* table_ = nullptr;
    QLabel* empty_ = nullptr;
    QLabel* status_ = nullptr;
    QLineEdit* comment_ = nullptr;
    NumberEdit* x_ = nullptr;
    NumberEdit* y_ = nullptr;
    QPushButton* take_ = nullptr;
    QGroupBox* manipulation_ = nullptr;
    NumberEdit* w_ = nullptr;
    std::array<QRadioButton*, 2> inputMode_{};
    std::array<QRadioButton*, 6> manipulations_{};
    std::array<QRadioButton*, 2> drawAs_{};
};

}  // namespace quor::gui
