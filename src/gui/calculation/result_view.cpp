#include "gui/calculation/result_view.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "gui/calculation/result_list.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/unit_text.h"
#include "report/protocol.h"
#include "report/quantity_text.h"
#include "report/titles.h"
#include "session/calculations.h"

namespace quor::gui {

namespace {

constexpr int kWideCharacters = 110;

// Without colour a red text is known by its sign; the region's text is bold and begins with "=>".
bool needsSign(const report::TextField& field) {
    return field.red && !field.bold && !field.text.empty();
}

QVBoxLayout* column(QWidget* parent) {
    auto* layout = new QVBoxLayout(parent);
    layout->setSpacing(theme::kGap);
    return layout;
}

}  // namespace

ResultView::ResultView(Desk& desk, ResultCommands commands, QWidget* parent)
    : ChildView(desk, "frmCalcOut", parent),
      FollowsSession(desk.session()),
      commands_(std::move(commands)) {
    setWindowIcon(theme::icon("calculate"));
    list_ = new ResultList;
    head_ = new PhaseHead(list_);
    setFocusProxy(list_);
    status_ = form::named(form::label(), "statusZeile");
    status_->setForegroundRole(QPalette::PlaceholderText);
    connect(list_, &ResultList::copied, status_, &QLabel::setText);
    arrange();
    open();
}

void ResultView::open() {
    status_->clear();
    for (QCheckBox* box : {uhs_, pages_[0], pages_[1]}) {
        const QSignalBlocker quiet(box);
        box->setChecked(false);
    }
    target_[0]->setChecked(true);
    view_ = session::open_result_view(session_);
    const QSignalBlocker quiet(separator_);
    separator_->setCurrentIndex(report::separator_index(session_->csv_separator));
    list_->setMinimumWidth(view_.wide ? list_->advance(kWideCharacters) : 0);
    setDefaultButton(session_->calculation.task == calculation::Task::functions ? ok_ : nullptr);
    ok_->setText(qt(view_.ok_caption));
    showResult();
}

void ResultView::showResult() {
    showTexts();
    follow();
    followSession();
    commands_.refreshDiagnosis();
}

void ResultView::showTexts() {
    const report::TaskResult& result = session_->results.current;
    const report::Report& told = result.report;
    units_ = result.made.units;
    setWindowTitle(qt(report::caption_of(result.request.task, result.request.method)));
    show(par1_, told.par1);
    show(par2_, told.par2);
    show(co1_, told.co1);
    show(co2_, told.co2);
    list_->showReport(told, report::has_own_units(units_));
    head_->showCaptions(told);
}

void ResultView::followSession() {
    const QString mark = "Outdated: of ";
    const report::TaskResult& result = session_->results.current;
    if (result.made.units != units_) {
        showTexts();
        follow();
    }
    if (session::is_out_of_date(session_, result))
        status_->setText(mark + qt(report::name_of(result.made)));
    else if (status_->text().startsWith(mark))
        status_->clear();
}

// ------------------------------------------------------------------------------------------ parts

ResultView::ResultLine ResultView::resultLine(const QString& name) {
    ResultLine line;
    line.box = new QWidget;
    line.sign = form::named(form::label("!"), name + "_sign");
    line.sign->setToolTip("This tells of an error");
    line.text = form::named(form::label(), name);
    line.text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line.text->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout(line.box);
    row->setContentsMargins({});
    row->setSpacing(theme::kGap);
    row->addWidget(line.sign);
    row->addWidget(line.text, 1);
    return line;
}

void ResultView::show(const ResultLine& line, const report::TextField& field) const {
    line.text->setText(
        qt(report::has_own_units(units_) ? models::pretty_unit(field.text) : field.text));
    line.sign->setVisible(needsSign(field));
    QFont font = line.box->font();
    font.setBold(field.bold);
    line.text->setFont(font);
    font.setBold(true);
    line.sign->setFont(font);
    QPalette colours;
    if (field.red) colours.setColor(QPalette::WindowText, theme::errorColour());
    line.text->setPalette(colours);
    line.sign->setPalette(colours);
}

QWidget* ResultView::buildSpecification() {
    specification_ = form::frame("specificated values", "fraBatchVorgabe");
    par1_ = resultLine("par1");
    par2_ = resultLine("par2");
    back_ = form::button("Set backward", "cmdRueck");
    back_->setShortcut(QKeySequence("Alt+Left"));
    back_->setToolTip("The data set before this one (Alt+Left)");
    connect(back_, &QPushButton::clicked, this, [this] { step(session::step_backward); });
    forward_ = form::button("Set forward", "cmdVor");
    forward_->setShortcut(QKeySequence("Alt+Right"));
    forward_->setToolTip("The data set behind this one (Alt+Right)");
    connect(forward_, &QPushButton::clicked, this, [this] { step(session::step_forward); });

    auto* row = new QHBoxLayout(specification_);
    row->setSpacing(theme::kGroupGap);
    row->addWidget(par1_.box, 1);
    row->addWidget(par2_.box, 1);
    row->addWidget(back_);
    row->addWidget(forward_);
    return specification_;
}

QWidget* ResultView::buildExtended() {
    extended_ = form::frame("Extended Calculation", "fraCalcErweitert");
    uhs_ = form::named(new QCheckBox("u, h, s, g ... for the equlibrium L-V"), "chkUHS");
    pages_[0] =
        form::named(new QCheckBox("diff. Joule-Thomson coefficients, fugacity coefficients, "
                                  "mechanical coefficients, residual functions"),
                    "ResPlus_1");
    pages_[1] = form::named(new QCheckBox("derivatives with respect to T, p, v"), "ResPlus_2");
    connect(uhs_, &QCheckBox::toggled, this, [this](bool on) {
        session::set_equilibrium_functions(session_, on);
        showResult();
    });
    QVBoxLayout* layout = column(extended_);
    layout->addWidget(uhs_);
    for (QCheckBox* box : pages_) {
        connect(box, &QCheckBox::toggled, this, &ResultView::choosePages);
        layout->addWidget(box);
    }
    return extended_;
}

QWidget* ResultView::buildOutput() {
    output_ = form::frame("Result output", "fraResultOutput");
    constexpr const char* kTargets[] = {"none", " Printer", "File"};
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGroupGap);
    for (std::size_t i = 0; i < target_.size(); ++i) {
        target_[i] =
            form::named(new QRadioButton(kTargets[i]), QString("optResultPrint_%1").arg(i));
        row->addWidget(target_[i]);
    }
    target_[0]->setChecked(true);
    row->addStretch(1);
    funcPrint_ = form::named(new QCheckBox("with extended calculation"), "chkFuncPrint");
    QVBoxLayout* layout = column(output_);
    layout->addLayout(row);
    layout->addWidget(funcPrint_);
    layout->addStretch(1);
    return output_;
}

QWidget* ResultView::buildProtocol() {
    protocol_ = form::frame("Generate a protocol of the result", "fraProtokoll");
    auto* frame = form::frame("delimiter for CSV file", "fraSep");
    frame->setFlat(true);
    frame->setToolTip("semicolon recommended");
    separator_ = form::named(new QComboBox, "cmbSep");
    separator_->setToolTip("semicolon recommended");
    for (const char* name : report::kSeparatorNames) separator_->addItem(name);
    connect(separator_, &QComboBox::currentIndexChanged, this,
            [this](int index) { session::choose_separator(session_, index); });
    auto* inFrame = new QVBoxLayout(frame);
    inFrame->setContentsMargins(0, theme::kGap, 0, 0);
    inFrame->addWidget(separator_);

    write_ = form::button("Write", "cmdProtokoll");
    connect(write_, &QPushButton::clicked, this, &ResultView::writeProtocol);
    openNew_ = form::button("Close file / Open new file", "cmdOpenNew");
    connect(openNew_, &QPushButton::clicked, this, &ResultView::newProtocol);
    auto* file = form::named(form::label("File:"), "lblFile");
    protocolName_ = form::named(form::label(), "lblProtText2");
    protocolName_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* commands = new QHBoxLayout;
    commands->setSpacing(theme::kGap);
    commands->addWidget(write_);
    commands->addWidget(openNew_);
    auto* name = new QHBoxLayout;
    name->setSpacing(theme::kGap);
    name->addWidget(file);
    name->addWidget(protocolName_, 1);
    auto* right = new QVBoxLayout;
    right->setSpacing(theme::kGap);
    right->addLayout(commands);
    right->addLayout(name);
    auto* row = new QHBoxLayout(protocol_);
    row->setSpacing(theme::kGroupGap);
    row->addWidget(frame);
    row->addLayout(right, 1);
    return protocol_;
}

QLayout* ResultView::buildButtons() {
    iso_ = form::button("\"Iso-Calculator\"", "cmdIsoCalc");
    connect(iso_, &QPushButton::clicked, this, [this] { commands_.openIsoCalculator(); });
    diagnose_ = form::button("Diagnosis of cubic EOS", "cmdCEOSDiagnose");
    connect(diagnose_, &QPushButton::clicked, this, [this] { commands_.openDiagnosis(); });
    QPushButton* curve = form::button("x-y Curve input", "cmdShowManuInput");
    curve->setEnabled(static_cast<bool>(desk_.doors.editXy));
    connect(curve, &QPushButton::clicked, this, [this] { desk_.doors.editXy(); });
    QPushButton* text = form::button("Copy", "cmdCopyText");
    text->setIcon(theme::icon("copy"));
    text->setToolTip("Copies the selection, or the whole result, as text (Ctrl+C)");
    connect(text, &QPushButton::clicked, list_, &ResultList::copyText);
    QPushButton* table = form::button("Copy as table", "cmdCopyTable");
    table->setToolTip(
        "Copies the selection, or the whole result, for a spreadsheet (Ctrl+Shift+C)");
    connect(table, &QPushButton::clicked, list_, &ResultList::copyTable);
    QPushButton* print = printButton([this] {
        dialogs::print_out({.title = windowTitle().toStdString(),
                            .text = report::result_as_text(session_->results.current.report)});
    });
    ok_ = form::button("=>Load", "cmdCalc_OK");
    connect(ok_, &QPushButton::clicked, this, &ResultView::finish);

    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGap);
    for (QPushButton* one : {iso_, diagnose_, curve}) row->addWidget(one);
    row->addStretch(1);
    for (QPushButton* one : {text, table, print, ok_}) row->addWidget(one);
    return row;
}

void ResultView::arrange() {
    co1_ = resultLine("co1");
    co2_ = resultLine("co2");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGap);
    layout->addWidget(buildSpecification());
    layout->addWidget(co1_.box);
    layout->addWidget(co2_.box);
    layout->addWidget(head_);
    layout->addWidget(list_, 1);
    layout->addWidget(buildExtended());
    auto* outputs = new QHBoxLayout;
    outputs->setSpacing(theme::kGap);
    outputs->addWidget(buildOutput());
    outputs->addWidget(buildProtocol(), 1);
    layout->addLayout(outputs);
    layout->addLayout(buildButtons());
    layout->addWidget(status_);
}

// ----------------------------------------------------------------------------------------- state

// Everything but the texts of the result: what is shown and enabled.
void ResultView::follow() {
    const report::TaskResult& result = session_->results.current;
    const bool panels = !result.report.panels_hidden;
    specification_->setTitle(form::captionOf(qt(report::input_caption(result.data_set))));
    specification_->setVisible(panels);
    back_->setVisible(view_.step_visible);
    forward_->setVisible(view_.step_visible);
    co1_.box->setVisible(panels);
    co2_.box->setVisible(panels);
    extended_->setVisible(panels && view_.extended_visible);
    extended_->setEnabled(view_.extended_enabled);
    output_->setVisible(view_.result_output_visible);
    funcPrint_->setEnabled(view_.function_print_enabled);
    if (!view_.function_print_enabled) funcPrint_->setChecked(false);
    protocol_->setVisible(panels && view_.protocol_visible);
    iso_->setVisible(panels);
    const bool hasState = session::iso_start(session_).has_value();
    iso_->setEnabled(hasState);
    iso_->setToolTip(hasState ? "Another state on a line of constant h, s, v ... from this one"
                              : "not yet a T|p value available!");
    write_->setEnabled(!result.failed());
    write_->setToolTip(result.failed() ? "There is no result to write"
                                       : "Adds this result to the protocol");

    const report::ButtonState& diagnosis = result.report.diagnosis;
    diagnose_->setEnabled(diagnosis.enabled);
    QPalette colours;
    if (diagnosis.enabled) {
        colours.setColor(QPalette::Button, QColor::fromRgb(diagnosis.colour));
        colours.setColor(QPalette::ButtonText, Qt::black);
    }
    diagnose_->setPalette(colours);
    followProtocol();
    fitWindow();
}

void ResultView::followProtocol() {
    openNew_->setEnabled(session_->protocol.pending);
    protocolName_->setText(qt(session::protocol_file_title(session_)));
}

// --------------------------------------------------------------------------------------- commands

void ResultView::step(void (*to)(session::Session&)) {
    to(session_);
    showResult();
}

void ResultView::choosePages() {
    session::set_extended_pages(session_, view_, pages_[0]->isChecked(), pages_[1]->isChecked());
    showResult();
}

void ResultView::finish() {
    report::ListTarget target = report::ListTarget::None;
    if (target_[1]->isChecked()) target = report::ListTarget::Printer;
    if (target_[2]->isChecked()) target = report::ListTarget::File;
    session::finish_result_view(session_, view_, target, funcPrint_->isChecked(),
                                desk_.calculationViews);
}

void ResultView::writeProtocol() {
    session::add_to_protocol(session_);
    followProtocol();
    const std::size_t count = session_->protocol.rows.size();
    status_->setText(count == 1 ? QString("1 result in the protocol")
                                : QString("%1 results in the protocol").arg(count));
}

void ResultView::newProtocol() {
    if (!session::write_protocol(session_)) return followProtocol();
    const QString written = qt(session::protocol_file_title(session_));
    if (session::open_new_protocol(session_))
        status_->setText(written + " written, and copied to the clipboard as a table");
    followProtocol();
}

void ResultView::cancel() {
    desk_.calculationViews.close_direct_input();
    closeView();
}

// Pending results of the protocol reach their file before the view goes; what cannot be written
// stays pending.
void ResultView::closeEvent(QCloseEvent* event) {
    if (session_->protocol.pending) newProtocol();
    desk_.closeViews({"frmIsoCalc", "frmCEOSDiagnose"});
    ChildView::closeEvent(event);
}

}  // namespace quor::gui
