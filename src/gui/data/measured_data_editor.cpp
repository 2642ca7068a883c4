#include "gui/data/measured_data_editor.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTableView>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "gui/data/number_delegate.h"
#include "gui/data/tpv_table_model.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "session/commands.h"
#include "session/measured_data_session.h"
#include "session/questions.h"

namespace quor::gui {

namespace {

using datafiles::MeasuredColumn;

constexpr auto kName = "frmTpvEdit";

models::Dimension dimensionOf(MeasuredColumn column) {
    using models::Dimension;
    constexpr std::array kDimensions = {Dimension::temperature, Dimension::pressure,
                                        Dimension::density,     Dimension::density,
                                        Dimension::energy,      Dimension::entropy};
    return kDimensions[static_cast<std::size_t>(column)];
}

}  // namespace

MeasuredDataEditor::MeasuredDataEditor(Desk& desk, QWidget* parent)
    : ChildView(desk, kName, parent), FollowsSession(desk.session()) {
    setWindowTitle(" Experimental data, input /edit");
    setWindowIcon(theme::icon("data"));
    model_ = new TpvTableModel(this);
    arrange();
    model_->onTyped([this](int line, MeasuredColumn column, const std::string& typed) {
        change("Change cell", [&](Content& d) {
            datafiles::store_cell(d.points[static_cast<std::size_t>(line)], column, typed,
                                  model_->units());
        });
    });
    new UndoKeys(this, *this);
    showData();
}

void MeasuredDataEditor::openNew(Desk& desk) {
    openPresent(desk);
}

void MeasuredDataEditor::openPresent(Desk& desk) {
    if (auto* view = desk.find<MeasuredDataEditor>(kName)) {
        view->showData();
        desk.activate(kName);
        return;
    }
    desk.openChild(new MeasuredDataEditor(desk));
}

void MeasuredDataEditor::followSession() {
    followProgramUnits();
    if (commanding_) return;
    if (session_->measured != given_) {
        showData();
    } else if (lineCount() == 0) {
        adoptSubstance();
    }
}

void MeasuredDataEditor::showData() {
    restart();
    adoptSubstance();
    model_->show(points());
    comment_->setText(qt(history_.value().comment));
    followProgramUnits();
    followUnits();
    followTable();
    if (lineCount() > 0) markLine(1);
    followInput();
    input_[0]->setFocus();
}

void MeasuredDataEditor::adoptSubstance() {
    datafiles::MeasuredData adopted = given_;
    const bool nobodys = adopted.casrn.empty() && adopted.M == 0;
    if (lineCount() == 0 || nobodys) adopted.casrn = session_->substance.casrn;
    if (lineCount() == 0 || adopted.M == 0) adopted.M = static_cast<double>(session_->substance.M);
    give(std::move(adopted));
    datafiles::MeasuredUnits units = model_->units();
    units.M = given_.M;
    model_->setUnits(units);
    density_->button(1)->setToolTip(
        " applying the input value after re-calculation rho = M n / V (molar mass M/(kg/kmol)= " +
        qt(numbers::general(static_cast<float>(units.M))));
}

// ---------------------------------------------------------------------------------------- history

datafiles::MeasuredData MeasuredDataEditor::data() const {
    datafiles::MeasuredData all = given_;
    all.points = points();
    all.comment = history_.value().comment;
    return all;
}

void MeasuredDataEditor::restart() {
    given_ = session_->measured;
    history_.restart({given_.points, given_.comment});
}

void MeasuredDataEditor::give(datafiles::MeasuredData data) {
    if (data == given_) return;
    given_ = std::move(data);
    session_.change()->measured = given_;
}

template <class Command>
bool MeasuredDataEditor::ownCommand(const Command& run) {
    const QScopedValueRollback own(commanding_, true);
    return run();
}

bool MeasuredDataEditor::mayLeave() {
    const bool may = ownCommand([this] { return session::may_leave_measured_data(session_); });
    given_ = session_->measured;  // saving has given them a file
    return may;
}

void MeasuredDataEditor::change(const char* name, const std::function<void(Content&)>& what) {
    Content changed = history_.value();
    what(changed);
    if (changed == history_.value()) return;
    history_.change(name, std::move(changed));
    showPresent();
}

void MeasuredDataEditor::showPresent() {
    give(data());
    model_->show(points());
    const QString comment = qt(history_.value().comment);
    if (comment_->text() != comment) comment_->setText(comment);
    setChanged();
    followTable();
    followInput();
}

QString MeasuredDataEditor::undoName() const {
    return qt(history_.undo_name().value_or(""));
}

QString MeasuredDataEditor::redoName() const {
    return qt(history_.redo_name().value_or(""));
}

void MeasuredDataEditor::undo() {
    if (history_.undo()) showPresent();
}

void MeasuredDataEditor::redo() {
    if (history_.redo()) showPresent();
}

// ----------------------------------------------------------------------------------------- state

MeasuredDataEditor::Lines MeasuredDataEditor::markedLines() const {
    // Not cell by cell, of which there are many when all lines are marked.
    int first = 0, last = 0;
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
        first = first == 0 ? range.top() + 1 : std::min(first, range.top() + 1);
        last = std::max(last, range.bottom() + 1);
    }
    return {first, last};
}

void MeasuredDataEditor::markLine(int line) {
    const int row = std::min(line, model_->rowCount()) - 1;
    if (row < 0) return;
    // Not selectRow(), which would toggle the line while Ctrl is held for a paste.
    table_->selectionModel()->setCurrentIndex(
        model_->index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    table_->scrollTo(model_->index(row, 0));
}

bool MeasuredDataEditor::editMode() const {
    return mode_->checkedId() == 1;
}

void MeasuredDataEditor::setChanged() {
    session_.change()->measured_unsaved = true;
    if (lineCount() > 0)
        session::set_commands(session_, {session::Command::measuredDataEdit}, true);
}

void MeasuredDataEditor::followTable() {
    const auto [first, last] = markedLines();
    if (lineCount() == 0)
        status_->setText("empty list");
    else if (first == 0)
        status_->setText(QString("%1 lines").arg(lineCount()));
    else if (first == last)
        status_->setText(QString("line %1").arg(first));
    else
        status_->setText(QString("lines %1 till %2").arg(first).arg(last));
    file_->setText(given_.file.empty() ? QString() : "File: " + qt(given_.file));
}

// The unit that the program shows a quantity in, where the table has it; else an option of its own.
void MeasuredDataEditor::followProgramUnits() {
    const models::Units now = session::usable_units(session_);
    datafiles::MeasuredUnits units = model_->units();
    if (now == units.program) return;
    units.program = now;
    model_->setUnits(units);
    const auto choose = [](QButtonGroup* group, const models::Scale& scale) {
        const QString name = qt(models::pretty_unit(scale.name));
        QAbstractButton* own = group->buttons().constLast();
        own->setText(name);
        QAbstractButton* found = own;
        for (QAbstractButton* option : group->buttons())
            if (option != own && option->text() == name) found = option;
        own->setVisible(found == own);
        found->setChecked(true);
    };
    choose(temperature_, now.of(models::Dimension::temperature));
    choose(pressure_, now.of(models::Dimension::pressure));
    takeUnits();
}

void MeasuredDataEditor::followUnits() {
    moles_->setEnabled(model_->units().volume);
    for (std::size_t i = 0; i < captions_.size(); ++i) {
        captions_[i]->setText(model_->name(static_cast<MeasuredColumn>(i)));
        unitLabels_[i]->setText(model_->unit(static_cast<MeasuredColumn>(i)));
        const auto column = static_cast<MeasuredColumn>(i);
        const bool density = column == MeasuredColumn::rhoL || column == MeasuredColumn::rhoV;
        if (!density || !model_->units().volume)
            input_[i]->setQuantity(dimensionOf(column),
                                   datafiles::scale_of(column, model_->units()), session_.fluid());
    }
}

// In edit mode the fields show the marked line.
void MeasuredDataEditor::followInput() {
    if (!editMode()) return;
    const auto [first, last] = markedLines();
    for (std::size_t i = 0; i < input_.size(); ++i)
        input_[i]->setText(first == 0
                               ? QString()
                               : model_->index(first - 1, static_cast<int>(i)).data().toString());
}

bool MeasuredDataEditor::takeUnits() {
    datafiles::MeasuredUnits units = model_->units();
    units.T = static_cast<datafiles::TemperatureUnit>(temperature_->checkedId());
    units.p = static_cast<datafiles::PressureUnit>(pressure_->checkedId());
    units.volume = density_->checkedId() == 1;
    const bool amount = moles_->holdsNumber() && moles_->value() > 0;
    if (amount) units.n = moles_->value();
    if (!amount) moles_->setMark("An amount above 0 is needed");
    model_->setUnits(units);
    followUnits();
    followInput();
    return amount;
}

// --------------------------------------------------------------------------------------- commands

// Reads the fields asked for into a line; one that its column cannot hold is marked.
template <class Which>
bool MeasuredDataEditor::readInput(datafiles::MeasuredPoint& set, const Which& asked) {
    for (std::size_t i = 0; i < input_.size(); ++i) {
        if (!asked(i) || datafiles::store_cell(set, static_cast<MeasuredColumn>(i),
                                               input_[i]->numberText(), model_->units()))
            continue;
        input_[i]->setMark("This column cannot hold this number");
        input_[i]->setFocus();
        return false;
    }
    return true;
}

void MeasuredDataEditor::takeInput() {
    if (markWrongNumber(input_) || (density_->checkedId() == 1 && !takeUnits())) return;
    if (editMode()) {
        const int line = markedLines().first;
        if (line == 0) {
            dialogs::tell("No marked item!", dialogs::kNotPossible, dialogs::Icon::Stop);
            return;
        }
        datafiles::MeasuredPoint set = points()[static_cast<std::size_t>(line - 1)];
        // A field that was only looked at keeps the digits that it does not show.
        const auto touched = [&](std::size_t i) {
            return input_[i]->text() !=
                   model_->index(line - 1, static_cast<int>(i)).data().toString();
        };
        if (!readInput(set, touched)) return;
        change("Change line",
               [&](Content& d) { d.points[static_cast<std::size_t>(line - 1)] = set; });
        return;
    }
    adoptSubstance();
    datafiles::MeasuredPoint set;
    if (!readInput(set, [](std::size_t) { return true; })) return;
    const bool empty =
        set.T == 0 && set.p == 0 && set.rhoL == 0 && set.rhoV == 0 && set.hLV == 0 && set.cp == 0;
    if (empty) {
        input_[0]->setMark("A value is needed in one field at least");
        input_[0]->setFocus();
        return;
    }
    change("Add line", [&](Content& d) {
        datafiles::insert_points(d.points, lineCount() + 1, {&set, 1});
    });
    markLine(lineCount());
    for (NumberEdit* field : input_) field->clear();
    input_[0]->setFocus();
}

void MeasuredDataEditor::eraseLines() {
    const auto [first, last] = markedLines();
    if (!session::confirm_removal(first, last)) return;
    change("Remove lines", [first = first, last = last](Content& d) {
        datafiles::remove_points(d.points, first, last);
    });
    markLine(first);
    followTable();
    followInput();
}

void MeasuredDataEditor::toggleLines() {
    const auto [first, last] = markedLines();
    if (first == 0) {
        dialogs::tell("No marked item!", dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    change("Lines active or inactive", [first = first, last = last](Content& d) {
        datafiles::toggle_points(d.points, first, last);
    });
}

void MeasuredDataEditor::pasteLines() {
    adoptSubstance();
    const auto [sets, wrong] =
        datafiles::sets_from_clipboard(dialogs::clipboard(), model_->units());
    if (sets.empty()) {
        dialogs::tell("The clipboard holds no lines of numbers.", dialogs::kNotPossible);
        return;
    }
    if (sets.size() + points().size() > datafiles::kMostMeasuredPoints) {
        dialogs::tell("There is room for " + std::to_string(datafiles::kMostMeasuredPoints) +
                          " sets of data only.",
                      dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    const int marked = markedLines().first;
    const int line = marked == 0 ? lineCount() + 1 : marked;
    change("Add clipboard",
           [&, &pasted = sets](Content& d) { datafiles::insert_points(d.points, line, pasted); });
    markLine(line);
    followTable();
    session::tell_wrong_lines(wrong, static_cast<std::size_t>(line) - 1);
}

void MeasuredDataEditor::copyCells() {
    const QItemSelection marked = table_->selectionModel()->selection();
    if (marked.isEmpty()) {
        dialogs::tell("No marked item!", dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    const QItemSelectionRange range = marked.constFirst();
    QString text;
    for (int row = range.top(); row <= range.bottom(); ++row) {
        QStringList cells;
        for (int column = range.left(); column <= range.right(); ++column)
            cells << model_->index(row, column).data().toString();
        text += cells.join('\t') + "\r\n";
    }
    dialogs::set_clipboard(text.toStdString());
}

void MeasuredDataEditor::clearCells() {
    change("Clear cells", [this](Content& d) {
        for (const QModelIndex& cell : table_->selectionModel()->selectedIndexes())
            datafiles::store_cell(d.points[static_cast<std::size_t>(cell.row())],
                                  static_cast<MeasuredColumn>(cell.column()), {}, model_->units());
    });
}

void MeasuredDataEditor::sortBy(MeasuredColumn column) {
    change(column == MeasuredColumn::T ? "Sort by T" : "Sort by p",
           [column](Content& d) { datafiles::sort_points(d.points, column); });
    markLine(1);
    followTable();
}

// New data replace the present ones, which may be worth saving first.
void MeasuredDataEditor::load(bool append) {
    if (!append && !mayLeave()) return;
    const int before = lineCount();
    if (!ownCommand([&] { return session::load_measured_data(session_, append); })) {
        followTable();
        return;
    }
    const bool unsaved = append && before > 0;
    if (unsaved) {
        given_ = session_->measured;
        history_.change("Add file", {given_.points, given_.comment});
    } else {
        restart();
    }
    adoptSubstance();
    showPresent();
    session_.change()->measured_unsaved = unsaved;
    markLine(unsaved ? before + 1 : 1);
    desk_.refresh();
}

void MeasuredDataEditor::save() {
    if (ownCommand([this] { return session::save_measured_data(session_); })) {
        given_ = session_->measured;
    }
    followTable();
}

int MeasuredDataEditor::fitColumn() const {
    return target_->checkedId();
}

void MeasuredDataEditor::send(const std::function<void()>& door) {
    {
        const auto now = session_.change();
        now->fit_source = session::FitSource::measuredData;
        now->fit_column = static_cast<std::int16_t>(fitColumn());
    }
    door();
}

// Keys of the table that the table itself would take in another way.
bool MeasuredDataEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched != table_ || event->type() != QEvent::KeyPress)
        return ChildView::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy)) {
        copyCells();
    } else if (key->matches(QKeySequence::Paste)) {
        pasteLines();
    } else if (key->matches(QKeySequence::Delete)) {
        clearCells();
    } else if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        if (table_->currentIndex().isValid()) table_->edit(table_->currentIndex());
    } else {
        return false;
    }
    return true;
}

void MeasuredDataEditor::closeEvent(QCloseEvent* event) {
    if (!mayLeave()) {
        event->ignore();
        return;
    }
    desk_.refresh();
    ChildView::closeEvent(event);
}

}  // namespace quor::gui
