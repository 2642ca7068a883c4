#pragma once

#include <QDialog>
#include <optional>
#include <string>

#include "common/dialogs.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace quor::gui {

class Desk;

/// The file view for experimental data and projects: marking a file shows its substance, database
/// and comment before the user commits.
class FileView : public QDialog {
    Q_OBJECT

  public:
    explicit FileView(Desk& desk, const dialogs::FileChoice& choice, QWidget* parent = nullptr);

    /// Asks for a file; nothing when the user cancels.
    static std::optional<std::string> choose(Desk& desk, const dialogs::FileChoice& choice);
    /// True for the kinds of files that the view tells something about.
    static bool serves(const dialogs::FileChoice& choice);

    /// The chosen file with its folder.
    std::string file() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showFolder(const QString& path);
    void showFiles();
    void marked();
    void openFolder();
    void confirm();
    /// Takes a name that may stand for another folder.
    void take(const QString& name);
    void removeFile();
    void sendReturn();
    QString pathOf(const QString& name) const;

    Desk& desk_;
    dialogs::FileChoice choice_;
    QString folder_, pattern_, firstPattern_, chosen_;
    QComboBox* drives_;
    QListWidget *folders_, *files_;
    QLineEdit* name_;
    QLabel *path_, *database_, *comment_;
    QLineEdit *substance_, *date_;
    QPushButton *ok_, *cancel_, *return_;
};

}  // namespace quor::gui
