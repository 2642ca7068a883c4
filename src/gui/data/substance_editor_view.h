#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "common/history.h"
#include "datafiles/substance_editor.h"
#include "gui/widgets/undo_keys.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QToolButton;

namespace quor::session {
class Session;
}  // namespace quor::session

namespace quor::gui {

class DataField;
class Desk;

/// All data of the active substance, to look at and to change. Changes reach the session with
/// "Apply", and a file only by the command that writes a private database.
class SubstanceEditorView : public QDialog, public Undoable {
    Q_OBJECT

  public:
    /// `readOnly` shows the data without any command that changes them.
    SubstanceEditorView(Desk& desk, bool readOnly, QWidget* parent = nullptr);

    void reject() override;

    QString undoName() const override;
    QString redoName() const override;
    void undo() override;
    void redo() override;

  private:
    QWidget* buildHead();
    QWidget* buildPage(datafiles::EditorTab tab);
    QGroupBox* buildFrame(std::size_t spec);
    void addCommands(std::string_view frameCaption, class QVBoxLayout* layout);
    QWidget* buildCommands();
    QPushButton* recalculation(const QString& name, const QString& tip,
                               datafiles::EditorCorrelation correlation);
    QPushButton* estimation(const QString& name, datafiles::GroupFrame frame);
    QWidget* triplePointChoice();
    QWidget* withHelp(QToolButton* help, int topic, QWidget* beside);

    datafiles::EditorTexts texts() const;
    void showTexts(const datafiles::EditorTexts& texts);
    /// The fields as they stand, as a step that can be taken back.
    void remember(const QString& name);
    /// False when a field cannot be read, which is marked then.
    bool apply();
    void showField(DataField* field);
    void writeDatabase();
    void showTriplePoint(bool fromEquation);
    void follow();

    Desk& desk_;
    session::Session& session_;
    bool readOnly_;
    std::array<DataField*, datafiles::kEditorFields> fields_{};
    datafiles::EditorTexts shown_;  ///< as last read from the record
    History<datafiles::EditorTexts> history_;
    QTabWidget* tabs_ = nullptr;
    QLabel* equation_ = nullptr;
    QLabel* status_ = nullptr;
    std::array<QRadioButton*, 2> triplePoint_{};
};

}  // namespace quor::gui
