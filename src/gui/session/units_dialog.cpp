#include "gui/session/units_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "gui/session/unit_sets.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

// What a unit is called in a list, with what it counts from.
QString entryOf(const models::Unit& unit) {
    QString name = qt(models::pretty_unit(unit.name));
    if (unit.dimension != models::Dimension::pressure || unit.per == models::Per::critical)
        return name;
    return name.endsWith("(g)") ? name.chopped(3) + " gauge" : name + " absolute";
}

}  // namespace

UnitsDialog::UnitsDialog(const models::UnitChoice& present, QWidget* parent) : QDialog(parent) {
    setObjectName("frmUnits");
    setWindowTitle("Units");
    set_ = form::named(new QComboBox, "cmbUnitSet");
    connect(set_, &QComboBox::currentIndexChanged, this, &UnitsDialog::followSet);

    QPushButton* ok = form::button("OK", "cmdOK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    QPushButton* cancel = form::button("Cancel", "cmdClose");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(quantities());
    layout->addLayout(ownSets());
    layout->addWidget(
        form::note("Gauge pressures count from 101.325 kPa; kcal and BTU are those "
                   "of the International Table."));
    layout->addLayout(buttons);
    showUnits(present);
}

QLayout* UnitsDialog::quantities() {
    QGridLayout* grid = form::grid();
    form::addRow(grid, 0, "&Set", set_);
    for (std::size_t i = 0; i < units_.size(); ++i) {
        const auto dimension = static_cast<models::Dimension>(i);
        QComboBox* box = form::named(new QComboBox, QString("cmbUnit_%1").arg(i));
        for (const models::Unit& unit : models::units_of(dimension)) box->addItem(entryOf(unit));
        connect(box, &QComboBox::currentIndexChanged, this,
                [this] { fillUnitSets(set_, choice()); });
        form::addRow(grid, static_cast<int>(i) + 1,
                     qt(std::string(models::word_of(dimension)) + ", " +
                        std::string(models::key_of(dimension))),
                     box);
        units_[i] = box;
    }
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* UnitsDialog::ownSets() {
    name_ = form::named(new QLineEdit, "txtUnitSet");
    name_->setPlaceholderText("name of an own set");
    keep_ = form::button("&Save as own set", "cmdKeepUnits");
    forget_ = form::button("&Delete", "cmdForgetUnits");
    keep_->setAutoDefault(false);
    forget_->setAutoDefault(false);
    connect(keep_, &QPushButton::clicked, this, &UnitsDialog::keep);
    connect(forget_, &QPushButton::clicked, this, &UnitsDialog::forget);
    const auto follow = [this] {
        const QString name = name_->text().trimmed();
        const auto sets = unitSets();
        const auto same = std::find_if(sets.begin(), sets.end(), [&](const NamedUnits& set) {
            return set.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        const bool own = same != sets.end() && same->own;
        keep_->setEnabled(!name.isEmpty() && (same == sets.end() || own));
        forget_->setEnabled(own);
    };
    connect(name_, &QLineEdit::textChanged, this, follow);
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGap);
    row->addWidget(name_, 1);
    row->addWidget(keep_);
    row->addWidget(forget_);
    follow();
    return row;
}

models::UnitChoice UnitsDialog::choice() const {
    models::UnitList list{};
    for (std::size_t i = 0; i < units_.size(); ++i)
        list[i] = &models::units_of(
            static_cast<models::Dimension>(i))[static_cast<std::size_t>(units_[i]->currentIndex())];
    return models::choice_of(list);
}

void UnitsDialog::showUnits(const models::UnitChoice& choice) {
    const models::UnitList list = models::units_of(choice);
    for (std::size_t i = 0; i < units_.size(); ++i) {
        const QSignalBlocker quiet(units_[i]);
        units_[i]->setCurrentIndex(
            static_cast<int>(list[i] - models::units_of(static_cast<models::Dimension>(i)).data()));
    }
    fillUnitSets(set_, choice);
}

void UnitsDialog::followSet() {
    const int index = set_->currentData().toInt();
    const auto sets = unitSets();
    if (index < 0 || static_cast<std::size_t>(index) >= sets.size()) return;
    const NamedUnits& chosen = sets[static_cast<std::size_t>(index)];
    showUnits(chosen.choice);
    name_->setText(chosen.own ? chosen.name : QString());
}

void UnitsDialog::keep() {
    settings::rememberUnitSet(name_->text().trimmed(), qt(models::text_of(choice())));
    showUnits(choice());
    emit name_->textChanged(name_->text());
}

void UnitsDialog::forget() {
    settings::forgetUnitSet(name_->text().trimmed());
    name_->clear();
    showUnits(choice());
}

}  // namespace quor::gui
