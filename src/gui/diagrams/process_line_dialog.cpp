#include "gui/diagrams/process_line_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/unit_text.h"

namespace quor::gui {

namespace {

using Kind = diagrams::ProcessKind;

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr int kTRange = 1;                           // `optTp`; 0 is a range of p
constexpr int kLiquid = 0, kVapour = 1;              // `optPhase`
constexpr int kHomogeneous = 0, kHeterogeneous = 1;  // `optHomoHetero`
constexpr int kIdealGas = 1;                         // `optIdealEOS`

double numberIn(const NumberEdit* edit) {
    return edit->holdsNumber() ? edit->value() : kNoNumber;
}

}  // namespace

ProcessLineDialog::ProcessLineDialog(Task task,
                                     std::function<void(const diagrams::ProcessLine&)> draw,
                                     QWidget* parent)
    : QDialog(parent), task_(std::move(task)), draw_(std::move(draw)), kind_(task_.line.kind) {
    setObjectName("frmInputProzessLinien");
    setWindowTitle("Input Parameters fpr Processlines");
    title_ = form::named(form::label(), "lblTitel");
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addWidget(title_);
    if (isPolytropic())
        layout->addWidget(buildOptions("Equation of state", "fraIdealEOS",
                                       {"using actual EOS", "using Id-Gas equation"},
                                       task_.line.ideal_gas_equation ? kIdealGas : 0, eos_));
    if (mayBeHeterogeneous())
        layout->addWidget(buildOptions("Region", "fraHomoHetero",
                                       {"Process line homogen.", "Process line heterogen. V-L"},
                                       kHomogeneous, region_));
    if (asksForRange())
        layout->addWidget(rangeFrame_ = buildOptions("Range", "fraTp", {"p range", "T range"},
                                                     task_.line.range_is_T, range_));
    layout->addWidget(buildFields());
    if (!isLine())
        layout->addWidget(buildOptions("Phase at the start", "fraPhase", {"L-Phase", "V-Phase"},
                                       onlyVapour() || task_.line.vapour ? kVapour : kLiquid,
                                       phase_));
    if (diagrams::may_be_metastable(kind_)) {
        metastable_ =
            form::named(new QCheckBox("&Metastable continuation beyond the coexistence curve"),
                        "chkMetastable");
        metastable_->setToolTip(
            "Off: isobars boil and condense at T(LV), isotherms at p(LV), and "
            "lines of constant s or h end at the coexistence curve.\n"
            "On: the phase of the start goes on; the line is named metastable.");
        metastable_->setChecked(task_.line.metastable);
        layout->addWidget(metastable_);
    }
    if (isPolytropic()) layout->addWidget(buildExponents());

    auto* start = new QHBoxLayout;
    estimate_ = form::button(qt(diagrams::texts_of_process(kind_).command), "cmdVScalc");
    estimate_->setToolTip(qt(diagrams::texts_of_process(kind_).command_tip));
    estimate_->setVisible(!estimate_->text().isEmpty());
    state_ = form::named(form::label(), "txtVSCalc");
    state_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    state_->setMinimumHeight(2 * state_->fontMetrics().lineSpacing());
    start->addWidget(estimate_);
    start->addWidget(state_, 1);
    layout->addLayout(start);

    layout->addStretch(1);
    auto* buttons = new QHBoxLayout;
    QPushButton* go =
        form::button(task_.purpose == Purpose::Calculation ? "C&alculate" : "&Draw", "cmdDraw");
    go->setDefault(true);
    QPushButton* close = form::button("&Cancel", "cmdClose");
    buttons->addStretch(1);
    buttons->addWidget(go);
    buttons->addWidget(close);
    layout->addLayout(buttons);

    connect(go, &QPushButton::clicked, this, &ProcessLineDialog::confirm);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(estimate_, &QPushButton::clicked, this, &ProcessLineDialog::tellStart);
    for (QButtonGroup* group : {region_, range_})
        if (group != nullptr) connect(group, &QButtonGroup::idClicked, this, [this] { follow(); });
    showStart();
    follow();
    par_[0]->isVisibleTo(this) ? par_[0]->setFocus() : par_[1]->setFocus();
}

const models::Scale& ProcessLineDialog::stateScale(int field) const {
    return task_.pen.basis.units.of(field % 2 == 0 ? models::Dimension::temperature
                                                   : models::Dimension::pressure);
}

double ProcessLineDialog::numberIn(int field) const {
    const double typed = gui::numberIn(par_[field]);
    return isLine() ? typed : stateScale(field).value(typed);
}

void ProcessLineDialog::show(int field, double value) {
    par_[field]->setValue(stateScale(field).shown(value));
}

void ProcessLineDialog::makeQuantity(int field) {
    const models::Fluid& fluid = task_.pen.basis.fluid;
    if (!isLine()) {
        const bool isT = field % 2 == 0;
        par_[field]->setQuantity(isT ? models::Dimension::temperature : models::Dimension::pressure,
                                 stateScale(field), fluid);
    } else if (const auto& axis = field % 2 == 0 ? task_.x : task_.y) {
        par_[field]->setQuantity(axis->dimension, axis->scale, fluid);
    }
}

bool ProcessLineDialog::isLine() const {
    return kind_ == Kind::straightLine;
}

bool ProcessLineDialog::onlyVapour() const {
    return task_.pen.basis.fluid.models().vapour_only;
}

bool ProcessLineDialog::isPolytropic() const {
    return kind_ == Kind::polytropic;
}

bool ProcessLineDialog::mayBeHeterogeneous() const {
    const bool held =
        kind_ == Kind::isochore || kind_ == Kind::isentropic || kind_ == Kind::isenthalpic;
    return held && !onlyVapour();
}

/// An isotherm runs over p and an isobar over T; a straight line has its own ends.
bool ProcessLineDialog::asksForRange() const {
    return kind_ >= Kind::isochore && kind_ <= Kind::polytropic;
}

bool ProcessLineDialog::chosen(const QButtonGroup* group, int index) const {
    return group != nullptr && group->checkedId() == index;
}

QString ProcessLineDialog::stateCaption(int field) const {
    static constexpr const char* kStates[] = {" T1/ K = ", "p1/kPa = ", " T2/ K = ", "p2/kPa = "};
    const models::Dimension quantity =
        field % 2 == 0 ? models::Dimension::temperature : models::Dimension::pressure;
    if (!task_.pen.basis.units.has_own(quantity)) return kStates[field];
    return QString("%1%2/%3 = ")
        .arg(field % 2 == 0 ? "T" : "p")
        .arg(field / 2 + 1)
        .arg(qt(models::pretty_unit(stateScale(field).name)));
}

QWidget* ProcessLineDialog::buildFields() {
    static constexpr const char* kEnds[] = {"x1 = ", "y1 = ", "x2 = ", "y2 = "};
    auto* frame = form::frame(isLine() ? "Ends" : "Initial and final state", "fraPar");
    auto* grid = form::grid(frame);
    for (int i = 0; i < 4; ++i) {
        par_[i] = form::named(new NumberEdit, QString("par_%1").arg(i));
        parCaption_[i] = form::caption(isLine() ? kEnds[i] : stateCaption(i), par_[i]);
        makeQuantity(i);
        grid->addWidget(parCaption_[i], i / 2, 2 * (i % 2));
        grid->addWidget(par_[i], i / 2, 2 * (i % 2) + 1);
        connect(par_[i], &QLineEdit::textEdited, this, [this] { state_->clear(); });
    }
    if (isPolytropic())
        connect(par_[0], &QLineEdit::textChanged, this, &ProcessLineDialog::offerKappa);
    continue_ = form::named(new QCheckBox("Specif. for initial point = final point of last curve"),
                            "chkEndToBegin");
    continue_->setToolTip("... useful for continuated curves, e. g. for cyclic processes ");
    continue_->setEnabled(task_.line.last.T > 0 && task_.line.last.p > 0);
    continue_->setVisible(!isLine());
    connect(continue_, &QCheckBox::toggled, this, &ProcessLineDialog::continueLast);
    grid->addWidget(continue_, 2, 0, 1, 4);
    return frame;
}

QGroupBox* ProcessLineDialog::buildOptions(const QString& title, const QString& name,
                                           const QStringList& captions, int chosenIndex,
                                           QButtonGroup*& group) {
    QGroupBox* frame = form::frame(title, name);
    auto* line = new QHBoxLayout(frame);
    line->setSpacing(theme::kGroupGap);
    group = new QButtonGroup(this);
    for (int i = 0; i < captions.size(); ++i) {
        auto* option = form::named(new QRadioButton(captions[i]),
                                   QString("opt%1_%2").arg(QString(name).remove(0, 3)).arg(i));
        option->setChecked(i == chosenIndex);
        group->addButton(option, i);
        line->addWidget(option);
    }
    line->addStretch(1);
    return frame;
}

QGroupBox* ProcessLineDialog::buildExponents() {
    QGroupBox* frame = form::frame("Exponents", "fraExponents");
    auto* grid = form::grid(frame);
    kappa_ = form::named(new QComboBox, "cmbKappa");
    kappa_->setEditable(true);
    kappa_->setInsertPolicy(QComboBox::NoInsert);
    if (task_.line.kappa > 0) kappa_->setEditText(qt(numbers::general(task_.line.kappa)));
    exponent_ = form::named(new NumberEdit, "txtExponent");
    exponent_->setValue(task_.line.polytropic_exponent);
    form::addRow(grid, 0, "kappa = cp/cV =", kappa_);
    form::addRow(grid, 1, "polytropic exponent =", exponent_);
    connect(kappa_, &QComboBox::activated, this, [this](int index) {
        kappa_->setEditText(qt(numbers::general(kappa_->itemData(index).toDouble())));
    });
    return frame;
}

/// What the fields begin with: the last input, else the state of the diagram and its range.
void ProcessLineDialog::showStart() {
    const diagrams::ProcessLine& r = task_.line;
    if (isLine()) {
        const float ends[] = {r.x1, r.y1, r.x2, r.y2};
        for (int i = 0; i < 4; ++i) par_[i]->setValue(static_cast<double>(ends[i]));
        return;
    }
    show(0, r.T1 > 0 ? r.T1 : task_.at.T);
    show(1, r.p1 > 0 ? r.p1 : task_.at.p);
    if (r.range_end > 0) show(r.range_is_T ? 2 : 3, r.range_end);
    if (isPolytropic()) offerKappa();
}

/// The offers belong to the temperature of the start.
void ProcessLineDialog::offerKappa() {
    if (kappa_ == nullptr) return;
    const QString typed = kappa_->currentText();
    kappa_->clear();
    for (const diagrams::KappaOffer& offer :
         diagrams::kappa_offers(task_.pen.basis, stateScale(0).value(par_[0]->value())))
        if (offer.value > 0) kappa_->addItem(qt(offer.text), offer.value);
    kappa_->setCurrentIndex(-1);
    kappa_->setEditText(typed);
}

void ProcessLineDialog::follow() {
    const bool heterogeneous = chosen(region_, kHeterogeneous);
    const bool overT = kind_ == Kind::isobar || chosen(range_, kTRange);
    const diagrams::ProcessTexts& texts = diagrams::texts_of_process(kind_);
    title_->setText(task_.purpose == Purpose::Calculation
                        ? QString("Calculation of a Polytropic Process")
                    : heterogeneous ? qt(texts.heterogeneous_title)
                                    : qt(texts.title));
    // Between the phases T fixes p; the end of the range is T or p alone.
    const bool shown[] = {isLine() || !heterogeneous || overT, isLine() || !heterogeneous || !overT,
                          isLine() || overT, isLine() || !overT};
    for (int i = 0; i < 4; ++i) {
        par_[i]->setVisible(shown[i]);
        parCaption_[i]->setVisible(shown[i]);
    }
    if (phase_ != nullptr) {
        phase_->button(kLiquid)->setText(heterogeneous ? "L saturation" : "L-Phase");
        phase_->button(kVapour)->setText(heterogeneous ? "V saturation" : "V-Phase");
        phase_->button(kLiquid)->setEnabled(!onlyVapour());
    }
    if (metastable_ != nullptr) metastable_->setEnabled(!heterogeneous && !onlyVapour());
    estimate_->setEnabled(!heterogeneous);
    state_->clear();
}

void ProcessLineDialog::continueLast(bool on) {
    const diagrams::ProcessInput last = diagrams::continued_from(task_.line, input());
    for (int i = 0; i < 2; ++i) {
        if (on) show(i, last.par[static_cast<std::size_t>(i)]);
        par_[i]->setReadOnly(on);
    }
    if (isPolytropic()) offerKappa();
    state_->clear();
}

diagrams::ProcessInput ProcessLineDialog::input() const {
    diagrams::ProcessInput in;
    in.kind = kind_;
    for (std::size_t i = 0; i < 4; ++i) in.par[i] = numberIn(static_cast<int>(i));
    in.range_is_T = kind_ == Kind::isobar || chosen(range_, kTRange);
    in.vapour = !chosen(phase_, kLiquid);
    in.heterogeneous = chosen(region_, kHeterogeneous);
    in.metastable = metastable_ != nullptr && metastable_->isChecked() && !in.heterogeneous;
    in.ideal_gas_equation = chosen(eos_, kIdealGas);
    in.end_to_begin = continue_->isChecked();
    if (isPolytropic()) {
        in.kappa = numbers::typed_number(kappa_->currentText().toStdString()).value_or(0);
        in.exponent = gui::numberIn(exponent_);
    }
    // The fields show fewer digits than the last point has.
    return in.end_to_begin ? diagrams::continued_from(task_.line, in) : in;
}

void ProcessLineDialog::tellStart() {
    const diagrams::ProcessInput in = input();
    if (!(in.par[0] > 0) || !(in.par[1] > 0)) {
        dialogs::tell("Input incomplete or not valid", dialogs::kNotPossible);
        return;
    }
    state_->setText(qt(diagrams::start_state_text(task_.pen.basis, kind_, in.par[0], in.par[1])));
}

Result<diagrams::ProcessLine, diagrams::PolytropicFailure> ProcessLineDialog::askProgram() {
    diagrams::PolytropicRunner runner = runner_;
    runner.patience.pass = dialogs::patience(diagrams::kPolytropicProgram, runner_.patience.limit);
    const Places& places = task_.places;
    const std::string name = diagrams::kPolytropicProgram;
    return diagrams::run_polytrope(
        task_.pen.basis, {task_.diagram, task_.line, task_.pen.options, task_.separator},
        {places.file_exists(name) ? places.find_file(name) : std::filesystem::path(),
         places.write_folder()},
        runner);
}

bool ProcessLineDialog::runProgram() {
    // A line can be drawn by the equation of state instead; who draws it says so.
    if (task_.purpose == Purpose::Line && !task_.places.file_exists(diagrams::kPolytropicProgram)) {
        task_.line.polytropic_points.clear();
        return true;
    }
    using enum diagrams::PolytropicFailure;
    auto answer = askProgram();
    if (answer) {
        task_.line = std::move(*answer);
        return true;
    }
    task_.line.polytropic_points.clear();
    switch (answer.failure()) {
        case missingProgram:  // told
        case notWritten:      // told
            return false;
        case givenUp:
            state_->setText("given up");
            return false;
        default:
            dialogs::tell(diagrams::polytropic_error_text(task_.line.T1, task_.line.p1),
                          dialogs::kNotPossible);
            return false;
    }
}

void ProcessLineDialog::confirm() {
    const diagrams::ProcessInput in = input();
    if (isPolytropic() && !std::isfinite(in.exponent)) {
        dialogs::tell("Input incomplete or not valid", dialogs::kNotPossible);
        return;
    }
    const models::Fluid& fluid = task_.pen.basis.fluid;
    diagrams::ProcessAnswer answer = diagrams::take_process_input(task_.line, fluid, in);
    if (!answer.refusal.empty()) {
        dialogs::tell(answer.refusal, dialogs::kNotPossible);
        return;
    }
    task_.line = std::move(answer.line);
    if (isPolytropic()) {
        state_->setText(qt(diagrams::phase_text(fluid, task_.line.T1, task_.line.p1)));
        if (!runProgram()) return;
    }
    draw_(task_.line);
    accept();
}

}  // namespace quor::gui
