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

/// The parts of the view of measured data, and how they are put together.
namespace quor::gui {

namespace {

using datafiles::MeasuredColumn;

constexpr int kRowPadding = 6, kRowsShown = 14, kColumnCharacters = 13;

// The options of a control array in one row; the group knows them by their index, from `first` on.
QButtonGroup* options(QBoxLayout* row, const QString& name, const QStringList& captions,
                      QObject* parent, int first = 0) {
    auto* group = new QButtonGroup(parent);
    int index = first;
    for (const QString& caption : captions) {
        auto* option =
            form::named(new QRadioButton(caption), QString("%1_%2").arg(name).arg(index));
        group->addButton(option, index++);
        row->addWidget(option);
    }
    row->addStretch(1);
    group->button(first)->setChecked(true);
    return group;
}

}  // namespace

QWidget* MeasuredDataEditor::buildTable() {
    table_ = form::named(new QTableView, "grdTpV");
    table_->setModel(model_);
    table_->setItemDelegate(new NumberDelegate(table_));
    table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    table_->setAlternatingRowColors(true);
    table_->setTabKeyNavigation(false);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table_->horizontalHeader()->setMinimumSectionSize(kColumnCharacters *
                                                      table_->fontMetrics().averageCharWidth());
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + kRowPadding);
    table_->setMinimumHeight(kRowsShown * table_->verticalHeader()->defaultSectionSize());
    table_->installEventFilter(this);
    buildMenu();
    connect(table_, &QWidget::customContextMenuRequested, this,
            [this](QPoint at) { menu_->popup(table_->viewport()->mapToGlobal(at)); });
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        followTable();
        followInput();
    });
    connect(model_, &QAbstractItemModel::dataChanged, this, &MeasuredDataEditor::followInput);
    return table_;
}

void MeasuredDataEditor::buildMenu() {
    menu_ = new QMenu(this);
    menu_->setObjectName("mnuEdit1");
    menu_->addAction("copy\tCtrl+C", this, &MeasuredDataEditor::copyCells)
        ->setObjectName("mnuCopy1");
    menu_->addAction("paste\tCtrl+V", this, &MeasuredDataEditor::pasteLines)
        ->setObjectName("mnuPaste1");
    QMenu* erase = menu_->addMenu("delete");
    erase->setObjectName("mnuErase1");
    erase->addAction("marked cell(s) => 0\tDel", this, &MeasuredDataEditor::clearCells)
        ->setObjectName("mnuSubDelNull1");
    erase->addAction("remove marked line(s)", this, &MeasuredDataEditor::eraseLines)
        ->setObjectName("mnuSubDelLine1");
}

QGroupBox* MeasuredDataEditor::buildUnits() {
    auto* frame = form::frame("Units", "fraUnits");
    auto* grid = form::grid(frame);
    const auto row = [&](int n, const QString& caption, const QString& name,
                         const QStringList& captions) {
        grid->addWidget(form::caption(caption), n, 0);
        auto* line = new QHBoxLayout;
        line->setSpacing(theme::kGroupGap);
        grid->addLayout(line, n, 1);
        QButtonGroup* group = options(line, name, captions, this);
        connect(group, &QButtonGroup::idClicked, this, &MeasuredDataEditor::takeUnits);
        return group;
    };
    temperature_ = row(0, "T", "opt_T_unit", {"K", "°C", {}});
    pressure_ = row(1, "p", "opt_p_Unit", {"kPa", "atm", "Torr", {}});
    // The last option is for a unit of the program that the table has not; it gets its name then.
    for (QButtonGroup* group : {temperature_, pressure_}) group->buttons().constLast()->hide();
    density_ = row(2, "rho", "opt_Rho_Unit", {"density", "mol. volume"});
    density_->button(0)->setToolTip("kg/m^3");
    moles_ = form::named(new NumberEdit, "txtMol");
    moles_->setValue(model_->units().n);
    connect(moles_, &QLineEdit::editingFinished, this, &MeasuredDataEditor::takeUnits);
    form::addRow(grid, 3, "n/kmol =", moles_);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* MeasuredDataEditor::buildInput() {
    auto* frame = form::frame("Input", "fraInput");
    auto* modes = new QVBoxLayout;
    modes->setSpacing(theme::kGap);
    mode_ = options(modes, "optInputMode", {"Input mode = Add", "Input mode = Edit"}, this);
    connect(mode_, &QButtonGroup::idClicked, this, &MeasuredDataEditor::followInput);
    auto* grid = form::grid();
    grid->setContentsMargins({});
    for (int i = 0; i < datafiles::kMeasuredColumns; ++i) {
        const auto n = static_cast<std::size_t>(i);
        input_[n] = form::named(new NumberEdit, QString("txtInput_%1").arg(i));
        captions_[n] = form::named(form::caption({}, input_[n]), QString("lblInput_%1").arg(i));
        grid->addWidget(captions_[n], i, 0);
        unitLabels_[n] = form::named(form::unit({}), QString("lblUnit_%1").arg(i));
        grid->addWidget(input_[n], i, 1);
        grid->addWidget(unitLabels_[n], i, 2);
    }
    grid->setColumnStretch(1, 1);
    QPushButton* ok = form::button("OK", "OKinput");
    ok->setToolTip("Writes the values to a new line, or to the marked line (Enter)");
    connect(ok, &QPushButton::clicked, this, &MeasuredDataEditor::takeInput);
    setDefaultButton(ok);
    auto* layout = new QVBoxLayout(frame);
    layout->setSpacing(theme::kGap);
    layout->addLayout(modes);
    layout->addLayout(grid);
    layout->addWidget(ok, 0, Qt::AlignRight);
    return frame;
}

QGroupBox* MeasuredDataEditor::buildTarget() {
    auto* frame = form::frame("Column y of graph, fitting and *.XY", "fraFit");
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGroupGap);
    target_ = options(row, "optFitFunction", {"p", "rho_L", "rho_V", "delta(LV)h", "cp"}, this, 1);
    const auto command = [&](const QString& caption, const QString& name,
                             const std::function<void()>& door) {
        QPushButton* button = form::button(caption, name);
        button->setEnabled(static_cast<bool>(door));
        if (!door) button->setToolTip("This program has no view for it");
        connect(button, &QPushButton::clicked, this, [this, &door] { send(door); });
        return button;
    };
    QPushButton* xy = form::button("Save as *.XY", "cmdSaveXY");
    connect(xy, &QPushButton::clicked, this,
            [this] { session::save_measured_column(session_, fitColumn()); });
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(
        command("Meas. point graph  y = f(T)", "cmdGraphFunction", desk_.doors.drawMeasured));
    buttons->addWidget(
        command("Meas. point graph  ln{p} = f(1/T)", "cmdlogGraf", desk_.doors.drawMeasuredLn));
    buttons->addWidget(command("Send data to T-y fitting", "cmdFitting", desk_.doors.fit));
    buttons->addWidget(xy);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(frame);
    layout->setSpacing(theme::kGap);
    layout->addLayout(row);
    layout->addLayout(buttons);
    return frame;
}

QLayout* MeasuredDataEditor::buildLineButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGap);
    const auto command = [&](const QString& caption, const QString& name, const QString& tip,
                             auto slot) {
        QPushButton* button = form::button(caption, name);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, slot);
        row->addWidget(button);
    };
    command("Remove marked lines", "cmdErase", {}, &MeasuredDataEditor::eraseLines);
    command("Line activ/inactiv", "cmdAus", "...excluding that line from graph and fitting ",
            &MeasuredDataEditor::toggleLines);
    command("Add clipboard", "cmdClipEinfuegen", "...at the marked position ",
            &MeasuredDataEditor::pasteLines);
    command("Sort by T", "TSort", {}, [this] { sortBy(MeasuredColumn::T); });
    command("Sort by p", "pSort", {}, [this] { sortBy(MeasuredColumn::p); });
    row->addStretch(1);
    return row;
}

QLayout* MeasuredDataEditor::buildFileButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGap);
    const auto command = [&](const QString& caption, const QString& name, auto slot) {
        QPushButton* button = form::button(caption, name);
        connect(button, &QPushButton::clicked, this, slot);
        row->addWidget(button);
    };
    command("Load *.BAQ NEW", "cmdBatchLoad", [this] { load(false); });
    command("&Add. File *.BAQ", "cmdBatchAdd", [this] { load(true); });
    command("Save as *.BAQ", "cmdBatchSave", &MeasuredDataEditor::save);
    command("Print table", "cmdPrintTpVListe", [this] {
        dialogs::print_out({.title = windowTitle().trimmed().toStdString(),
                            .font = "COURIER",
                            .text = datafiles::measured_table_text(points(), model_->units())});
    });
    row->addStretch(1);
    command("Close", "cmdClose", [this] { cancel(); });
    return row;
}

void MeasuredDataEditor::arrange() {
    comment_ = form::named(new QLineEdit, "txtComment");
    comment_->setToolTip("Optional comment for BAQ or XY file resp.");
    comment_->setPlaceholderText("Optional comment for BAQ or XY file resp.");
    connect(comment_, &QLineEdit::textEdited, this, [this](const QString& typed) {
        given_.comment = typed.toStdString();
        const auto now = session_.change();
        now->measured.comment = given_.comment;
        now->measured_unsaved = true;
    });
    connect(comment_, &QLineEdit::editingFinished, this, [this] {
        change("Change comment",
               [this](Content& d) { d.comment = comment_->text().toStdString(); });
    });
    file_ = form::named(form::label(), "lblBatchFile");
    status_ = form::named(form::label(), "lblStatus");

    auto* side = new QVBoxLayout;
    side->setSpacing(theme::kGap);
    side->addWidget(buildUnits());
    side->addWidget(buildInput());
    side->addStretch(1);
    auto* left = new QVBoxLayout;
    left->setSpacing(theme::kGap);
    left->addWidget(buildTable(), 1);
    left->addLayout(buildLineButtons());
    auto* top = new QHBoxLayout;
    top->setSpacing(theme::kGroupGap);
    top->addLayout(left, 1);
    top->addLayout(side);
    auto* comment = new QHBoxLayout;
    comment->setSpacing(theme::kGap);
    comment->addWidget(form::caption("Comment", comment_));
    comment->addWidget(comment_, 1);
    auto* status = new QHBoxLayout;
    status->setSpacing(theme::kGroupGap);
    status->addWidget(status_);
    status->addStretch(1);
    status->addWidget(file_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGap);
    layout->addLayout(top, 1);
    layout->addLayout(comment);
    layout->addWidget(buildTarget());
    layout->addLayout(buildFileButtons());
    layout->addLayout(status);
}

}  // namespace quor::gui
