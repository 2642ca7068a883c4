#include "models/views/frmReferenz.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "common/faults.h"
#include "common/views/form.h"
#include "common/views/number_edit.h"
#include "common/views/theme.h"
#include "session/declare.h"
#include "session/help_topics.h"
#include "session/module2.h"
#include "session/views/shell.h"

namespace {

using thermo::ReferenceOption;

QString qt(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

thermo::ReferenceCaptions captions() {
    return thermo::CaptionsOf(Declare::session.CaloricUnit);
}

// The factor of the present substance: that of the session is as old as the last calculation.
double present_factor() {
    const Declare::Session& session = Declare::session;
    try {
        return Module2::CaloricFactorOf(session.CaloricUnit, session.DiagramT);
    } catch (const faults::Fault&) {
        return session.CaloricFactor;
    }
}

// The first option names the quantities in the unit of the session.
QString values_caption() {
    const thermo::ReferenceCaptions c = captions();
    return qt(c.h).trimmed() + " and " + qt(c.s).trimmed() + " of the ideal gas at To, po as below";
}

}  // namespace

frmReferenz::frmReferenz(QWidget* parent) : QDialog(parent), factor_(present_factor()) {
    setObjectName("frmReferenz");
    setWindowTitle(" Calculation of Thermodynamic Functions Z");
    arrange();
    const Declare::ReferenceState& reference = Declare::reference;
    const ReferenceOption present = thermo::ReferenceOptionOf(reference.RefMode);
    options_->button(static_cast<int>(present))->setChecked(true);
    fill(thermo::FieldsOf(reference, factor_));
    enable(present);
}

QLayout* frmReferenz::buildOptions() {
    options_ = new QButtonGroup(this);
    auto* column = new QVBoxLayout;
    column->setSpacing(theme::kGap);
    const std::array<QString, 3> texts = {
        values_caption(),
        "Z(ref) = quantity of formation for ideal gas state at To=298.15 and normal pressure\n"
        "from elements in the stable state",
        "Conventional Reference State (cf. Help)"};
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
        auto* option = form::named(new QRadioButton(texts[static_cast<std::size_t>(i)]),
                                   QString("opt_HNull_%1").arg(i));
        options_->addButton(option, i);
        column->addWidget(option);
    }
    connect(options_, &QButtonGroup::idClicked, this,
            [this](int index) { choose(static_cast<ReferenceOption>(index)); });
    return column;
}

QLayout* frmReferenz::buildFields() {
    const thermo::ReferenceCaptions c = captions();
    const std::array<QString, thermo::kReferenceFields> names = {qt(c.h),  qt(c.s), "To/K",
                                                                 "po/kPa", "T/K",   "p/kPa"};
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i] = form::named(new NumberEdit, QString("T_%1").arg(i));
    const auto group = [&](const QString& title, const QString& name, int first, int last) {
        auto* frame = form::frame(title, name);
        auto* grid = form::grid(frame);
        for (int i = first; i <= last; ++i) {
            const auto n = static_cast<std::size_t>(i);
            auto* label =
                form::named(form::caption(names[n], fields_[n]), QString("lblT_%1").arg(i));
            grid->addWidget(label, i - first, 0);
            grid->addWidget(fields_[n], i - first, 1);
        }
        grid->setColumnStretch(1, 1);
        grid->setRowStretch(last - first + 1, 1);
        return frame;
    };
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGap);
    row->addWidget(group("Reference state", "fraReference", thermo::FieldH, thermo::FieldP0), 1);
    row->addWidget(
        group("Surroundings (exergies)", "fraSurroundings", thermo::FieldTenv, thermo::FieldPenv),
        1);
    return row;
}

void frmReferenz::arrange() {
    QPushButton* ok = form::button("OK", "OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &frmReferenz::confirm);
    QPushButton* escape = form::button("Cancel", "ESC");
    connect(escape, &QPushButton::clicked, this, &QDialog::reject);
    QPushButton* page = form::button("Help", "cmdReferenzHelp");
    shell::ConnectHelp(page, help::kReferenceState);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(page);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(escape);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(buildOptions());
    layout->addLayout(buildFields());
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void frmReferenz::fill(const thermo::ReferenceFields& fields) {
    filled_ = fields;
    for (std::size_t i = 0; i < fields_.size(); ++i) fields_[i]->setValue(fields[i]);
}

thermo::ReferenceOption frmReferenz::option() const {
    return static_cast<ReferenceOption>(options_->checkedId());
}

thermo::ReferenceFields frmReferenz::typed() const {
    thermo::ReferenceFields values;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        values[i] = fields_[i]->isModified() ? fields_[i]->value() : filled_[i];
    return values;
}

void frmReferenz::choose(ReferenceOption chosen) {
    if (chosen == ReferenceOption::Formation) fill(thermo::AfterChoice(chosen, typed()));
    enable(chosen);
}

void frmReferenz::enable(ReferenceOption chosen) {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->setEnabled(thermo::IsEditable(chosen, static_cast<thermo::ReferenceField>(i)));
}

void frmReferenz::confirm() {
    if (MarkWrongNumber(fields_)) return;
    if (!thermo::StoreReference(option(), typed(), factor_, Declare::reference)) {
        dialogs::Tell("A number is beyond the range of its field.", "Execution not possible");
        return;
    }
    accept();
}
