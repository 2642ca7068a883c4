#include "gui/data/xy_editor.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedLayout>
#include <QTableView>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "datafiles/cell_numbers.h"
#include "gui/data/number_delegate.h"
#include "gui/data/xy_table_model.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "session/questions.h"
#include "session/xy_session.h"

namespace quor::gui {

namespace {

using datafiles::XyData;
using datafiles::XyManipulation;

constexpr auto kNeedsNumber = "A number is needed here.";
constexpr int kListWidth = 300;
constexpr int kRowPadding = 6;

struct Separator {
    const char* caption;
    char character;
};
constexpr std::array kSeparators{Separator{"Semicolon", ';'}, Separator{"Comma", ','},
                                 Separator{"Tab", '\t'}};

struct ManipulationRow {
    const char* caption;
    XyManipulation what;
    bool needsW;
};
constexpr std::array kManipulations{
    ManipulationRow{"x = 1 - x", XyManipulation::OneMinusX, false},
    ManipulationRow{"y = 1 / y", XyManipulation::InverseY, false},
    ManipulationRow{"y = y + W", XyManipulation::AddToY, true},
    ManipulationRow{"y = y * W", XyManipulation::MultiplyY, true},
    ManipulationRow{"y = ln(y)", XyManipulation::LogarithmY, false},
    ManipulationRow{"y = exp(y)", XyManipulation::ExponentialY, false}};

QRadioButton* option(const QString& text, const QString& name) {
    return form::named(new QRadioButton(text), name);
}

/// A field has to hold a number; one that does not is marked and gets the focus.
bool complete(NumberEdit* field) {
    if (field->holdsNumber()) return true;
    field->setMark(kNeedsNumber);
    field->setFocus();
    return false;
}

/// The same for a value that a point holds in 32 bits.
std::optional<float> coordinate(NumberEdit* field) {
    if (!complete(field)) return std::nullopt;
    const std::optional<float> value = datafiles::single(field->value());
    if (!value) field->setMark("A point cannot hold this number.");
    return value;
}

QVBoxLayout* column(QWidget* box) {
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(theme::kGap, theme::kGap, theme::kGap, theme::kGap);
    layout->setSpacing(theme::kGap);
    return layout;
}

}  // namespace

XyEditor::XyEditor(Desk& desk, QWidget* parent) : ChildView(desk, "frmManuInput", parent) {
    setWindowTitle(" Input/Edit curve points  ");
    buildTable();
    buildMenu();

    QPushButton* help = form::button("&Help", "Hilfe");
    desk_.connectHelp(help, help::kXYEditor);
    QPushButton* close = form::button("&Close", "ESC");
    connect(close, &QPushButton::clicked, this, &XyEditor::closeView);
    status_ = form::named(form::label(), "statusZeile");
    status_->setForegroundRole(QPalette::PlaceholderText);
    auto* bottom = new QHBoxLayout;
    bottom->setSpacing(theme::kGap);
    bottom->addWidget(status_, 1);
    bottom->addWidget(close);
    bottom->addWidget(help);

    auto* left = new QVBoxLayout;
    left->setSpacing(theme::kGroupGap);
    left->addWidget(buildFile());
    auto* stack = new QStackedLayout;
    stack->setStackingMode(QStackedLayout::StackAll);
    stack->addWidget(empty_);
    stack->addWidget(table_);
    left->addLayout(stack, 1);

    auto* right = new QVBoxLayout;
    right->setSpacing(theme::kGroupGap);
    right->addWidget(buildInput());
    right->addWidget(buildLines());
    right->addWidget(buildManipulation());
    right->addWidget(buildTargets());
    right->addStretch(1);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(theme::kGroupGap);
    columns->addLayout(left, 1);
    columns->addLayout(right);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGap);
    layout->addLayout(columns, 1);
    layout->addLayout(bottom);
    setDefaultButton(take_);
    setFocusProxy(x_);
    new UndoKeys(this, *this);
    showList();
}

// ------------------------------------------------------------------------------------------ layout

void XyEditor::buildTable() {
    model_ = new XyTableModel(this);
    table_ = form::named(new QTableView, "XYListe");
    table_->setModel(model_);
    table_->setItemDelegate(new NumberDelegate(table_));
    table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    table_->setAlternatingRowColors(true);
    table_->setTabKeyNavigation(false);
    table_->setMinimumWidth(kListWidth);
    table_->setContextMenuPolicy(Qt::ActionsContextMenu);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + kRowPadding);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        showMarkedInFields();
        const Marked lines = marked();
        if (lines.first > 0) status_->setText(QString("line %1").arg(lines.first));
    });
    connect(model_, &QAbstractItemModel::dataChanged, this, &XyEditor::showMarkedInFields);
    model_->onTyped([this](int line, bool isX, float value) {
        change("Change cell", [&](XyData& d) {
            datafiles::FitPoint& point = d.points[static_cast<std::size_t>(line)];
            (isX ? point.x : point.y) = value;
        });
    });
    empty_ = form::named(form::label("empty list"), "lblEmpty");
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void XyEditor::buildMenu() {
    const auto entry = [this](const QString& text, const QString& name, auto slot) {
        auto* action = new QAction(text, this);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    QAction* copying = entry("copy", "mnuCopy2", &XyEditor::copy);
    copying->setShortcut(QKeySequence::Copy);
    QAction* pasting = entry("paste", "mnuPaste2", &XyEditor::paste);
    pasting->setShortcut(QKeySequence::Paste);
    for (QAction* action : {copying, pasting}) {
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        table_->addAction(action);
    }
    auto* erase = new QMenu("delete", this);
    erase->menuAction()->setObjectName("mnuErase2");
    erase->addAction(entry("marked cell(s) => 0", "mnuSubDelNull2", &XyEditor::zeroMarkedCells));
    erase->addAction(entry("remove marked line(s)", "mnuSubDelLine2", &XyEditor::removeMarked));
    table_->addAction(erase->menuAction());
    auto* key = new QShortcut(QKeySequence::Delete, table_);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, this, &XyEditor::removeMarked);
}

QWidget* XyEditor::buildFile() {
    auto* box = form::frame("File", "fraFile");
    comment_ = form::named(new QLineEdit, "txtComment");
    comment_->setToolTip("Optional comment for BAQ or XY file resp.");
    connect(comment_, &QLineEdit::textEdited, this, [this](const QString& typed) {
        const auto now = session_.change();
        now->xy.comment = typed.toStdString();
        now->xy_unsaved = true;
    });
    connect(comment_, &QLineEdit::editingFinished, this, [this] {
        change("Change comment", [this](XyData& d) { d.comment = comment_->text().toStdString(); });
    });
    auto* separators = form::named(new QComboBox, "cmbSep");
    for (const Separator& s : kSeparators) {
        separators->addItem(s.caption);
        if (s.character == session_->csv_separator)
            separators->setCurrentIndex(separators->count() - 1);
    }
    connect(separators, &QComboBox::activated, this, [this](int row) {
        session_.change()->csv_separator = kSeparators[static_cast<std::size_t>(row)].character;
    });
    QPushButton* loading = form::button("&Load data *.XY | *.LRG", "cmdLoad");
    connect(loading, &QPushButton::clicked, this, &XyEditor::load);
    QPushButton* saving = form::button("&Save data as *.XY", "cmdSave");
    connect(saving, &QPushButton::clicked, this, &XyEditor::save);

    auto* grid = form::grid(box);
    grid->addWidget(form::caption("C&omment", comment_), 0, 0);
    grid->addWidget(comment_, 0, 1, 1, 3);
    grid->addWidget(form::caption("Delimite&r", separators), 1, 0);
    grid->addWidget(separators, 1, 1);
    grid->addWidget(loading, 1, 2);
    grid->addWidget(saving, 1, 3);
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget* XyEditor::buildInput() {
    auto* box = form::frame("   manual data input", "fraInput");
    inputMode_[0] = option("Input mode = &Add", "optInputMode_0");
    inputMode_[1] = option("Input mode = &Edit", "optInputMode_1");
    inputMode_[0]->setChecked(true);
    connect(inputMode_[1], &QRadioButton::toggled, this, &XyEditor::showMarkedInFields);
    x_ = form::named(new NumberEdit, "txtX");
    y_ = form::named(new NumberEdit, "txtY");
    take_ = form::button("OK", "OKinput");
    connect(take_, &QPushButton::clicked, this, &XyEditor::takeInput);

    auto* grid = form::grid(box);
    grid->addWidget(inputMode_[0], 0, 0, 1, 2);
    grid->addWidget(inputMode_[1], 0, 2, 1, 3);
    grid->addWidget(form::caption("x", x_), 1, 0);
    grid->addWidget(x_, 1, 1);
    grid->addWidget(form::caption("y", y_), 1, 2);
    grid->addWidget(y_, 1, 3);
    grid->addWidget(take_, 1, 4);
    return box;
}

QWidget* XyEditor::buildLines() {
    auto* box = form::frame("List", "fraLines");
    struct Button {
        const char* text;
        const char* name;
        const char* tip;
        void (XyEditor::*run)();
    };
    const auto kButtons = std::to_array<Button>({
        {"Line acti&ve | inact.", "cmdAus", "...excluding points from fitting, drawing and saving ",
         &XyEditor::toggleMarked},
        {"re&move marked lines", "cmdErase", "", &XyEditor::removeMarked},
        {"Add Clip&board", "cmdClipEinfuegen",
         " <Ctrl><V>, recommended for import of MS-Excel|Origin data ", &XyEditor::paste},
        {"&Print list", "cmdPrint", "", &XyEditor::print},
    });
    auto* grid = form::grid(box);
    int n = 0;
    const auto place = [&](QPushButton* button) {
        grid->addWidget(button, n / 2, n % 2);
        ++n;
    };
    for (const Button& b : kButtons) {
        QPushButton* button = form::button(b.text, b.name);
        button->setToolTip(b.tip);
        connect(button, &QPushButton::clicked, this, b.run);
        place(button);
    }
    const auto reorder = [&](const QString& text, const QString& name, const QString& tip,
                             void (*run)(std::span<datafiles::FitPoint>)) {
        QPushButton* button = form::button(text, name);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, [this, run, text] {
            change(QString(text).remove('&'), [run](XyData& d) { run(d.points); });
        });
        place(button);
    };
    reorder("Sort by &x", "XSort", " ascending ", datafiles::sort_by_x);
    reorder("Sort by &y", "YSort", " ascending ", datafiles::sort_by_y);
    reorder("x <==> y", "cmdChangeXY", " changing x- and y-column ", datafiles::swap_xy);
    QPushButton* manip = form::button("Modify val&ues", "cmdManip");
    manip->setCheckable(true);
    connect(manip, &QPushButton::toggled, this, [this](bool shown) {
        manipulation_->setVisible(shown);
        fitWindow();
    });
    place(manip);
    return box;
}

QWidget* XyEditor::buildManipulation() {
    manipulation_ = form::frame("Modify values", "fraManip");
    auto* grid = form::grid(manipulation_);
    for (std::size_t i = 0; i < kManipulations.size(); ++i) {
        manipulations_[i] =
            option(kManipulations[i].caption, QString("optManip_%1").arg(static_cast<int>(i)));
        grid->addWidget(manipulations_[i], static_cast<int>(i) / 2, static_cast<int>(i) % 2);
    }
    manipulations_[0]->setChecked(true);
    w_ = form::named(new NumberEdit, "Text1");
    auto* field = new QHBoxLayout;
    field->setSpacing(theme::kGap);
    field->addWidget(form::caption("&W =", w_));
    field->addWidget(w_);
    grid->addLayout(field, 3, 0);
    QPushButton* run = form::button("Execute", "cmdExecManip");
    run->setToolTip(" applied to all points, active or not ");
    connect(run, &QPushButton::clicked, this, &XyEditor::manipulate);
    grid->addWidget(run, 3, 1);
    manipulation_->hide();
    return manipulation_;
}

QWidget* XyEditor::buildTargets() {
    auto* box = form::frame("Graph and fitting", "fraTargets");
    drawAs_[0] = option("as points", "optIsPoints_0");
    drawAs_[1] = option("as curve", "optIsPoints_1");
    drawAs_[0]->setChecked(true);
    QPushButton* drawing = form::button("&Draw", "cmdDrawManu");
    drawing->setEnabled(static_cast<bool>(desk_.doors.drawXy));
    connect(drawing, &QPushButton::clicked, this, &XyEditor::draw);
    QPushButton* fitting = form::button("Send data to &fitting module", "cmdFitting");
    fitting->setToolTip("... and opening fitting module ");
    fitting->setEnabled(static_cast<bool>(desk_.doors.fit));
    connect(fitting, &QPushButton::clicked, this, &XyEditor::fit);
    auto* layout = column(box);
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGap);
    row->addWidget(drawing);
    row->addWidget(drawAs_[0]);
    row->addWidget(drawAs_[1]);
    row->addStretch(1);
    layout->addLayout(row);
    layout->addWidget(fitting);
    return box;
}

// -------------------------------------------------------------------------------------------- list

void XyEditor::showList() {
    if (history_.value() != session_->xy) history_.restart(session_->xy);
    model_->show(points());
    comment_->setText(qt(history_.value().comment));
    follow();
    if (!points().empty()) status_->setText("line 1");
}

void XyEditor::follow() {
    const bool none = points().empty();
    empty_->setVisible(none);
    empty_->raise();
    if (none) status_->setText("empty list");
}

// Every change of the list keeps the marked lines marked as far as they are still there.
template <class Change>
void XyEditor::change(const QString& name, const Change& what) {
    XyData changed = history_.value();
    what(changed);
    if (changed == history_.value()) return;
    history_.change(name.toStdString(), std::move(changed));
    showPresent();
}

void XyEditor::showPresent() {
    {
        const auto now = session_.change();
        now->xy = history_.value();
        now->xy_unsaved = true;
    }
    const Marked lines = marked();
    model_->show(points());
    const QString comment = qt(history_.value().comment);
    if (comment_->text() != comment) comment_->setText(comment);
    mark(lines.first, lines.last);
    follow();
}

QString XyEditor::undoName() const {
    return qt(history_.undo_name().value_or(""));
}

QString XyEditor::redoName() const {
    return qt(history_.redo_name().value_or(""));
}

void XyEditor::undo() {
    if (history_.undo()) showPresent();
}

void XyEditor::redo() {
    if (history_.redo()) showPresent();
}

XyEditor::Marked XyEditor::marked() const {
    Marked lines;
    // Not cell by cell, of which there may be millions.
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
        const int line = range.top() + 1;
        lines.first = lines.first == 0 ? line : std::min(lines.first, line);
        lines.last = std::max(lines.last, range.bottom() + 1);
    }
    return lines;
}

void XyEditor::mark(int first, int last) {
    const int rows = model_->rowCount();
    if (first < 1 || first > rows) return;
    const QModelIndex from = model_->index(first - 1, 0);
    const QModelIndex to = model_->index(std::min(last, rows) - 1, model_->columnCount() - 1);
    table_->selectionModel()->setCurrentIndex(from, QItemSelectionModel::NoUpdate);
    table_->selectionModel()->select({from, to}, QItemSelectionModel::ClearAndSelect);
    table_->scrollTo(to);
}

bool XyEditor::adding() const {
    return inputMode_[0]->isChecked();
}

void XyEditor::showMarkedInFields() {
    const Marked lines = marked();
    if (adding() || lines.first < 1) return;
    const datafiles::FitPoint& point = points()[static_cast<std::size_t>(lines.first - 1)];
    x_->setText(qt(numbers::general(point.x)));
    y_->setText(qt(numbers::general(point.y)));
}

void XyEditor::takeInput() {
    const int line = marked().first;
    if (!adding() && line < 1) {
        dialogs::tell("No marked item!", dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    const std::optional<float> x = coordinate(x_), y = coordinate(y_);
    if (!x || !y) return;
    const datafiles::FitPoint typed{*x, *y, 0.0F};
    if (!adding()) {
        change("Change line", [&](XyData& d) {
            datafiles::FitPoint& point = d.points[static_cast<std::size_t>(line - 1)];
            point.x = typed.x;
            point.y = typed.y;
        });
        mark(line, line);
    } else {
        change("Add line", [&](XyData& d) { d.points.push_back(typed); });
        const int last = model_->rowCount();
        mark(last, last);
        x_->clear();
        y_->clear();
    }
    x_->setFocus();
}

void XyEditor::removeMarked() {
    const Marked lines = marked();
    if (!session::confirm_removal(lines.first, lines.last)) return;
    change("Remove lines",
           [&](XyData& d) { datafiles::remove_xy(d.points, lines.first, lines.last); });
}

void XyEditor::toggleMarked() {
    const Marked lines = marked();
    if (lines.first < 1) {
        dialogs::tell("No marked item!", dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    change("Lines active or inactive",
           [&](XyData& d) { datafiles::toggle_xy(d.points, lines.first, lines.last); });
}

void XyEditor::zeroMarkedCells() {
    const QItemSelection cells = table_->selectionModel()->selection();
    change("Clear cells", [&](XyData& d) {
        for (const QItemSelectionRange& range : cells)
            for (int row = range.top(); row <= range.bottom(); ++row) {
                datafiles::FitPoint& point = d.points[static_cast<std::size_t>(row)];
                if (range.left() == 0) point.x = 0;
                if (range.right() > 0) point.y = 0;
            }
    });
}

void XyEditor::copy() {
    const Marked lines = marked();
    if (lines.first < 1) return;
    dialogs::set_clipboard(datafiles::xy_for_clipboard(points(), lines.first, lines.last));
}

// The lines go in at the marked place, behind the last one without a mark.
void XyEditor::paste() {
    const auto [more, wrong] = datafiles::xy_from_clipboard(dialogs::clipboard());
    if (more.empty()) return;
    const int marking = marked().first;
    const int place = marking > 0 ? marking : model_->rowCount() + 1;
    change("Add clipboard",
           [&, &pasted = more](XyData& d) { datafiles::insert_xy(d.points, place, pasted); });
    mark(place, place + static_cast<int>(more.size()) - 1);
    session::tell_wrong_lines(wrong, static_cast<std::size_t>(place) - 1);
}

void XyEditor::manipulate() {
    std::size_t chosen = 0;
    while (!manipulations_[chosen]->isChecked()) ++chosen;
    const ManipulationRow& row = kManipulations[chosen];
    if (row.needsW && !complete(w_)) return;
    const auto modified = datafiles::manipulated_xy(points(), row.what, w_->value());
    if (!modified) {
        dialogs::tell(modified.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    change(row.caption, [&](XyData& d) { d.points = *modified; });
}

// ------------------------------------------------------------------------- files and other targets

void XyEditor::load() {
    if (!session::may_leave_xy(session_)) return;
    const std::optional<std::string> loaded = session::load_xy(session_);
    if (!loaded) return;
    history_.restart(session_->xy);
    showList();
    status_->setText("  Loaded: " + qt(*loaded));
    follow();
}

void XyEditor::save() {
    session::save_xy(session_);
}

void XyEditor::print() {
    const std::string& comment = history_.value().comment;
    dialogs::print_out({.title = comment.empty() ? "x-y data" : comment,
                        .font = "COURIER",
                        .text = datafiles::xy_list_text(points())});
}

void XyEditor::draw() {
    const bool asPoints = drawAs_[0]->isChecked();
    if (!session::enough_active_points(points(), asPoints)) return;
    session_.change()->xy_graph = datafiles::make_xy_graph(points(), asPoints);
    desk_.doors.drawXy();
}

void XyEditor::fit() {
    session_.change()->fit_source = session::FitSource::xyList;
    desk_.doors.fit();
}

void XyEditor::closeEvent(QCloseEvent* event) {
    if (!session::may_leave_xy(session_)) {
        event->ignore();
        return;
    }
    event->accept();
}

}  // namespace quor::gui
