#include "gui/models/manual_virial_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

ManualVirialDialog::ManualVirialDialog(const models::ManualVirial& present, QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmBParInput");
    setWindowTitle("Input of Virial Coefficient");

    const double values[] = {present.b0, present.b1, present.b2};
    const char* captions[] = {"b&0 =", "b&1 =", "b&2 ="};
    auto* grid = form::grid();
    grid->setContentsMargins({});
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        fields_[i] = form::named(new NumberEdit, QString("par_%1").arg(i));
        fields_[i]->setValue(values[i]);
        form::addRow(grid, static_cast<int>(i), captions[i], fields_[i]);
    }
    grid->setColumnStretch(1, 1);

    QPushButton* ok = form::button("&OK", "cmdParameter_OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &ManualVirialDialog::confirm);
    QPushButton* cancel = form::button("&Cancel", "cancel");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addWidget(form::label("B/m^3/kmol = b0 - b1/T^b2     (T in K)"));
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

models::ManualVirial ManualVirialDialog::coefficients() const {
    return {fields_[0]->value(), fields_[1]->value(), fields_[2]->value()};
}

void ManualVirialDialog::confirm() {
    if (!markWrongNumber(fields_)) accept();
}

}  // namespace quor::gui
