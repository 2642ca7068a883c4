#include "gui/session/options_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include "gui/session/unit_sets.h"
#include "gui/session/units_dialog.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr int kSmallStep = 10, kLargeStep = 50;

QVBoxLayout* column(QWidget* box) {
    auto* layout = new QVBoxLayout(box);
    layout->setSpacing(theme::kGap);
    return layout;
}

QRadioButton* option(const QString& text, const QString& name, const QString& tip, bool on) {
    auto* button = form::named(new QRadioButton(text), name);
    button->setToolTip(tip);
    button->setChecked(on);
    return button;
}

QCheckBox* check(const QString& text, const QString& name, bool on) {
    auto* box = form::named(new QCheckBox(text), name);
    box->setChecked(on);
    return box;
}

}  // namespace

OptionsDialog::OptionsDialog(Desk& desk, QWidget* parent)
    : QDialog(parent),
      desk_(desk),
      opened_(session::open_options(desk.session())),
      units_(opened_.units) {
    setObjectName("frmOptions");
    setWindowTitle("   Options");

    QPushButton* ok = form::button("OK", "cmdOK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &OptionsDialog::apply);
    QPushButton* cancel = form::button("Cancel", "cmdClose");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* upper = new QHBoxLayout;
    upper->setSpacing(theme::kGroupGap);
    upper->addWidget(modeFrame());
    upper->addWidget(unitFrame());
    upper->addWidget(referenceFrame());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(upper);
    layout->addWidget(curveFrame());
    layout->addWidget(resolutionFrame());
    layout->addStretch(1);
    layout->addLayout(buttons);
}

QWidget* OptionsDialog::modeFrame() {
    QGroupBox* box = form::frame("Mode of calculation", "fraMode");
    mode_[0] = option("&direct calculation", "OptCalcMode_0",
                      " Single input T, p, ... => calculation ", !opened_.batch);
    mode_[1] = option("&batch calculation", "OptCalcMode_1",
                      " processing of a \"batch list\" with specificated values T, p, ...; input "
                      "under \"Data / exper. data..\" ",
                      opened_.batch);
    QVBoxLayout* layout = column(box);
    layout->addWidget(mode_[0]);
    layout->addWidget(mode_[1]);
    layout->addWidget(form::note("(concerning only the menue \"Calculations\")"));
    layout->addStretch(1);
    return box;
}

QWidget* OptionsDialog::unitFrame() {
    QGroupBox* box = form::frame("Units", "fraUnits");
    unit_[0] = option("&molar quantities", "optMolarSpez_0", " e. g. kJ/kmol or m^3/kmol ", true);
    unit_[1] = option("&specific quantities", "optMolarSpez_1", " e. g. kJ/kg or m^3/kg ", false);
    QGroupBox* inner = form::frame("reduced quantities for T, p, V", "fraReduced");
    reduced_ = check("&reduced quantities z(red) = z/z(cr)", "chkReduziert", false);
    reduced_->setEnabled(opened_.reduced_possible);
    column(inner)->addWidget(reduced_);
    QVBoxLayout* layout = column(box);
    unitSet_ = form::named(new QComboBox, "cmbUnitSet");
    QPushButton* each = form::button("&Each quantity ...", "cmdUnits");
    for (QRadioButton* option : unit_)
        connect(option, &QRadioButton::clicked, this, &OptionsDialog::takeTold);
    connect(reduced_, &QCheckBox::clicked, this, &OptionsDialog::takeTold);
    connect(unitSet_, &QComboBox::currentIndexChanged, this, [this] {
        const int index = unitSet_->currentData().toInt();
        if (index >= 0) showUnits(unitSets()[static_cast<std::size_t>(index)].choice);
    });
    connect(each, &QPushButton::clicked, this, &OptionsDialog::chooseUnits);
    auto* sets = new QHBoxLayout;
    sets->setSpacing(theme::kGap);
    sets->addWidget(unitSet_, 1);
    sets->addWidget(each);
    layout->addLayout(sets);
    layout->addWidget(unit_[0]);
    layout->addWidget(unit_[1]);
    layout->addWidget(inner);
    showUnits(units_);
    return box;
}

// The options and the box show what the units are computed in.
void OptionsDialog::showUnits(const models::UnitChoice& units) {
    units_ = units;
    const bool specific = units.caloric == models::CaloricUnit::specific;
    unit_[specific ? 1 : 0]->setChecked(true);
    reduced_->setChecked(units.system == models::UnitSystem::reduced);
    fillUnitSets(unitSet_, units);
}

// Molar, specific and reduced quantities without units of their own.
void OptionsDialog::takeTold() {
    const bool specific = unit_[1]->isChecked();
    models::UnitChoice units;
    if (specific) units = {models::UnitSystem::specific, models::CaloricUnit::specific};
    if (reduced_->isEnabled() && reduced_->isChecked()) units.system = models::UnitSystem::reduced;
    showUnits(units);
}

void OptionsDialog::chooseUnits() {
    UnitsDialog dialog(units_, this);
    if (desk_.openModal(dialog) == QDialog::Accepted) showUnits(dialog.choice());
    // A set that was deleted in it may still stand in the box.
    showUnits(units_);
}

QWidget* OptionsDialog::referenceFrame() {
    QGroupBox* box = form::frame("Reference state for thermodynamic", "fraReference");
    QPushButton* view = form::button("&Viewing / Setting", "Command1");
    view->setEnabled(static_cast<bool>(desk_.doors.chooseReference));
    connect(view, &QPushButton::clicked, this, [this] { desk_.doors.chooseReference(); });
    QToolButton* help = form::helpButton("cmdReferenzHelp", "reference state");
    desk_.connectHelp(help, help::kReferenceState);
    auto* row = new QHBoxLayout;
    row->addWidget(view, 1);
    row->addWidget(help);
    QVBoxLayout* layout = column(box);
    layout->addWidget(form::label("functions"));
    layout->addLayout(row);
    layout->addStretch(1);
    return box;
}

QWidget* OptionsDialog::curveFrame() {
    QGroupBox* box = form::frame("Curves of diagrams", "fraCurves");
    realRange_ = check("draw real &range (T>T(trip) or p> p(trip) resp.)", "chkCurveTpRestricted",
                       opened_.real_range);
    QToolButton* help = form::helpButton("cmdRealBreichHelp", "draw real range");
    desk_.connectHelp(help, help::kRealRange);
    sCurve_ = check("for cubic EOS: at T < T(cr) only draw S-shaped curve &without tie line",
                    "chkSKurveOhneKonnode", opened_.s_without_tie_line);
    sCurve_->setEnabled(opened_.s_curve_possible);
    partialGas_ = check(
        "partial curve \"&gas phase\" z(T), isobaric or z(p), isothermal; i. e. draw only curve "
        "for T > T(LV) or p < p(LV) resp.",
        "chkPartialKurve", opened_.partial_gas);
    partialGas_->setToolTip(" active only for virial EOS ");
    auto* first = new QHBoxLayout;
    first->addWidget(realRange_, 1);
    first->addWidget(help);
    QVBoxLayout* layout = column(box);
    layout->addLayout(first);
    layout->addWidget(sCurve_);
    layout->addWidget(partialGas_);
    return box;
}

QWidget* OptionsDialog::resolutionFrame() {
    QGroupBox* box = form::frame("curve resolution", "fraResolution");
    points_ = form::named(new QSlider(Qt::Horizontal), "Slider1_punktdichte");
    points_->setRange(session::kMinPoints, session::kMaxPoints);
    points_->setSingleStep(kSmallStep);
    points_->setPageStep(kLargeStep);
    points_->setTickInterval(kLargeStep);
    points_->setTickPosition(QSlider::TicksBelow);
    points_->setValue(opened_.points);
    points_->setAccessibleName("points per curve");
    auto* value = form::named(form::label(QString::number(opened_.points)), "Label54");
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance("8888"));
    connect(points_, &QSlider::valueChanged, value, qOverload<int>(&QLabel::setNum));
    auto* row = new QHBoxLayout(box);
    row->setSpacing(theme::kGap);
    row->addWidget(form::named(form::label(QString::number(session::kMinPoints)), "lblSlideMin"));
    row->addWidget(points_, 1);
    row->addWidget(form::named(form::label(QString::number(session::kMaxPoints)), "lblSlideMax"));
    row->addSpacing(theme::kGroupGap);
    row->addWidget(value);
    row->addWidget(form::label("points per curve"));
    return box;
}

void OptionsDialog::apply() {
    session::OptionChoice c = opened_;
    c.batch = mode_[1]->isChecked();
    c.units = units_;
    c.real_range = realRange_->isChecked();
    c.s_without_tie_line = sCurve_->isChecked();
    c.partial_gas = partialGas_->isChecked();
    c.points = points_->value();
    if (!session::apply_options(desk_.session(), c)) return;
    desk_.refresh();
    accept();
}

}  // namespace quor::gui
