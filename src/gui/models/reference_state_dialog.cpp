#include "gui/models/reference_state_dialog.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/named_reference.h"
#include "models/unit_text.h"

namespace quor::gui {

namespace {

using models::NamedState;
using models::ReferenceOption;

// The named states stand behind the three options of the ideal gas.
int idOf(NamedState state) {
    return static_cast<int>(ReferenceOption::Conventional) + static_cast<int>(state);
}

using models::Dimension;

// What the fields hold, in their order.
constexpr std::array<Dimension, models::kReferenceFields> kFields = {
    Dimension::energy,   Dimension::entropy,     Dimension::temperature,
    Dimension::pressure, Dimension::temperature, Dimension::pressure};
constexpr std::array<Dimension, 4> kOwnFields = {Dimension::temperature, Dimension::pressure,
                                                 Dimension::energy, Dimension::entropy};

// A caption as it was always written, or with the unit that was chosen.
QString captionOf(const models::Units& units, Dimension dimension, const QString& symbol,
                  const QString& told) {
    if (!units.has_own(dimension)) return told;
    const QString unit = qt(models::pretty_unit(units.of(dimension).name));
    return symbol + (unit.contains('/') ? " /(" + unit + ")" : " /" + unit);
}

QString captionOfH(const models::Units& units) {
    return captionOf(units, Dimension::energy, "h",
                     qt(models::captions_of(units.choice.caloric).h));
}

QString captionOfS(const models::Units& units) {
    return captionOf(units, Dimension::entropy, "s",
                     qt(models::captions_of(units.choice.caloric).s));
}

void showValue(NumberEdit* field, const models::Scale& scale, double value) {
    constexpr int kDigits = 12;  // without the dust of a conversion
    const bool plain = scale.zero == 0;
    if (plain)
        field->setValue(scale.shown(value));
    else
        field->setText(qt(numbers::general(scale.shown(value), kDigits)));
}

// States of the surroundings that are usual.
struct Surroundings {
    const char* name;
    double T, p;  // K, kPa
};
constexpr Surroundings kSurroundings[] = {{"25 degC, 1 atm", 298.15, 101.325},
                                          {"25 degC, 1 bar", 298.15, 100},
                                          {"20 degC, 1 atm", 293.15, 101.325},
                                          {"15 degC, 1 atm", 288.15, 101.325},
                                          {"15 degC, 1 bar", 288.15, 100}};

// The first option names the quantities in the unit of the session.
QString valuesCaption(const models::Units& units) {
    return captionOfH(units).trimmed() + " and " + captionOfS(units).trimmed() +
           " of the ideal gas at To, po as below";
}

}  // namespace

ReferenceStateDialog::ReferenceStateDialog(Desk& desk, QWidget* parent)
    : QDialog(parent), desk_(desk), units_(session::usable_units(desk.session())) {
    setObjectName("frmReferenz");
    setWindowTitle(" Calculation of Thermodynamic Functions Z");
    arrange();
    const models::ReferenceState& reference = desk.session()->reference;
    const int present = reference.named == NamedState::none
                            ? static_cast<int>(models::reference_option_of(reference.mode))
                            : idOf(reference.named);
    options_->button(present)->setChecked(true);
    fill(models::fields_of(reference, 1));
    const models::OwnState& own = reference.own;
    const std::array<double, 4> values = {own.T, own.p, own.h, own.s};
    for (std::size_t i = 0; i < own_.size(); ++i)
        showValue(own_[i], units_.of(kOwnFields[i]), values[i]);
    ownPhase_->setCurrentIndex(own.vapour ? 0 : 1);
    enable(present);
    followNamed();
}

QLayout* ReferenceStateDialog::buildOptions() {
    options_ = new QButtonGroup(this);
    auto* column = new QVBoxLayout;
    column->setSpacing(theme::kGap);
    const std::array<QString, 3> texts = {
        valuesCaption(units_),
        "Z(ref) = quantity of formation for ideal gas state at To=298.15 and normal pressure\n"
        "from elements in the stable state",
        "Conventional Reference State (cf. Help)"};
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
        auto* option = form::named(new QRadioButton(texts[static_cast<std::size_t>(i)]),
                                   QString("opt_HNull_%1").arg(i));
        options_->addButton(option, i);
        column->addWidget(option);
    }
    for (const models::NamedReference& state : models::named_references()) {
        const int id = idOf(state.state);
        auto* option = form::named(
            new QRadioButton(state.state == NamedState::own
                                 ? QString("Own state of the real fluid, as below")
                                 : qt(std::string(state.name) + ": " + std::string(state.text))),
            QString("opt_HNull_%1").arg(id));
        options_->addButton(option, id);
        column->addWidget(option);
    }
    note_ = form::named(form::label(), "lblReferenceNote");
    note_->setWordWrap(true);
    column->addWidget(note_);
    connect(options_, &QButtonGroup::idClicked, this, &ReferenceStateDialog::choose);
    return column;
}

QWidget* ReferenceStateDialog::buildOwnState() {
    const std::array<QString, 4> names = {captionOf(units_, Dimension::temperature, "T", "T/K"),
                                          captionOf(units_, Dimension::pressure, "p", "p/kPa"),
                                          captionOfH(units_), captionOfS(units_)};
    ownFrame_ = form::frame("Own state", "fraOwnState");
    auto* row = form::grid(ownFrame_);
    ownPhase_ = form::named(new QComboBox, "cmbOwnPhase");
    ownPhase_->addItems({"vapour", "liquid"});
    connect(ownPhase_, &QComboBox::currentIndexChanged, this, &ReferenceStateDialog::followNamed);
    int column = 0;
    for (std::size_t i = 0; i < own_.size(); ++i) {
        own_[i] = form::named(new NumberEdit, QString("Own_%1").arg(i));
        own_[i]->setQuantity(kOwnFields[i], units_.of(kOwnFields[i]), desk_.session().fluid());
        connect(own_[i], &QLineEdit::textEdited, this, &ReferenceStateDialog::followNamed);
        row->addWidget(form::caption(names[i], own_[i]), 0, column);
        row->addWidget(own_[i], 1, column++);
        if (i == 1) {
            row->addWidget(form::caption("phase", ownPhase_), 0, column);
            row->addWidget(ownPhase_, 1, column++);
        }
    }
    return ownFrame_;
}

QLayout* ReferenceStateDialog::buildFields() {
    const std::array<QString, models::kReferenceFields> names = {
        captionOfH(units_),
        captionOfS(units_),
        captionOf(units_, Dimension::temperature, "To", "To/K"),
        captionOf(units_, Dimension::pressure, "po", "po/kPa"),
        captionOf(units_, Dimension::temperature, "T", "T/K"),
        captionOf(units_, Dimension::pressure, "p", "p/kPa")};
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        fields_[i] = form::named(new NumberEdit, QString("T_%1").arg(i));
        fields_[i]->setQuantity(kFields[i], units_.of(kFields[i]), desk_.session().fluid());
    }
    const auto group = [&](const QString& title, const QString& name, int first, int last) {
        QGroupBox* frame = form::frame(title, name);
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
    QGroupBox* surroundings =
        group("Surroundings (exergies)", "fraSurroundings", models::FieldTenv, models::FieldPenv);
    static_cast<QGridLayout*>(surroundings->layout())
        ->addWidget(buildReadySurroundings(), models::FieldPenv, 1);
    row->addWidget(surroundings, 1);
    return row;
}

// A ready state fills the two fields above it.
QWidget* ReferenceStateDialog::buildReadySurroundings() {
    ready_ = form::named(new QComboBox, "cmbSurroundings");
    ready_->setAccessibleName("usual surroundings");
    ready_->addItem("usual surroundings ...");
    for (const Surroundings& s : kSurroundings) ready_->addItem(qt(models::pretty_unit(s.name)));
    connect(ready_, &QComboBox::activated, this, [this](int index) {
        if (index < 1) return;
        const Surroundings& s = kSurroundings[index - 1];
        models::ReferenceFields fields = typed();
        fields[models::FieldTenv] = s.T;
        fields[models::FieldPenv] = s.p;
        fill(fields);
    });
    return ready_;
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
    layout->addWidget(buildOwnState());
    layout->addLayout(buildFields());
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void ReferenceStateDialog::fill(const models::ReferenceFields& fields) {
    filled_ = fields;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        showValue(fields_[i], units_.of(kFields[i]), fields[i]);
}

models::ReferenceOption ReferenceStateDialog::option() const {
    return named() == NamedState::none ? static_cast<ReferenceOption>(options_->checkedId())
                                       : ReferenceOption::Values;
}

models::NamedState ReferenceStateDialog::named() const {
    for (const models::NamedReference& state : models::named_references())
        if (idOf(state.state) == options_->checkedId()) return state.state;
    return NamedState::none;
}

models::OwnState ReferenceStateDialog::ownState() const {
    const auto value = [this](std::size_t i) {
        return units_.of(kOwnFields[i]).value(own_[i]->value());
    };
    return {.T = value(0),
            .p = value(1),
            .vapour = ownPhase_->currentIndex() == 0,
            .h = value(2),
            .s = value(3)};
}

models::ReferenceFields ReferenceStateDialog::typed() const {
    models::ReferenceFields values;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        values[i] = fields_[i]->isModified() ? units_.of(kFields[i]).value(fields_[i]->value())
                                             : filled_[i];
    return values;
}

void ReferenceStateDialog::choose(int id) {
    if (option() == ReferenceOption::Formation)
        fill(models::after_choice(ReferenceOption::Formation, typed()));
    enable(id);
    followNamed();
}

void ReferenceStateDialog::enable(int id) {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const auto field = static_cast<models::ReferenceField>(i);
        const bool surroundings = field == models::FieldTenv || field == models::FieldPenv;
        fields_[i]->setEnabled(named() == NamedState::none
                                   ? models::is_editable(static_cast<ReferenceOption>(id), field)
                                   : surroundings);
    }
    ownFrame_->setEnabled(named() == NamedState::own);
}

void ReferenceStateDialog::followNamed() {
    note_->clear();
    const std::optional<models::ReferenceState> reference = chosen();
    if (named() == NamedState::none || !desk_.session()->substance_set || !reference) return;
    const models::Fluid& fluid = desk_.session().fluid();
    const auto resolved = models::resolved_reference(fluid, *reference);
    if (resolved) return fill(models::fields_of(*resolved, 1));
    const models::NamedReference* const proposed =
        models::named_reference(models::proposed_reference(fluid));
    note_->setText(qt(resolved.reason() + (proposed == nullptr
                                               ? std::string()
                                               : " Possible: " + std::string(proposed->name) +
                                                     ", " + std::string(proposed->text) + ".")));
}

std::optional<models::ReferenceState> ReferenceStateDialog::chosen() const {
    models::ReferenceState reference = desk_.session()->reference;
    if (!models::store_reference(option(), typed(), 1, reference)) return std::nullopt;
    reference.named = named();
    reference.own = ownState();
    return reference;
}

void ReferenceStateDialog::confirm() {
    if (markWrongNumber(fields_)) return;
    if (named() == NamedState::own && markWrongNumber(own_)) return;
    const std::optional<models::ReferenceState> reference = chosen();
    if (!reference) {
        dialogs::tell("A number is beyond the range of its field.", dialogs::kNotPossible);
        return;
    }
    if (desk_.session()->substance_set) {
        const auto resolved = models::resolved_reference(desk_.session().fluid(), *reference);
        if (!resolved) {
            dialogs::tell(resolved.reason(), dialogs::kNotPossible);
            return;
        }
    }
    desk_.session().change()->reference = *reference;
    accept();
}

}  // namespace quor::gui
