#pragma once

#include <array>

#include "datafiles/xy_points.h"
#include "gui/widgets/child_view.h"

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
class XyEditor : public ChildView {
    Q_OBJECT

  public:
    explicit XyEditor(QWidget* parent = nullptr);

    /// Shows the list as it stands, after it was changed elsewhere.
    void showList();

    /// Asks for a file and shows its points in place of the list.
    void load();

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

    template <class Change>
    void change(Change&& what);
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

    XyTableModel* model_ = nullptr;
    QTableView* table_ = nullptr;
    QLabel* empty_ = nullptr;
    QLabel* status_ = nullptr;
    QLineEdit* comment_ = nullptr;
    NumberEdit* x_ = nullptr;
    NumberEdit* y_ = nullptr;
    QPushButton* take_ = nullptr;
    QGroupBox* manipulation_ = nullptr;
    NumberEdit* W_ = nullptr;
    std::array<QRadioButton*, 2> inputMode_{};
    std::array<QRadioButton*, 6> manipulations_{};
    std::array<QRadioButton*, 2> drawAs_{};
    bool changed_ = false;
};

}  // namespace quor::gui
