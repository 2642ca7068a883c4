#include "gui/calculation/result_list.h"

#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "common/dialogs.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/unit_text.h"
#include "report/list_layout.h"

namespace quor::gui {

namespace {

constexpr int kLinesShown = 18, kSpareCharacters = 6;
constexpr int kLiquidColumn = 0, kSameColumn = 1, kVapourColumn = 2;  // of the captions
constexpr auto kRedSign = "! ";
constexpr std::size_t kPhaseCells = 4;  // quantity, unit and two values

QString plainUnits(QString text) {
    for (const auto& [pretty, plain] :
         {std::pair{"³", "^3"}, {"²", "^2"}, {"·", " "}, {"°", "deg"}})
        text.replace(pretty, plain);
    return text;
}

}  // namespace

ResultList::ResultList(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName("Liste");
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(true);
    setFont(theme::fixedPitch());
    setAccessibleName("Results");
}

void ResultList::showReport(const report::Report& result, bool prettyUnits) {
    report_ = result;
    prettyUnits_ = prettyUnits;
    clear();
    QTextCursor cursor(document());
    QTextCharFormat plain, red;
    red.setForeground(theme::errorColour());
    for (const report::ListLine& line : report_.lines) {
        if (&line != &report_.lines.front()) cursor.insertBlock();
        if (line.red)
            cursor.insertText(kRedSign + onScreen(line), red);
        else
            cursor.insertText(onScreen(line), plain);
    }
    moveCursor(QTextCursor::Start);
}

// A unit that has become shorter leaves its place to blanks, so that the columns stay.
QString ResultList::onScreen(const report::ListLine& line) const {
    const QString whole = qt(line.text);
    if (!prettyUnits_) return whole;
    QString pretty = qt(models::pretty_unit(line.text));
    const qsizetype shorter = whole.size() - pretty.size();
    const qsizetype sign = std::max(pretty.lastIndexOf('='), pretty.lastIndexOf(" : ") + 1);
    if (line.of_phases && sign > 0) return pretty.insert(sign, QString(shorter, ' '));
    if (line.cells.size() <= kPhaseCells) return pretty;
    // A row of columns that end at their right: the blanks stand in front of each cell.
    QString columns;
    const qsizetype width = whole.size() / static_cast<qsizetype>(line.cells.size());
    for (const std::string& cell : line.cells)
        columns += qt(models::pretty_unit(cell)).rightJustified(width);
    return columns;
}

// As the report has it where whole lines are selected; a part of a line with its units made plain.
QString ResultList::selectedText() const {
    const QTextCursor cursor = textCursor();
    if (!prettyUnits_) return cursor.selection().toPlainText();
    QStringList all;
    for (QTextBlock block = document()->findBlock(cursor.selectionStart());
         block.isValid() && block.position() <= cursor.selectionEnd(); block = block.next()) {
        const int first = std::max(cursor.selectionStart() - block.position(), 0);
        const auto length = static_cast<int>(block.text().size());
        const int last = std::min(cursor.selectionEnd() - block.position(), length);
        const report::ListLine& line = report_.lines[static_cast<std::size_t>(block.blockNumber())];
        all << (first == 0 && last == length ? (line.red ? kRedSign : "") + qt(line.text)
                                             : plainUnits(block.text().mid(first, last - first)));
    }
    return all.join('\n');
}

void ResultList::copyText() {
    const bool part = textCursor().hasSelection();
    dialogs::set_clipboard(part ? selectedText().toStdString() : report::result_as_text(report_));
    Q_EMIT copied(part ? "Selection copied as text" : "Result copied as text");
}

void ResultList::copyTable() {
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        dialogs::set_clipboard(report::result_as_table(report_));
        Q_EMIT copied("Result copied as table");
        return;
    }
    const auto lineAt = [&](int position) {
        return static_cast<std::size_t>(document()->findBlock(position).blockNumber());
    };
    dialogs::set_clipboard(report::lines_as_table(report_, lineAt(cursor.selectionStart()),
                                                  lineAt(cursor.selectionEnd())));
    Q_EMIT copied("Selection copied as table");
}

int ResultList::textStart() const {
    return frameWidth() + static_cast<int>(document()->documentMargin());
}

int ResultList::advance(std::size_t characters) const {
    return fontMetrics().horizontalAdvance(QString(static_cast<qsizetype>(characters), '0'));
}

QSize ResultList::sizeHint() const {
    const int frame = 2 * textStart();
    return {advance(report::kTableWidth + kSpareCharacters) + frame,
            kLinesShown * fontMetrics().lineSpacing() + frame};
}

void ResultList::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copyText();
        return;
    }
    if (event->key() == Qt::Key_C &&
        event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
        copyTable();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void ResultList::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.setObjectName("ListeMenu");
    menu.addAction("Copy as text\tCtrl+C", this, &ResultList::copyText)
        ->setObjectName("mnuCopyText");
    menu.addAction("Copy as table\tCtrl+Shift+C", this, &ResultList::copyTable)
        ->setObjectName("mnuCopyTable");
    menu.addSeparator();
    menu.addAction("Select all\tCtrl+A", this, &QPlainTextEdit::selectAll)
        ->setObjectName("mnuSelectAll");
    menu.exec(event->globalPos());
}

// The colour of red lines follows the palette.
void ResultList::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !report_.lines.empty()) {
        const report::Report shown = report_;
        showReport(shown, prettyUnits_);
    }
}

PhaseHead::PhaseHead(ResultList* list, QWidget* parent) : QWidget(parent), list_(list) {
    grid_ = new QGridLayout(this);
    grid_->setSpacing(0);
    const auto label = [&](const QString& name, int column) {
        auto* one = form::named(form::label(), name);
        one->setFont(theme::fixedPitch());
        one->setAlignment(Qt::AlignRight | Qt::AlignBottom);
        grid_->addWidget(one, 0, column);
        return one;
    };
    liquid_ = label("lblLphase", kLiquidColumn);
    same_ = label("lblGleich", kSameColumn);
    same_->setText("identical with");
    vapour_ = label("lblVphase", kVapourColumn);
    grid_->setColumnStretch(kVapourColumn + 1, 1);
    // The row keeps its height without captions, so that the list does not move.
    setMinimumHeight(liquid_->fontMetrics().lineSpacing());
    connect(list->horizontalScrollBar(), &QScrollBar::valueChanged, this, &PhaseHead::align);
}

void PhaseHead::showCaptions(const report::Report& result) {
    const bool columns = report::has_phase_columns(result);
    liquid_->setText(qt(result.caption_L));
    vapour_->setText(qt(result.caption_V));
    liquid_->setVisible(columns);
    vapour_->setVisible(columns);
    same_->setVisible(columns && result.identical);
    align();
}

// The captions end where their columns end, also when the list is moved sideways.
void PhaseHead::align() {
    using report::kLabelWidth, report::kValueWidth;
    const int start = list_->textStart() + list_->advance(2 * kLabelWidth) -
                      list_->horizontalScrollBar()->value();
    grid_->setContentsMargins(std::max(start, 0), 0, 0, 0);
    const auto withBlank = [&](const QLabel* label) {
        return list_->advance(static_cast<std::size_t>(label->text().size()) + 1);
    };
    const bool together = !same_->isHidden();
    const int same = together ? withBlank(same_) : 0;
    const int vapour = together ? withBlank(vapour_) : list_->advance(kValueWidth);
    grid_->setColumnMinimumWidth(kSameColumn, same);
    grid_->setColumnMinimumWidth(kVapourColumn, vapour);
    grid_->setColumnMinimumWidth(kLiquidColumn, list_->advance(2 * kValueWidth) - vapour - same);
}

}  // namespace quor::gui
