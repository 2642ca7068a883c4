#include "gui/calculation/iso_calculator_view.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <array>

#include "common/dialogs.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/unit_text.h"
#include "report/quantity_text.h"
#include "session/calculations.h"

namespace quor::gui {

namespace {

constexpr int kFunctionColumns = 2;
constexpr int kLiquid = 0, kVapour = 1;

// Captions of the functions, from index 1 on.
constexpr const char* kFunctions[] = {"Volume V",         "Enthalpy H",        "Entropy S",
                                      "Gibbs Function G", "Internal Energy U", "Helmholtz Fu. A",
                                      "Exergy E(H)",      "Exergy E(U)"};

// Units with superscripts, where they are of the user's choice.
QString pretty(const report::IsoCalculator& iso, const std::string& text) {
    return qt(report::has_own_units(iso.units()) ? models::pretty_unit(text) : text);
}

}  // namespace

IsoCalculatorView::IsoCalculatorView(Desk& desk, const calculation::ProcessPoint& start,
                                     std::function<void()> showResult, QWidget* parent)
    : ChildView(desk, "frmIsoCalc", parent),
      FollowsSession(desk.session()),
      showResult_(std::move(showResult)) {
    setWindowTitle("\"Iso-Calculator\"");
    setWindowIcon(theme::icon("calculate"));
    auto* options = new QHBoxLayout;
    options->setSpacing(theme::kGap);
    options->addWidget(buildPhase());
    options->addWidget(buildGiven(), 1);
    state_ = form::named(form::note(), "lblIsoState");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addWidget(buildFunctions());
    layout->addLayout(options);
    layout->addLayout(buildFields());
    layout->addWidget(state_);
    layout->addStretch(1);
    layout->addLayout(buildButtons());
    open(start);
}

void IsoCalculatorView::open(const calculation::ProcessPoint& start) {
    iso_ = session::open_iso_calculator(session_, start);
    function_->button(static_cast<int>(iso_.function))->setChecked(true);
    phase_->button(iso_.liquid ? kLiquid : kVapour)->setChecked(true);
    given_->button(static_cast<int>(iso_.given))->setChecked(true);
    follow();
    givenValue_->setFocus();
}

// What was typed is converted by its field; what the calculator itself has written is written anew.
void IsoCalculatorView::followUnits() {
    const models::UnitChoice present = session::unit_choice(session_.state());
    if (iso_.units().choice == present) return;
    struct Field {
        NumberEdit* edit;
        std::string* text;
        std::string before = *text;
        bool untouched = edit->text() == qt(before);
    };
    std::array fields = {Field{constant_, &iso_.constant_text},
                         Field{givenValue_, &iso_.given_text}};
    iso_.tell_in(present);
    setQuantities();
    for (const Field& field : fields)
        if (!field.untouched || *field.text == field.before)
            *field.text = field.edit->text().toStdString();
    follow();
}

void IsoCalculatorView::setQuantities() {
    const auto set = [&](NumberEdit* edit, models::Dimension dimension) {
        edit->setQuantity(dimension, iso_.units().of(dimension), iso_.last().made.fluid);
    };
    set(constant_, report::iso_dimension(iso_.function));
    set(givenValue_, iso_.given_dimension());
}

void IsoCalculatorView::followSession() {
    followUnits();
    if (session::is_out_of_date(session_, iso_.last())) open({iso_.last_T(), iso_.last_p()});
}

QGroupBox* IsoCalculatorView::buildFunctions() {
    auto* frame = form::frame("constant function", "fraIsoFu");
    auto* grid = new QGridLayout(frame);
    grid->setSpacing(theme::kGap);
    function_ = new QButtonGroup(this);
    constexpr int kRows = static_cast<int>(std::size(kFunctions)) / kFunctionColumns;
    for (int i = 0; i < static_cast<int>(std::size(kFunctions)); ++i) {
        auto* option =
            form::named(new QRadioButton(kFunctions[i]), QString("OptIsoFu_%1").arg(i + 1));
        function_->addButton(option, i + 1);
        grid->addWidget(option, i % kRows, i / kRows);
    }
    connect(function_, &QButtonGroup::idClicked, this, [this](int index) {
        const auto function = static_cast<calculation::IsoFunction>(index);
        iso_.choose_function(function);
        session_.change()->calculation.iso_function = function;
        follow();
    });
    return frame;
}

QGroupBox* IsoCalculatorView::buildPhase() {
    auto* frame = form::frame("phase", "fraIsoPhase");
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(theme::kGroupGap);
    phase_ = new QButtonGroup(this);
    for (const auto& [index, caption] : {std::pair{kLiquid, "L-Phase"}, {kVapour, "V-Phase"}}) {
        auto* option = form::named(new QRadioButton(caption), QString("optIsoPhase_%1").arg(index));
        phase_->addButton(option, index);
        row->addWidget(option);
    }
    connect(phase_, &QButtonGroup::idClicked, this, [this](int index) {
        iso_.choose_phase(index == kLiquid);
        follow();
    });
    return frame;
}

QGroupBox* IsoCalculatorView::buildGiven() {
    auto* frame = form::frame("specified", "fraIsoTp");
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(theme::kGroupGap);
    given_ = new QButtonGroup(this);
    for (const auto& [given, caption] : {std::pair{calculation::IsoGiven::T, "T  (p sought)"},
                                         {calculation::IsoGiven::p, "p  (T sought)"}}) {
        const int index = static_cast<int>(given);
        auto* option = form::named(new QRadioButton(caption), QString("optIsoTp_%1").arg(index));
        given_->addButton(option, index);
        row->addWidget(option);
    }
    connect(given_, &QButtonGroup::idClicked, this, [this](int index) {
        const auto given = static_cast<calculation::IsoGiven>(index);
        iso_.choose_given(given);
        session_.change()->calculation.iso_given = given;
        follow();
    });
    return frame;
}

QLayout* IsoCalculatorView::buildFields() {
    constant_ = form::named(new NumberEdit, "txtFuConst");
    constant_->setToolTip(" manual input possible; for unit see \"Options\" ");
    givenValue_ = form::named(new NumberEdit, "txtTpVorgabe");
    sought_ = form::named(new QLineEdit, "txtTpCalc");
    sought_->setReadOnly(true);
    sought_->setAlignment(Qt::AlignRight);
    auto* grid = form::grid();
    grid->setContentsMargins({});
    const auto row = [&](int n, const QString& name, QWidget* field) {
        auto* label = form::named(form::caption({}, field), name);
        label->setFont(theme::fixedPitch());
        grid->addWidget(label, n, 0);
        grid->addWidget(field, n, 1);
        return label;
    };
    constantLabel_ = row(0, "lblFuConst", constant_);
    givenLabel_ = row(1, "lblTpVorgabe", givenValue_);
    soughtLabel_ = row(2, "lblTpCalc", sought_);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* IsoCalculatorView::buildButtons() {
    QPushButton* calc = form::button("Calculate", "cmdCalc");
    connect(calc, &QPushButton::clicked, this, &IsoCalculatorView::calculate);
    setDefaultButton(calc);
    QPushButton* reset = form::button("Reset Last", "cmdReset");
    reset->setToolTip(" Reset to last successful calculation ");
    connect(reset, &QPushButton::clicked, this, &IsoCalculatorView::reset);
    QPushButton* curve = form::button("Curve input", "cmdShowManuInput");
    curve->setEnabled(static_cast<bool>(desk_.doors.editXy));
    connect(curve, &QPushButton::clicked, this, [this] { desk_.doors.editXy(); });
    QPushButton* page = form::button("Help", "cmdIsoHelp");
    desk_.connectHelp(page, help::kIsoCalculator);
    QPushButton* print = printButton([this] {
        dialogs::print_out({.title = windowTitle().toStdString(),
                            .text = report::head_as_text(iso_.last().report) + '\n' +
                                    form::textOf(this).toStdString()});
    });
    QPushButton* close = form::button("Close", "cmdEsc");
    connect(close, &QPushButton::clicked, this, &ChildView::closeView);

    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGap);
    for (QPushButton* one : {curve, print, page}) row->addWidget(one);
    row->addStretch(1);
    for (QPushButton* one : {calc, reset, close}) row->addWidget(one);
    return row;
}

void IsoCalculatorView::follow() {
    setQuantities();
    constantLabel_->setText(pretty(iso_, iso_.constant_label));
    constant_->setText(qt(iso_.constant_text));
    givenLabel_->setText(pretty(iso_, iso_.given_label));
    givenValue_->setText(qt(iso_.given_text));
    soughtLabel_->setText(pretty(iso_, iso_.sought_label));
    sought_->setText(qt(iso_.sought_text));
    state_->setText(pretty(iso_, iso_.state_text()));
}

void IsoCalculatorView::calculate() {
    if (markWrongNumber(std::array{constant_, givenValue_}, false)) return;
    const session::BusyPointer busy(session_);
    if (iso_.calculate(constant_->numberText(), givenValue_->numberText())) showState();
    follow();
}

void IsoCalculatorView::reset() {
    if (iso_.reset()) showState();
    follow();
}

void IsoCalculatorView::showState() {
    session::take_iso_result(session_, iso_);
    showResult_();
}

}  // namespace quor::gui
