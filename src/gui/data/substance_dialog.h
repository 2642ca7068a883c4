#pragma once

#include <QDialog>
#include <cstdint>
#include <optional>
#include <string>

#include "models/model_selection.h"
#include "models/substance_record.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace quor::session {
class Session;
}  // namespace quor::session

namespace quor::gui {

class Desk;
class NameCompleter;
class SubstanceFilter;

/// Choice of a substance of the open database: by its place in the list, by name, by a synonym, or
/// by CASRN. Accepted when a substance was taken over into the session.
class SubstanceDialog : public QDialog {
    Q_OBJECT

  public:
    explicit SubstanceDialog(Desk& desk, QWidget* parent = nullptr);

    /// Puts a text into the field as if it had been typed.
    void search(const QString& text);

    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildList();
    void buildSearch();
    void arrange();
    void describe(std::int16_t index);
    void showEntry(std::int16_t index);
    void matchEntry(const QString& text);
    void followTyping(const QString& typed);
    void filterBy(const QString& typed, std::int16_t exact);
    void markEntry(std::int16_t index);
    void selectEntry(std::int16_t index);
    std::int16_t selectedEntry() const;
    std::int16_t wantedEntry();
    void take();
    void showData();

    Desk& desk_;
    session::Session& session_;
    QTableView* list_ = nullptr;
    SubstanceFilter* shown_ = nullptr;
    NameCompleter* completer_ = nullptr;
    QLineEdit* search_ = nullptr;
    QComboBox* names_ = nullptr;
    QLabel* formula_ = nullptr;
    QLabel* note_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* data_ = nullptr;
    QPushButton* help_ = nullptr;
    QPushButton* cancel_ = nullptr;
    /// What a look at the data of another substance replaces for a while.
    struct Kept {
        models::SubstanceRecord substance;
        models::VapourPressureEquation equation;
        bool appliedUnsaved;
    };
    /// The session's substance as it was before others were looked at.
    void restoreKept();
    std::optional<Kept> kept_;
    std::int16_t present_ = 0;  ///< entry that was selected last
};

}  // namespace quor::gui
