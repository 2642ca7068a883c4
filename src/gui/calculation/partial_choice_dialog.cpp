#include "gui/calculation/partial_choice_dialog.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr int kTextCharacters = 78;  // width of the texts, in characters of average width

QLabel* textBlock(const QString& name) {
    auto* label = form::named(form::label(), name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(kTextCharacters * label->fontMetrics().averageCharWidth());
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

// Options of a control array, in a column; a click tells the index.
template <std::size_t N, class Click>
void addOptions(QVBoxLayout* layout, std::array<QRadioButton*, N>& options, const QString& name,
                const std::array<const char*, N>& captions, Click click) {
    for (std::size_t i = 0; i < N; ++i) {
        options[i] = form::named(new QRadioButton(captions[i]), QString("%1_%2").arg(name).arg(i));
        QObject::connect(options[i], &QRadioButton::clicked, options[i],
                         [click, i] { click(static_cast<int>(i)); });
        layout->addWidget(options[i]);
    }
}

// The present reference point in words, as typed.
QString typedReference(const models::BensonPoint& r) {
    const auto line = [](const char* label, float value) {
        return QString("\n %1%2").arg(label, qt(numbers::general_point(value)));
    };
    return "Reference point by manual input:" + line("T(ref)/K           = ", r.T) +
           line("p(LV)(ref)/kPa     = ", r.p) + line("rho(L)(ref)/kg/m^3 = ", r.rhoL) +
           line("rho(V)(ref)/kg/m^3 = ", r.rhoV);
}

}  // namespace

PartialChoiceDialog::PartialChoiceDialog(Desk& desk, report::PartialChoice choice,
                                         AskReference askReference, QWidget* parent)
    : QDialog(parent),
      desk_(desk),
      choice_(std::move(choice)),
      askReference_(std::move(askReference)) {
    setObjectName("frmCalcIn");
    arrange();
    follow();
    proposal_->setText(qt(choice_.proposal_text));
}

QWidget* PartialChoiceDialog::buildMode() {
    modeFrame_ = form::frame("Mode of Calculation", "fraMode");
    auto* page = form::helpButton("GlobHilfe", "global and partial calculation");
    desk_.connectHelp(page, help::kGlobalPartial);
    auto* options = new QVBoxLayout;
    options->setSpacing(theme::kGap);
    addOptions<2>(options, global_, "opt_glob", {"Global calculation", "Partial calculation"},
                  [this](int index) { chooseGlobal(index == 0); });
    limits_ = textBlock("lblRhoLimits");
    auto* top = new QHBoxLayout;
    top->addLayout(options, 1);
    top->addWidget(page, 0, Qt::AlignTop);
    auto* layout = new QVBoxLayout(modeFrame_);
    layout->setSpacing(theme::kGap);
    layout->addLayout(top);
    layout->addWidget(limits_);
    return modeFrame_;
}

QWidget* PartialChoiceDialog::buildDensity() {
    densityFrame_ = form::frame("L-density", "fraDensity");
    auto* layout = new QVBoxLayout(densityFrame_);
    layout->setSpacing(theme::kGap);
    addOptions<2>(layout, density_, "optPartialBenson",
                  {"rho_L by  BENSON's method", "rho_L by database equ. rho(T)"},
                  [this](int index) {
                      choice_.choose_density(index == 0);
                      follow();
                  });
    range_ = form::named(form::note(), "lblRhoRange");
    range_->setIndent(3 * theme::kGap);
    layout->addWidget(range_);
    return densityFrame_;
}

QWidget* PartialChoiceDialog::buildReference() {
    referenceFrame_ = form::frame("Reference  point for BENSON's method", "fraReference");
    auto* page = form::helpButton("BENSON_HELP", "the second reference point");
    desk_.connectHelp(page, help::kReferencePoint);
    auto* top = new QHBoxLayout;
    top->addWidget(form::named(form::label("Choose one of these options:"), "Bz1"), 1);
    top->addWidget(page);

    auto* layout = new QVBoxLayout(referenceFrame_);
    layout->setSpacing(theme::kGap);
    layout->addLayout(top);
    addOptions<3>(
        layout, reference_, "Ref_opt",
        {"Proposed reference data",
         "BENSON's approximation for RhoL(ref) at the normal boiling point",
         "Manual input of reference data"},
        [this](int index) {
            choice_.choose_reference(static_cast<report::PartialChoice::Reference>(index));
            if (choice_.input_enabled)
                proposal_->setText(typedReference(choice_.method.reference));
            else
                proposal_->setText(qt(choice_.proposal_text));
            follow();
        });
    input_ = form::button("Input", "RefInput");
    connect(input_, &QPushButton::clicked, this, &PartialChoiceDialog::askReference);
    layout->addWidget(input_, 0, Qt::AlignLeft);
    proposal_ = textBlock("RefVorschlag");
    proposal_->setFont(theme::fixedPitch());
    proposal_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(proposal_);
    return referenceFrame_;
}

void PartialChoiceDialog::arrange() {
    situation_ = textBlock("GlobalSit");
    QPushButton* ok = form::button("continue...", "OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    escape_ = form::button("&Cancel", "ESC");
    connect(escape_, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(escape_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addWidget(situation_);
    layout->addWidget(buildMode());
    layout->addWidget(buildDensity());
    layout->addWidget(buildReference());
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void PartialChoiceDialog::follow() {
    const bool choices = choice_.choices_visible;
    setWindowTitle(qt(choice_.title));
    situation_->setText(qt(choice_.situation_text));
    modeFrame_->setVisible(choices && choice_.mode_frame_visible);
    global_[static_cast<std::size_t>(choice_.global_index)]->setChecked(true);
    global_[0]->setEnabled(choice_.global_enabled);
    limits_->setText(qt(choice_.density_range));
    densityFrame_->setVisible(choices && choice_.density_frame_visible);
    density_[static_cast<std::size_t>(choice_.density_index)]->setChecked(true);
    density_[1]->setEnabled(choice_.database_enabled);
    range_->setText(qt(choice_.database_range));
    referenceFrame_->setVisible(choices && choice_.reference_frame_visible);
    reference_[static_cast<std::size_t>(choice_.reference_index)]->setChecked(true);
    input_->setEnabled(choice_.input_enabled);
    escape_->setEnabled(choice_.cancel_enabled);
}

void PartialChoiceDialog::chooseGlobal(bool global) {
    if (!choice_.choose_global(global)) dialogs::refuse(report::kGlobalNeedsCubic);
    follow();
}

void PartialChoiceDialog::askReference() {
    if (const auto typed = askReference_(choice_.method.reference))
        choice_.method.reference = *typed;
    proposal_->setText(typedReference(choice_.method.reference));
}

void PartialChoiceDialog::reject() {
    if (choice_.cancel_enabled) QDialog::reject();
}

}  // namespace quor::gui
