#include "gui/diagrams/range_input.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

RangeInput::RangeInput(const Range& range, QWidget* parent)
    : QDialog(parent), range_(range), fraction_(false) {
    build();
}

RangeInput::RangeInput(QWidget* parent) : QDialog(parent), fraction_(true) {
    build();
}

void RangeInput::build() {
    setObjectName("frmInputProzessLinien");
    grid_ = form::grid();
    grid_->setContentsMargins({});
    hint_ = form::named(form::label(" "), "lblTextHinweis");
    QPalette red = hint_->palette();
    red.setColor(QPalette::WindowText, theme::errorColour());
    hint_->setPalette(red);

    QPushButton* apply = form::button("&Apply and Close", "cmdDraw");
    fraction_ ? askFraction() : askRange();
    if (fraction_) apply->setText("&Specific. of y(V)");
    apply->setDefault(true);
    connect(apply, &QPushButton::clicked, this, &RangeInput::confirm);
    QPushButton* close = form::button("&Cancel", "cmdClose");
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addStretch(1);
    buttons->addWidget(apply);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(grid_);
    layout->addWidget(hint_);
    layout->addStretch(1);
    layout->addLayout(buttons);
    par_[0]->setFocus();
    par_[0]->selectAll();
}

NumberEdit* RangeInput::field(int index, const QString& caption, const QString& unit,
                              double value) {
    auto* edit = form::named(new NumberEdit, QString("par_%1").arg(index));
    edit->setValue(value);
    form::addRow(grid_, grid_->rowCount(), caption, edit, unit);
    connect(edit, &QLineEdit::textEdited, this, [this] { hint_->setText(" "); });
    return edit;
}

void RangeInput::askRange() {
    setWindowTitle("Parameter Input");
    const diagrams::CoordinateDefaults& d = range_.limits;
    const models::Units& units = range_.basis.units;
    const bool isobaric = range_.section == diagrams::Section::isobaric;
    const diagrams::ParameterField fixed = diagrams::field_of(range_.section, units, range_.at);
    // The other quantity runs, in its own unit; the limits are those of the computation.
    using diagrams::Section;
    const Section running = isobaric ? Section::isothermal : Section::isobaric;
    const double low = static_cast<double>(isobaric ? d.T_min : d.p_min);
    const double high = static_cast<double>(isobaric ? d.T_max : d.p_max);
    const auto shown = [&](double limit) { return diagrams::shown_limit(running, units, limit); };
    const QString unit = qt(diagrams::field_of(running, units, range_.at).unit);
    par_[0] = field(isobaric ? 1 : 0, qt(fixed.caption), qt(fixed.unit), fixed.value);
    const QString symbol = isobaric ? "T" : "p";
    par_[1] = field(isobaric ? 0 : 1, symbol + "1 = ", unit, shown(low));
    par_[2] = field(isobaric ? 2 : 3, symbol + "2 = ", unit, shown(high));
    makeQuantity(par_[0], range_.section);
    makeQuantity(par_[1], running);
    makeQuantity(par_[2], running);
}

void RangeInput::makeQuantity(NumberEdit* edit, diagrams::Section section) {
    edit->setQuantity(diagrams::dimension_of(section),
                      diagrams::input_scale(section, range_.basis.units), range_.basis.fluid);
}

void RangeInput::askFraction() {
    setWindowTitle("Adding a Line of Const. Vapour Fraction y(V)");
    par_[0] = field(0, "y(V) = ", {}, 0.5);
    grid_->addWidget(form::note("  vapour fraction (0 <= y(V) <= 1)"), grid_->rowCount(), 0, 1, 3);
}

double RangeInput::vapourFraction() const {
    return par_[0]->value();
}

void RangeInput::confirm() {
    const auto typed = [](const NumberEdit* edit) {
        if (edit->holdsNumber()) return edit->value();
        return edit->scale() != nullptr ? edit->scale()->shown(-1) : -1.0;
    };
    if (fraction_) {
        if (diagrams::is_vapour_fraction(typed(par_[0]))) return accept();
        hint_->setText("Input not in the valid range");
        par_[0]->setMark(hint_->text());
        return;
    }
    const diagrams::RangeAnswer answer =
        diagrams::take_range(range_.section, range_.basis.units, range_.at, range_.line,
                             typed(par_[0]), typed(par_[1]), typed(par_[2]));
    if (!answer.refusal.empty()) return dialogs::tell(answer.refusal, dialogs::kNotPossible);
    range_.at = answer.at;
    range_.line = answer.range;
    accept();
}

}  // namespace quor::gui
