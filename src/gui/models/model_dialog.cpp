#include "gui/models/model_dialog.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include "gui/models/manual_virial_dialog.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/model_codes.h"

namespace quor::gui {

namespace {

constexpr int kListCharacters = 38;

QComboBox* list(const QString& name) {
    auto* box = form::named(new QComboBox, name);
    box->setMinimumContentsLength(kListCharacters);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMaxVisibleItems(20);
    return box;
}

template <class Model>
void fill(QComboBox* box, const models::ModelEntries<Model>& entries, std::size_t index) {
    const QSignalBlocker quiet(box);
    box->clear();
    for (const auto& entry : entries) box->addItem(qt(entry.text), models::code_of(entry.model));
    box->setCurrentIndex(static_cast<int>(index));
}

}  // namespace

ModelDialog::ModelDialog(Desk& desk, const models::SubstanceRecord& substance,
                         const models::ModelSelection& present, Session session, QWidget* parent)
    : QDialog(parent), desk_(desk), choice_(substance, present), session_(std::move(session)) {
    setObjectName("frmQModell");
    build();
    arrange();
    connectLists();
    showSubstance();
    follow();
    eos_->setFocus();
}

void ModelDialog::build() {
    eos_ = list("EOSKombi");
    vp_ = list("pKombi");
    hlv_ = list("HLVKombi");
    cp_ = list("cpKombi");
    watson_ = form::named(new QComboBox, "WatsonKombi");
    watson_->setEditable(true);
    watson_->setInsertPolicy(QComboBox::NoInsert);
    for (const std::string& exponent : choice_.watson()) watson_->addItem(qt(exponent));
    watson_->setEditText(qt(choice_.watson_text()));
    watsonCaption_ = form::caption("&WATSON-exponent:", watson_);
    watsonCaption_->setObjectName("lblWatson");

    fillLists();

    priorityFrame_ = form::frame("Vapour Pressure P(LV) or Boiling Temperature T(LV)", "fraPrior");
    priority_[0] = form::named(new QRadioButton("cu&bic equation of state (CEOS)"), "PriorOpt_0");
    priority_[1] = form::named(new QRadioButton("Va&pour pressure equation"), "PriorOpt_1");
}

void ModelDialog::arrange() {
    auto* grid = form::grid();
    grid->setContentsMargins({});
    const auto row = [&](int n, const QString& caption, QWidget* field, const QString& help,
                         const QString& about) {
        form::addRow(grid, n, caption, field);
        QToolButton* button = form::helpButton(help, about);
        grid->addWidget(button, n, 2);
        return button;
    };
    QToolButton* eosHelp = row(0, "&Equation of State", eos_, "EOSHilfe", "equation of state");
    coefficients_ = form::button("Coe&fficients ...", "cmdCoefficients");
    coefficients_->setToolTip("b0, b1 and b2 of B = b0 - b1/T^b2");
    connect(coefficients_, &QPushButton::clicked, this, &ModelDialog::askManualVirial);
    grid->addWidget(coefficients_, 0, 3);
    QToolButton* vpHelp =
        row(1, "&Vapour pressure equation", vp_, "pHilfe", "vapour pressure equation");
    QToolButton* hlvHelp =
        row(2, "Enthalpy of vapori&zation", hlv_, "HLVHilfe", "enthalpy of vaporization");
    grid->addWidget(watsonCaption_, 3, 0);
    grid->addWidget(watson_, 3, 1, Qt::AlignLeft);
    QToolButton* cpHelp =
        row(4, "&Ideal-gas heat capacity", cp_, "cpHilfe", "ideal-gas heat capacity");
    densityState_ = form::named(form::label(), "Rx1");
    densityRange_ = form::named(form::label(), "Rx2");
    QToolButton* rhoHelp =
        row(5, "L-Density = F(T) ", densityState_, "RhoLHilfe", "liquid density");
    grid->addWidget(densityRange_, 6, 1);
    grid->setColumnStretch(1, 1);

    QToolButton* priorityHelp = form::helpButton("PriorHilfe", "priority");
    auto* options = new QVBoxLayout;
    options->setSpacing(theme::kGap);
    options->addWidget(form::label("Calculated by means of"));
    options->addWidget(priority_[0]);
    options->addWidget(priority_[1]);
    auto* inFrame = new QHBoxLayout(priorityFrame_);
    inFrame->addLayout(options, 1);
    inFrame->addWidget(priorityHelp, 0, Qt::AlignTop);

    QPushButton* ok = form::button("Models &OK", "OKModell");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &ModelDialog::confirm);
    QPushButton* cancel = form::button("&Cancel", "cmdEsc");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    QPushButton* showData = form::button("Show Data", "cmdData");
    showData->setEnabled(session_.editData != nullptr);
    connect(showData, &QPushButton::clicked, this, &ModelDialog::editData);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(showData);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(grid);
    layout->addWidget(priorityFrame_);
    layout->addStretch(1);
    layout->addLayout(buttons);

    // The pages of the first three follow the model that is selected.
    const auto connectHelp = [this](QToolButton* button, const std::function<int()>& topic) {
        button->setEnabled(static_cast<bool>(desk_.doors.help));
        connect(button, &QToolButton::clicked, this, [this, topic] { desk_.showHelp(topic()); });
    };
    const auto selected = [this](int first, auto model) {
        return [this, first, model] { return first + models::code_of(choice_.models().*model); };
    };
    connectHelp(eosHelp, selected(help::kEquationsOfState, &models::ModelSelection::eos));
    connectHelp(vpHelp, selected(help::kVapourPressure, &models::ModelSelection::vapour_pressure));
    connectHelp(hlvHelp, selected(help::kVaporisation, &models::ModelSelection::vaporisation));
    connectHelp(cpHelp, [] { return help::kIdealGasCp; });
    connectHelp(rhoHelp, [] { return help::kLiquidDensity; });
    connectHelp(priorityHelp, [] { return help::kPriority; });
}

void ModelDialog::connectLists() {
    const auto index = [](int row) { return static_cast<std::size_t>(row); };
    connect(eos_, &QComboBox::currentIndexChanged, this, [this, index](int row) {
        if (row < 0) return;
        const bool manual = choice_.choose_eos(index(row));
        follow();
        if (manual) askManualVirial();
    });
    connect(vp_, &QComboBox::currentIndexChanged, this, [this, index](int row) {
        if (row >= 0) choice_.choose_vp(index(row));
    });
    connect(hlv_, &QComboBox::currentIndexChanged, this, [this, index](int row) {
        if (row < 0) return;
        choice_.choose_hlv(index(row));
        follow();
    });
    connect(cp_, &QComboBox::currentIndexChanged, this, [this, index](int row) {
        if (row >= 0) choice_.choose_cp(index(row));
    });
    connect(watson_, &QComboBox::editTextChanged, this,
            [this](const QString& typed) { choice_.set_watson(typed.toStdString()); });
    connect(priority_[0], &QRadioButton::toggled, this, [this](bool ceos) {
        if (choice_.priority_enabled()) choice_.set_priority_ceos(ceos);
    });
}

void ModelDialog::fillLists() {
    fill(eos_, choice_.eos(), choice_.eos_index());
    fill(vp_, choice_.vp(), choice_.vp_index());
    fill(hlv_, choice_.hlv(), choice_.hlv_index());
    fill(cp_, choice_.cp(), choice_.cp_index());
}

// What can be chosen follows the data as they stand after the editor.
void ModelDialog::editData() {
    choice_.renew(session_.editData());
    fillLists();
    const QSignalBlocker quiet(watson_);
    watson_->clear();
    for (const std::string& exponent : choice_.watson()) watson_->addItem(qt(exponent));
    watson_->setEditText(qt(choice_.watson_text()));
    showSubstance();
    follow();
}

void ModelDialog::showSubstance() {
    const models::DensityNote density = models::liquid_density_note(choice_.substance());
    densityState_->setText(qt(density.state));
    densityRange_->setText(qt(density.range));
    setWindowTitle(
        form::titleOf(" Select the calculation models for " + qt(choice_.substance().name)));
}

void ModelDialog::follow() {
    if (static_cast<std::size_t>(hlv_->count()) != choice_.hlv().size())
        fill(hlv_, choice_.hlv(), choice_.hlv_index());
    watsonCaption_->setVisible(choice_.watson_visible());
    watson_->setVisible(choice_.watson_visible());
    coefficients_->setVisible(choice_.models().eos == models::Eos::manualVirial);
    priorityFrame_->setEnabled(choice_.priority_enabled());
    const QSignalBlocker quiet0(priority_[0]), quiet1(priority_[1]);
    priority_[0]->setChecked(choice_.models().eos_has_priority);
    priority_[1]->setChecked(!choice_.models().eos_has_priority);
}

void ModelDialog::askManualVirial() {
    ManualVirialDialog input(choice_.models().manual_virial, this);
    if (desk_.openModal(input) == QDialog::Accepted)
        choice_.set_manual_virial(input.coefficients());
}

void ModelDialog::confirm() {
    if (session_.take(choice_)) accept();
}

}  // namespace quor::gui
