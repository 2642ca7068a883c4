#include "gui/data/substance_editor_view.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "gui/data/data_field.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "session/substance_session.h"

namespace quor::gui {

namespace {

using datafiles::editor_field_table;
using datafiles::EditorCorrelation;
using datafiles::EditorField;
using datafiles::EditorTab;
using datafiles::EditorTexts;
using datafiles::GroupFrame;

constexpr std::array kTabs{EditorTab::SingleValues, EditorTab::VapourPressure, EditorTab::LDensity,
                           EditorTab::HeatCapacity, EditorTab::Vaporisation};

/// Where a frame of the field table stands on its tab.
struct FrameSpec {
    EditorTab tab;
    std::string_view caption;
    const char* name;
    int row, column, rowSpan, columnSpan;
    int fieldsPerRow = 1;
};

constexpr auto kFrames = std::to_array<FrameSpec>({
    {EditorTab::SingleValues, "General Data", "fraGeneral", 0, 0, 1, 1},
    {EditorTab::SingleValues, "Critical Data", "fraCritical", 0, 1, 1, 1},
    {EditorTab::SingleValues, "Caloric Data", "fraCaloric", 0, 2, 1, 1},
    {EditorTab::VapourPressure, "ANTOINE (low press.)", "fraALP", 0, 0, 1, 1},
    {EditorTab::VapourPressure, "ANTOINE (high press.)", "fraAHP", 0, 1, 1, 1},
    {EditorTab::VapourPressure, "AUGUST, calc. from T(crit) and normal boiling point", "fraAUG", 1,
     0, 1, 2, 2},
    {EditorTab::VapourPressure, "ANTOINE Constants, Thompson correlated", "fraTHO", 2, 0, 1, 2, 2},
    {EditorTab::VapourPressure, " FROST/KALKWARF ", "fraFRO", 0, 2, 3, 1},
    {EditorTab::VapourPressure, " WAGNER ", "fraWAG", 0, 3, 3, 1},
    {EditorTab::VapourPressure, "van der Waals correl.", "fraKFW", 0, 4, 3, 1},
    {EditorTab::VapourPressure, "Redlich/Kw. correlated", "fraKFR", 0, 5, 3, 1},
    {EditorTab::LDensity, " rho(T) ", "fraRho", 0, 0, 1, 1},
    {EditorTab::HeatCapacity, " polynomial function ", "fraCpPoly", 0, 0, 1, 1},
    {EditorTab::HeatCapacity, "sinh/cosh-function", "fraCpSinh", 0, 1, 1, 1},
    {EditorTab::HeatCapacity, "Polynomial cp(L)", "fraCpL", 0, 2, 1, 1},
    {EditorTab::HeatCapacity, "Polynomial cp(S)", "fraCpS", 0, 3, 1, 1},
    {EditorTab::Vaporisation, "delta(LV)h (T)", "fraHLV", 0, 0, 1, 1},
    {EditorTab::Vaporisation, "WATSON reference point", "fraWatson", 0, 1, 1, 1},
});

constexpr auto kCpForms =
    "Polynomial: cp = C0 + C1*T + C2*T^2 + C3*T^3 + C4*T^4 \n"
    "Case C0 = 0:    cp = C1 + C2*T + C3*T^2 + C4*T^(-2) \n"
    "Case C0 <> 0:  cp = C0 + C1*T + C2*T^2 + C3*T^3 + C4*T^4 ";

constexpr int kTriplePressure = 3;

}  // namespace

SubstanceEditorView::SubstanceEditorView(Desk& desk, bool readOnly, QWidget* parent)
    : QDialog(parent), desk_(desk), session_(desk.session()), readOnly_(readOnly) {
    setObjectName("frmBankEdit");
    setWindowTitle("View/Edit Data");
    // The order of their making is the order in which Tab goes through them: the head comes first.
    for (const bool head : {true, false})
        for (const EditorField& field : editor_field_table()) {
            if ((field.tab == EditorTab::Head) != head) continue;
            auto* edit = new DataField(field, this);
            if (readOnly_) edit->setReadOnly(true);
            connect(edit, &QLineEdit::editingFinished, this, [this, &field, edit] {
                remember("Change " + qt(field.caption).trimmed());
                // What was typed is one step now, no longer the field's own.
                if (edit->isUndoAvailable()) edit->setText(edit->text());
            });
            fields_[static_cast<std::size_t>(field.index)] = edit;
        }
    tabs_ = form::named(new QTabWidget, "SSTab1");
    for (const EditorTab tab : kTabs)
        tabs_->addTab(buildPage(tab), qt(datafiles::editor_tab_caption(tab)));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addWidget(buildHead());
    layout->addWidget(tabs_, 1);
    layout->addWidget(buildCommands());

    showTexts(datafiles::show_record(session_->substance));
    shown_ = texts();
    history_.restart(shown_);
    new UndoKeys(this, *this);
    follow();
    fields_[0]->setFocus();
}

QWidget* SubstanceEditorView::buildHead() {
    auto* head = new QWidget;
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins({});
    layout->setSpacing(theme::kGap);
    for (const int index : {83, 84, 85}) {
        const EditorField& field = editor_field_table()[static_cast<std::size_t>(index)];
        DataField* edit = fields_[static_cast<std::size_t>(index)];
        layout->addWidget(form::caption(qt(field.caption), edit));
        layout->addWidget(edit, index == 83 ? 3 : 1);
    }
    layout->addSpacing(theme::kGroupGap);
    layout->addWidget(form::named(form::label(qt(datafiles::kEditorLegend)), "lblLegend"));
    return head;
}

QWidget* SubstanceEditorView::buildPage(EditorTab tab) {
    auto* page = new QWidget;
    auto* grid = form::grid(page);
    grid->setHorizontalSpacing(theme::kGroupGap);
    int top = 0, columns = 0;
    if (tab == EditorTab::VapourPressure) {
        equation_ = form::named(form::label(), "lblVP");
        auto* help = form::helpButton("cmdP0", "vapour pressure equations");
        grid->addWidget(withHelp(help, help::kVapourPressure, equation_), 0, 0, 1, 6);
        top = 1;
    }
    for (std::size_t i = 0; i < kFrames.size(); ++i) {
        const FrameSpec& f = kFrames[i];
        if (f.tab != tab) continue;
        grid->addWidget(buildFrame(i), top + f.row, f.column, f.rowSpan, f.columnSpan);
        columns = std::max(columns, f.column + f.columnSpan);
    }
    const int below = grid->rowCount();
    if (tab == EditorTab::HeatCapacity) {
        auto* forms = form::named(form::label(kCpForms), "lblCpForms");
        auto* help = form::helpButton("cmdCpHelp", "heat capacities");
        grid->addWidget(withHelp(help, help::kIdealGasCp, forms), below, 0, 1, columns);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    if (tab != EditorTab::VapourPressure) grid->setColumnStretch(columns, 1);
    return page;
}

QGroupBox* SubstanceEditorView::buildFrame(std::size_t spec) {
    const FrameSpec& f = kFrames[spec];
    QGroupBox* box = form::frame(qt(f.caption), f.name);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(theme::kGap, theme::kGap, theme::kGap, theme::kGap);
    layout->setSpacing(theme::kGap);
    auto* grid = form::grid();
    grid->setContentsMargins({});
    int n = 0;
    bool editable = true;
    for (const EditorField& field : editor_field_table()) {
        if (field.tab != f.tab || field.frame != f.caption) continue;
        DataField* edit = fields_[static_cast<std::size_t>(field.index)];
        const int row = n / f.fieldsPerRow, column = 2 * (n % f.fieldsPerRow);
        grid->addWidget(form::caption(qt(field.caption), edit), row, column);
        grid->addWidget(edit, row, column + 1);
        grid->setColumnStretch(column + 1, 1);
        editable = editable && field.editable;
        ++n;
    }
    layout->addLayout(grid);
    if (!editable) layout->addWidget(form::note("not editable"));
    addCommands(f.caption, layout);
    layout->addStretch(1);
    return box;
}

// The commands that belong to a frame stand below its fields.
void SubstanceEditorView::addCommands(std::string_view frameCaption, QVBoxLayout* layout) {
    const auto help = [&](const char* name, const QString& about, int topic) {
        QToolButton* button = form::helpButton(name, about);
        desk_.connectHelp(button, topic);
        layout->addWidget(button, 0, Qt::AlignRight);
    };
    if (frameCaption == "General Data") layout->addWidget(triplePointChoice());
    if (frameCaption == "Critical Data")
        layout->addWidget(estimation("cmdJOBACKCrit", GroupFrame::Critical));
    if (frameCaption == "Caloric Data")
        layout->addWidget(estimation("cmdJOBACKBildung", GroupFrame::Formation));
    if (frameCaption == " polynomial function ")
        layout->addWidget(estimation("cmdApplyJOBACKcp", GroupFrame::HeatCapacity));
    if (frameCaption.starts_with("AUGUST"))
        layout->addWidget(recalculation("cmdCorrelateAugust",
                                        "... using critical point and normal boiling point  ",
                                        EditorCorrelation::August));
    if (frameCaption.starts_with("ANTOINE Constants")) {
        QToolButton* button = form::helpButton("cmdAntCorrHelp", "correlated ANTOINE constants");
        layout->addWidget(withHelp(
            button, help::kCorrelatedAntoine,
            recalculation("cmdCorrelateAntoine", " from critical point and normal boiling point ",
                          EditorCorrelation::Antoine)));
    }
    constexpr auto kAfterChange =
        "... after changing critical point or normal boiling temperature ";
    if (frameCaption.starts_with("van der Waals"))
        layout->addWidget(recalculation("cmdCorrelateKFW", kAfterChange, EditorCorrelation::KFW));
    if (frameCaption.starts_with("Redlich"))
        layout->addWidget(recalculation("cmdCorrelateKFR", kAfterChange, EditorCorrelation::KFR));
    if (frameCaption == " rho(T) ") help("cmdRhoHelp", "liquid density", help::kLiquidDensity);
    if (frameCaption == "delta(LV)h (T)")
        help("cmdHLVHelp", "enthalpy of vaporization", help::kVaporisation);
    if (frameCaption.starts_with("WATSON"))
        help("cmdHLV", "WATSON's reference point", help::kWatsonPoint);
}

QPushButton* SubstanceEditorView::recalculation(const QString& name, const QString& tip,
                                                EditorCorrelation correlation) {
    QPushButton* button = form::button("Recalculate", name);
    button->setToolTip(tip);
    button->setEnabled(!readOnly_);
    connect(button, &QPushButton::clicked, this, [this, correlation] {
        EditorTexts now = texts();
        remember("Change data");
        datafiles::recalculate(correlation, now);
        showTexts(now);
        remember("Recalculate");
    });
    return button;
}

QPushButton* SubstanceEditorView::estimation(const QString& name, GroupFrame frame) {
    QPushButton* button = form::button("JOBACK calculation", name);
    button->setToolTip("...from molecule increments ");
    button->setEnabled(!readOnly_ && desk_.doors.estimate);
    connect(button, &QPushButton::clicked, this, [this, frame] {
        EditorTexts now = texts();
        remember("Change data");
        desk_.doors.estimate(frame, now, this);
        showTexts(now);
        remember("JOBACK calculation");
    });
    return button;
}

QWidget* SubstanceEditorView::triplePointChoice() {
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins({});
    layout->setSpacing(theme::kGap);
    layout->addWidget(form::label("Triple point pressure"));
    triplePoint_[0] = form::named(new QRadioButton("from data base"), "optpSL_0");
    triplePoint_[1] =
        form::named(new QRadioButton("from actual vapour-pressure equation"), "optpSL_1");
    triplePoint_[0]->setChecked(true);
    for (const std::size_t i : {0U, 1U}) {
        layout->addWidget(triplePoint_[i]);
        connect(triplePoint_[i], &QRadioButton::clicked, this,
                [this, i] { showTriplePoint(i == 1); });
    }
    return box;
}

QWidget* SubstanceEditorView::withHelp(QToolButton* help, int topic, QWidget* beside) {
    desk_.connectHelp(help, topic);
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(theme::kGap);
    layout->addWidget(beside, 1);
    layout->addWidget(help, 0, Qt::AlignTop);
    return row;
}

QWidget* SubstanceEditorView::buildCommands() {
    QPushButton* apply = form::button("&Apply", "OK");
    apply->setDefault(true);
    apply->setEnabled(!readOnly_);
    connect(apply, &QPushButton::clicked, this, &SubstanceEditorView::apply);
    QPushButton* close = form::button("&Close", "ESC");
    connect(close, &QPushButton::clicked, this, &SubstanceEditorView::reject);
    QPushButton* help = form::button("&Help", "Hilfe");
    desk_.connectHelp(help, help::kSubstanceData);
    QPushButton* print = form::button("&Print", "cmdPrint");
    connect(print, &QPushButton::clicked, this, [this] {
        dialogs::print_out({.title = session_->substance.name,
                            .font = "COURIER",
                            .text = datafiles::editor_report(texts())});
    });
    QPushButton* write = form::button("&Save *.Q05", "WriteDataBaseQ05");
    write->setToolTip(" such a file *.Q05 only contains the components of this project ");
    write->setEnabled(!readOnly_);
    connect(write, &QPushButton::clicked, this, &SubstanceEditorView::writeDatabase);
    auto* about =
        form::named(form::label("Save all changed data in a special database file *.Q05 => Click "),
                    "lblWriteDataBase");
    about->setBuddy(write);

    status_ = form::named(form::label(qt(session::database_caption(session_))), "statusZeile");
    auto* note = form::named(
        form::label(readOnly_ ? "...but not editable from here " : qt(datafiles::kEditorNote)),
        "lblNote");
    note->setForegroundRole(QPalette::PlaceholderText);

    auto* file = new QHBoxLayout;
    file->setSpacing(theme::kGap);
    file->addWidget(status_, 1);
    file->addWidget(about);
    file->addWidget(write);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(note);
    buttons->addStretch(1);
    buttons->addWidget(print);
    buttons->addWidget(apply);
    buttons->addWidget(close);
    buttons->addWidget(help);
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins({});
    layout->setSpacing(theme::kGap);
    layout->addLayout(file);
    layout->addLayout(buttons);
    return box;
}

EditorTexts SubstanceEditorView::texts() const {
    EditorTexts now;
    for (std::size_t i = 0; i < now.size(); ++i) now[i] = fields_[i]->text().toStdString();
    return now;
}

void SubstanceEditorView::showTexts(const EditorTexts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (fields_[i]->text().toStdString() == texts[i]) continue;
        fields_[i]->setText(qt(texts[i]));
        fields_[i]->setCursorPosition(0);
    }
}

// What the session says of the substance stands in several places of the view.
void SubstanceEditorView::follow() {
    setWindowTitle(form::titleOf("View/Edit Data   " + qt(session_->substance.name)));
    equation_->setText(qt(session::active_equation_caption(session_)));
}

void SubstanceEditorView::remember(const QString& name) {
    history_.change(name.toStdString(), texts());
}

QString SubstanceEditorView::undoName() const {
    return qt(history_.undo_name().value_or(""));
}

QString SubstanceEditorView::redoName() const {
    return qt(history_.redo_name().value_or(""));
}

void SubstanceEditorView::undo() {
    if (history_.undo()) showTexts(history_.value());
}

void SubstanceEditorView::redo() {
    if (history_.redo()) showTexts(history_.value());
}

bool SubstanceEditorView::apply() {
    for (DataField* field : fields_) {
        if (field->check()) continue;
        showField(field);
        return false;
    }
    remember("Change data");
    EditorTexts now = texts();
    session::apply_editor(session_, now);
    showTexts(now);
    remember("Apply");
    shown_ = texts();
    follow();
    desk_.refresh();
    return true;
}

// Brings the tab of a field to the front.
void SubstanceEditorView::showField(DataField* field) {
    for (int i = 0; i < tabs_->count(); ++i)
        if (tabs_->widget(i)->isAncestorOf(field)) tabs_->setCurrentIndex(i);
    field->setFocus();
}

void SubstanceEditorView::writeDatabase() {
    if (apply()) session::save_private_database(session_);
}

void SubstanceEditorView::showTriplePoint(bool fromEquation) {
    if (const auto text = session::triple_point_pressure(session_, fromEquation)) {
        fields_[kTriplePressure]->setText(qt(*text));
        remember("Triple point pressure");
        return;
    }
    triplePoint_[0]->setChecked(true);
}

void SubstanceEditorView::reject() {
    if (readOnly_ || session::may_close_editor(shown_, texts())) QDialog::reject();
}

}  // namespace quor::gui
