#include "gui/calculation/direct_input_view.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "common/faults.h"
#include "common/numbers.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "session/calculations.h"

namespace quor::gui {

namespace {

constexpr std::size_t kMass = 1, kRho = 2;
constexpr int kPicture = 32;

// Two options side by side in a frame; the group knows them by their index.
QButtonGroup* twoOptions(QGroupBox* frame, const QString& name, const QString& first,
                         const QString& second) {
    auto* group = new QButtonGroup(frame);
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(theme::kGroupGap);
    int index = 0;
    for (const QString& caption : {first, second}) {
        auto* option =
            form::named(new QRadioButton(caption), QString("%1_%2").arg(name).arg(index));
        group->addButton(option, index++);
        row->addWidget(option);
    }
    row->addStretch(1);
    return group;
}

// A value in the unit of a field as text, nothing for 0: no value.
template <class Number>
std::string shown(Number value, const report::InputField& field) {
    if (value == Number{}) return {};
    return numbers::general(static_cast<Number>(field.scale.shown(static_cast<double>(value))));
}

}  // namespace

DirectInputView::DirectInputView(Desk& desk, QWidget* parent)
    : ChildView(desk, "frmParinput", parent), FollowsSession(desk.session()) {
    arrange();
    open();
}

DirectInputView::DirectInputView(Desk& desk, const models::BensonPoint& present,
                                 std::function<void(const models::BensonPoint&)> store,
                                 QWidget* parent)
    : ChildView(desk, "frmParinput", parent),
      FollowsSession(desk.session()),
      reference_(present),
      store_(std::move(store)) {
    arrange();
    open();
}

report::InputForm DirectInputView::form() const {
    if (asksForReference()) return session::reference_form(session_);
    return session::input_form(session_, amount());
}

// What the fields stand for.
std::array<std::string, 4> DirectInputView::presentTexts() const {
    const report::InputForm asked = form();
    const auto fields = report::describe_direct_input(asked).fields;
    switch (asked.kind) {
        case report::InputKind::reference:
            return {shown(reference_.T, fields[0]), shown(reference_.p, fields[1]),
                    shown(reference_.rhoL, fields[2]), shown(reference_.rhoV, fields[3])};
        case report::InputKind::tank: {
            const calculation::Tank& tank = session_->tank;
            return {
                shown(tank.V, fields[0]), shown(tank.m, fields[1]), shown(tank.T, fields[2]), {}};
        }
        case report::InputKind::state:
            break;
    }
    const report::DirectValues& typed = session_->calculation.direct;
    return {shown(typed.T, fields[0]), shown(typed.p, fields[1]), shown(typed.rho, fields[2]), {}};
}

void DirectInputView::arrange() {
    setWindowIcon(theme::icon("calculate"));
    setHugs(true);
    auto* grid = form::grid();
    grid->setContentsMargins({});
    for (std::size_t i = 0; i < par_.size(); ++i) {
        par_[i] = form::named(new NumberEdit, QString("par_%1").arg(i));
        captions_[i] = form::named(form::caption({}, par_[i]), QString("Bz_%1").arg(i));
        // The labels are written so that their units stand in one column of a fixed-pitch face.
        captions_[i]->setFont(theme::fixedPitch());
        grid->addWidget(captions_[i], static_cast<int>(i), 0);
        grid->addWidget(par_[i], static_cast<int>(i), 1);
    }
    grid->setColumnStretch(1, 1);

    volumeFrame_ = form::frame("specific. quantity", "fraRhoVInput");
    volume_ = twoOptions(volumeFrame_, "optRhoV", "Rho", "V");
    connect(volume_, &QButtonGroup::idClicked, this,
            [this](int index) { session_.change()->calculation.volume_input = index == 1; });
    amountFrame_ = form::frame("content given as", "fram_n");
    amount_ = twoOptions(amountFrame_, "optm_n", "mass m", "amount of substance n");
    amount_->button(0)->setChecked(true);
    connect(amount_, &QButtonGroup::idClicked, this, &DirectInputView::follow);

    picture_ = form::named(form::label(), "Picture1");
    picture_->setAlignment(Qt::AlignTop);
    ok_ = form::button("&Calculate", "cmdParameter_OK");
    connect(ok_, &QPushButton::clicked, this, &DirectInputView::calculate);
    setDefaultButton(ok_);
    QPushButton* escape = form::button("Cancel", "cancel");
    connect(escape, &QPushButton::clicked, this, [this] { cancel(); });

    auto* fields = new QHBoxLayout;
    fields->setSpacing(theme::kGroupGap);
    fields->addWidget(picture_);
    fields->addLayout(grid, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addStretch(1);
    buttons->addWidget(ok_);
    buttons->addWidget(escape);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(fields);
    layout->addWidget(volumeFrame_);
    layout->addWidget(amountFrame_);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void DirectInputView::open() {
    const bool tank = form().kind == report::InputKind::tank;
    picture_->setPixmap(theme::icon(tank ? "tank" : "calculate").pixmap(kPicture, kPicture));
    volume_->button(session_->calculation.volume_input ? 1 : 0)->setChecked(true);
    follow();
    refill();
    for (NumberEdit* field : par_) {
        if (field->isHidden()) continue;
        setFocusProxy(field);
        field->setFocus(Qt::OtherFocusReason);
        break;
    }
}

// Fields, labels and frames of the situation; the texts typed stay.
void DirectInputView::follow() {
    const report::DirectInput input = report::describe_direct_input(form());
    setWindowTitle(qt(input.title));
    ok_->setText(qt(input.command));
    for (std::size_t i = 0; i < par_.size(); ++i) {
        captions_[i]->setText(qt(input.fields[i].label));
        captions_[i]->setVisible(input.fields[i].visible);
        par_[i]->setVisible(input.fields[i].visible);
        if (input.fields[i].visible)
            par_[i]->setQuantity(input.fields[i].dimension, input.fields[i].scale,
                                 session_.fluid());
    }
    volumeFrame_->setVisible(input.volume_frame_visible);
    volumeFrame_->setTitle(qt(input.volume_frame));
    amountFrame_->setVisible(input.amount_frame_visible);
    fitWindow();
}

void DirectInputView::followSession() {
    follow();
}

// A volume or an amount is typed by the user anew: the session holds densities and masses.
void DirectInputView::refill() {
    const std::array<std::string, 4> texts = presentTexts();
    const bool volume = session_->calculation.volume_input && volumeFrame_->isVisibleTo(this);
    const bool kmol = amount() && amountFrame_->isVisibleTo(this);
    for (std::size_t i = 0; i < par_.size(); ++i) {
        const bool converted = (volume && i == kRho) || (kmol && i == kMass);
        par_[i]->setText(converted ? QString() : QString::fromStdString(texts[i]));
    }
}

bool DirectInputView::amount() const {
    return amount_->checkedId() == 1;
}

std::string DirectInputView::fieldText(std::size_t index) const {
    const NumberEdit* field = par_.at(index);
    return field->isHidden() ? std::string() : field->numberText();
}

// --------------------------------------------------------------------------------------- commands

// Marks the fields that lack a value; the first of them gets the focus.
void DirectInputView::markMissing() {
    NumberEdit* first = nullptr;
    for (NumberEdit* field : par_) {
        if (field->isHidden() || field->value() > 0) continue;
        field->setMark("A value above 0 is needed");
        if (first == nullptr) first = field;
    }
    if (first != nullptr) first->setFocus();
}

std::array<std::string, 4> DirectInputView::typedTexts() const {
    return {fieldText(0), fieldText(1), fieldText(2), fieldText(3)};
}

void DirectInputView::storeReference() {
    const auto point = session::accept_reference(session_, typedTexts());
    if (!point) return markMissing();
    store_(*point);
    closeView();
}

void DirectInputView::calculate() {
    if (markWrongNumber(par_)) return;
    if (asksForReference()) return storeReference();
    const session::CalculationViews& views = desk_.calculationViews;
    switch (session::accept_input(session_, typedTexts(), amount())) {
        case session::InputResult::Refused:
            markMissing();
            break;
        case session::InputResult::TankExit:
            views.close_result_view();
            views.close_tank_view();
            break;
        case session::InputResult::TankCalculated:
            views.open_result_view();
            views.open_tank_view();
            desk_.activate(objectName());
            break;
        case session::InputResult::Calculated:
            views.show_result_view();
            break;
    }
}

// The second reference point belongs to a view of its own, which stays.
void DirectInputView::cancel() {
    if (asksForReference())
        closeView();
    else
        session::cancel_input(desk_.calculationViews);
}

}  // namespace quor::gui
