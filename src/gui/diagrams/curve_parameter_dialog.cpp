#include "gui/diagrams/curve_parameter_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

CurveParameterDialog::CurveParameterDialog(diagrams::Section section, const diagrams::Basis& basis,
                                           const diagrams::StateParameters& at, QWidget* parent)
    : QDialog(parent), section_(section), basis_(basis), at_(at) {
    setObjectName("frmTpVSInputBox");
    setWindowTitle("Parameter Input");
    const diagrams::ParameterField field = diagrams::field_of(section, basis.units, at);

    value_ = form::named(new NumberEdit, "rText");
    value_->setValue(field.value);
    value_->setQuantity(diagrams::dimension_of(section),
                        diagrams::input_scale(section, basis.units), basis.fluid);
    hint_ = form::named(form::label(" "), "lblTextHinweis");
    QPalette red = hint_->palette();
    red.setColor(QPalette::WindowText, theme::errorColour());
    hint_->setPalette(red);

    auto* grid = form::grid();
    grid->setContentsMargins({});
    grid->addWidget(form::named(form::label(qt(field.heading)), "lblHeading"), 0, 1);
    form::addRow(grid, 1, qt(field.caption), value_, qt(field.unit));
    grid->addWidget(hint_, 2, 0, 1, 3);

    QPushButton* draw = form::button("&Draw curve", "cmdOKAndDraw");
    draw->setToolTip(" to the diagram sheet; draw curve automatically  ");
    draw->setDefault(true);
    QPushButton* sheet = form::button("&to the Diagram", "cmdOK");
    sheet->setToolTip("... and start drawing of the curve later (=> button \"Draw Curve\") ");
    QPushButton* abort = form::button("&Abort Graph", "cmdAbbrechen");
    connect(draw, &QPushButton::clicked, this, [this] { confirm(true); });
    connect(sheet, &QPushButton::clicked, this, [this] { confirm(false); });
    connect(abort, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(draw);
    buttons->addWidget(sheet);
    buttons->addStretch(1);
    buttons->addWidget(abort);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);
    value_->setFocus();
    value_->selectAll();
    connect(value_, &QLineEdit::textEdited, this, [this] { hint_->setText(" "); });
}

void CurveParameterDialog::confirm(bool draw) {
    // What is no number is as little a parameter as 0 K, in any unit.
    const double typed = value_->holdsNumber() ? value_->value() : value_->scale()->shown(0);
    const diagrams::ParameterAnswer answer = diagrams::take_parameter(section_, basis_, at_, typed);
    switch (answer.status) {
        case diagrams::ParameterStatus::invalid:
            hint_->setText(diagrams::kInvalidParameter);
            value_->setMark(diagrams::kInvalidParameter);
            value_->setFocus();
            value_->selectAll();
            return;
        case diagrams::ParameterStatus::refused:
            return;
        case diagrams::ParameterStatus::taken:
            break;
    }
    at_ = answer.at;
    drawNow_ = draw;
    accept();
}

}  // namespace quor::gui
