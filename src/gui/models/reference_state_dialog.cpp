#include "gui/models/reference_state_dialog.h"

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
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

using models::ReferenceOption;

// The factor of the present substance: that of the session is as old as the last calculation.
double presentFactor(const session::SessionState& session) {
    try {
        return models::caloric_factor(session.caloric_unit, session.diagram_at.T,
                                      session.substance);
    } catch (const faults::Fault&) {
        return session.caloric_factor;
    }
}

// The first option names the quantities in the unit of the session.
QString valuesCaption(const models::ReferenceCaptions& c) {
    return qt(c.h).trimmed() + " and " + qt(c.s).trimmed() + " of the ideal gas at To, po as below";
}

}  // namespace

ReferenceStateDialog::ReferenceStateDialog(Desk& desk, QWidget* parent)
    : QDialog(parent), desk_(desk), factor_(presentFactor(desk.session().state())) {
    setObjectName("frmReferenz");
    setWindowTitle(" Calculation of Thermodynamic Functions Z");
    arrange();
    const models::ReferenceState& reference = desk.session()->reference;
    const ReferenceOption present = models::reference_option_of(reference.mode);
    options_->button(static_cast<int>(present))->setChecked(true);
    fill(models::fields_of(reference, factor_));
    enable(present);
}

QLayout* ReferenceStateDialog::buildOptions() {
    options_ = new QButtonGroup(this);
    auto* column = new QVBoxLayout;
    column->setSpacing(theme::kGap);
    const std::array<QString, 3> texts = {
        valuesCaption(models::captions_of(desk_.session()->caloric_unit)),
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

QLayout* ReferenceStateDialog::buildFields() {
    const models::ReferenceCaptions c = models::captions_of(desk_.session()->caloric_unit);
    const std::array<QString, models::kReferenceFields> names = {qt(c.h),  qt(c.s), "To/K",
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
    row->addWidget(group("Reference state", "fraReference", models::FieldH, models::FieldP0), 1);
    row->addWidget(
        group("Surroundings (exergies)", "fraSurroundings", models::FieldTenv, models::FieldPenv),
        1);
    return row;
}

void ReferenceStateDialog::arrange() {
    QPushButton* ok = form::button("OK", "OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &ReferenceStateDialog::confirm);
    QPushButton* escape = form::button("Cancel", "ESC");
    connect(escape, &QPushButton::clicked, this, &QDialog::reject);
    QPushButton* page = form::button("Help", "cmdReferenzHelp");
    desk_.connectHelp(page, help::kReferenceState);
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

void ReferenceStateDialog::fill(const models::ReferenceFields& fields) {
    filled_ = fields;
    for (std::size_t i = 0; i < fields_.size(); ++i) fields_[i]->setValue(fields[i]);
}

models::ReferenceOption ReferenceStateDialog::option() const {
    return static_cast<ReferenceOption>(options_->checkedId());
}

models::ReferenceFields ReferenceStateDialog::typed() const {
    models::ReferenceFields values;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        values[i] = fields_[i]->isModified() ? fields_[i]->value() : filled_[i];
    return values;
}

void ReferenceStateDialog::choose(ReferenceOption chosen) {
    if (chosen == ReferenceOption::Formation) fill(models::after_choice(chosen, typed()));
    enable(chosen);
}

void ReferenceStateDialog::enable(ReferenceOption chosen) {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->setEnabled(models::is_editable(chosen, static_cast<models::ReferenceField>(i)));
}

void ReferenceStateDialog::confirm() {
    if (markWrongNumber(fields_)) return;
    models::ReferenceState reference = desk_.session()->reference;
    if (!models::store_reference(option(), typed(), factor_, reference)) {
        dialogs::tell("A number is beyond the range of its field.", dialogs::kNotPossible);
        return;
    }
    desk_.session().change()->reference = reference;
    accept();
}

}  // namespace quor::gui
