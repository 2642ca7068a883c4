#pragma once

#include <QPlainTextEdit>
#include <QWidget>
#include <vector>

#include "report/report.h"

class QGridLayout;
class QLabel;

namespace quor::gui {

/// The list of results, `lines`: fixed pitch, columns aligned. Red lines also begin with a sign. It
/// copies its selection, or the whole result, as readable text or as a table with tabs.
class ResultList : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit ResultList(QWidget* parent = nullptr);

    /// With `prettyUnits` the list shows its units with superscripts, "ft³/lb" and "°C"; what is
    /// copied has them plain.
    void showReport(const report::Report& result, bool prettyUnits = false);

    /// The selection, or all of the result, to the clipboard.
    void copyText();
    /// The lines of the selection, or all of the result, to the clipboard.
    void copyTable();

    /// Distance of the first character from the left edge, and of a column from the first one.
    int textStart() const;
    int advance(std::size_t characters) const;

    QSize sizeHint() const override;

  Q_SIGNALS:
    /// Something was copied, in words for a status line.
    void copied(const QString& what);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QString onScreen(const report::ListLine& line) const;
    QString selectedText() const;

    report::Report report_;
    bool prettyUnits_ = false;
};

/// The captions of the two value columns above the list: `lblLphase`, `lblVphase`, and `lblGleich`
/// between them when both columns hold the same phase.
class PhaseHead : public QWidget {
    Q_OBJECT

  public:
    PhaseHead(ResultList* list, QWidget* parent = nullptr);

    void showCaptions(const report::Report& result);

  private:
    void align();

    ResultList* list_;
    QGridLayout* grid_ = nullptr;
    QLabel* liquid_ = nullptr;
    QLabel* same_ = nullptr;
    QLabel* vapour_ = nullptr;
};

}  // namespace quor::gui
