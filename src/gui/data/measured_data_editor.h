#pragma once

#include <array>
#include <utility>

#include "datafiles/batch_table.h"
#include "gui/widgets/child_view.h"

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
/// and graphs of the data belong to others, under the actions "fit_data", "graph_data" (y = f(T))
/// and "graph_data_ln" (ln p = f(1/T)); without them their buttons are disabled.
class MeasuredDataEditor : public ChildView {
    Q_OBJECT

  public:
    explicit MeasuredDataEditor(QWidget* parent = nullptr);

    /// Opens the editor on the data of the session. One that is open comes to the front; what is
    /// unsaved in it stays so, unless the data are new.
    static void openNew();
    static void openPresent();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Marked lines, counted from 1; 0 and 0 without a mark.
    using Lines = std::pair<int, int>;

    QWidget* buildTable();
    QGroupBox* buildUnits();
    QGroupBox* buildInput();
    QGroupBox* buildTarget();
    QLayout* buildLineButtons();
    QLayout* buildFileButtons();
    void buildMenu();
    void arrange();

    void showData();
    Lines markedLines() const;
    void markLine(int line);
    bool editMode() const;
    void setChanged();
    void followTable();
    void followUnits();
    void followInput();
    bool takeUnits();

    void takeInput();
    void eraseLines();
    void toggleLines();
    void pasteLines();
    void copyCells();
    void clearCells();
    void sortBy(datafiles::BatchColumn column);
    void load(bool append);
    void save();
    void send(const char* action);
    int fitColumn() const;

    bool changed_ = false;
    TpvTableModel* model_ = nullptr;
    QTableView* table_ = nullptr;
    QMenu* menu_ = nullptr;
    QButtonGroup* temperature_ = nullptr;
    QButtonGroup* pressure_ = nullptr;
    QButtonGroup* density_ = nullptr;
    NumberEdit* moles_ = nullptr;
    QButtonGroup* mode_ = nullptr;
    std::array<QLabel*, datafiles::kBatchColumns> captions_{};
    std::array<QLabel*, datafiles::kBatchColumns> unitLabels_{};
    std::array<NumberEdit*, datafiles::kBatchColumns> input_{};
    QButtonGroup* target_ = nullptr;
    QLineEdit* comment_ = nullptr;
    QLabel* file_ = nullptr;
    QLabel* status_ = nullptr;
};

}  // namespace quor::gui
