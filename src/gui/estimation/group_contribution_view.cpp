#include "gui/estimation/group_contribution_view.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
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

using datafiles::GroupFrame;
using estimation::Group;

constexpr auto kExample = " Example Propan-2-ol (Isopropanol): 2x -CH3, 1x >CH-, 1x -OH (alcohol)";
constexpr auto kDensityTip = " critical density ";
constexpr auto kNone = " ---";
constexpr int kResultDigits = 15;
constexpr std::size_t kFieldTboil = 1;  // of the substance editor

/// The families from which a new column of groups begins.
constexpr std::array<std::string_view, 2> kColumnStarts{"Halogen", "Nitrogen"};

/// A number in the form of the files' fields; the value decides about its length.
QString general(double value) {
    return qt(numbers::general(static_cast<float>(value)));
}

QLineEdit* output(const QString& name) {
    auto* field = form::named(new QLineEdit(kNone), name);
    field->setReadOnly(true);
    field->setAlignment(Qt::AlignRight);
    field->setFocusPolicy(Qt::ClickFocus);
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance('0') * kResultDigits);
    return field;
}

QString titleOf(GroupFrame frame) {
    switch (frame) {
        case GroupFrame::Formation:
            return "JOBACK Calculation of Quantities of Formation ";
        case GroupFrame::HeatCapacity:
            return "JOBACK Calculation of cp=F(T) (Ideal Gas) by using Molecule Increments";
        default:
            return "LYDERSEN/JOBACK Calculation of Critical Data";
    }
}

/// A field for the number of a group: digits only.
class GroupField : public QLineEdit {
  public:
    GroupField() {
        setValidator(new QRegularExpressionValidator(QRegularExpression(" ?\\d{0,3}"), this));
        setAlignment(Qt::AlignRight);
        setMaximumWidth(fontMetrics().horizontalAdvance("0000000"));
    }

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        QLineEdit::mouseReleaseEvent(event);
        selectAll();
    }
};

}  // namespace

GroupContributionView::GroupContributionView(Desk& desk, GroupFrame frame,
                                             datafiles::EditorTexts* editor, QWidget* parent)
    : QDialog(parent), desk_(desk), session_(desk.session()), frame_(frame), editor_(editor) {
    setObjectName("frmJOBACK");
    setWindowTitle(titleOf(frame));
    auto* results = new QVBoxLayout;
    results->setSpacing(theme::kGroupGap);
    switch (frame_) {
        case GroupFrame::Critical:
            results->addWidget(buildCritical());
            break;
        case GroupFrame::Formation:
            results->addWidget(buildFormation());
            break;
        case GroupFrame::HeatCapacity:
            results->addWidget(buildHeatCapacity());
            break;
    }
    results->addStretch(1);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(theme::kGroupGap);
    columns->addWidget(buildGroups());
    columns->addLayout(results, 1);
    status_ = form::named(form::label(kExample), "statusZeile");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(columns, 1);
    layout->addWidget(buildCommands());
    layout->addWidget(status_);
    reset();
    groups_[0]->setFocus();
    groups_[0]->selectAll();
}

QWidget* GroupContributionView::buildGroups() {
    auto* box = form::frame("Number of the groups in the molecule", "fraGroups");
    auto* all = new QVBoxLayout(box);
    all->setSpacing(theme::kGap);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(theme::kGroupGap);
    QGridLayout* grid = nullptr;
    std::string_view family;
    int row = 0;
    const auto beginColumn = [&] {
        if (grid != nullptr) grid->setRowStretch(row, 1);
        grid = form::grid();
        grid->setContentsMargins({});
        grid->setVerticalSpacing(theme::kGap / 2);
        columns->addLayout(grid);
        row = 0;
    };
    beginColumn();
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        const Group& group = estimation::all_groups()[i];
        if (group.family != family) {
            family = group.family;
            for (const std::string_view start : kColumnStarts)
                if (family.starts_with(start)) beginColumn();
            auto* heading = form::label(qt(family));
            QFont bold = heading->font();
            bold.setBold(true);
            heading->setFont(bold);
            grid->addWidget(heading, row++, 0, 1, 2);
        }
        groups_[i] = form::named(new GroupField, QString("txtInkr_%1").arg(static_cast<int>(i)));
        auto* name = form::caption(qt(group.name), groups_[i]);
        name->setTextFormat(Qt::PlainText);
        grid->addWidget(name, row, 0);
        grid->addWidget(groups_[i], row++, 1);
        connect(groups_[i], &QLineEdit::textChanged, this, [this] {
            showMolarMass();
            clearResults();
        });
    }
    grid->setRowStretch(row, 1);
    all->addLayout(columns);
    molarMass_ = output("txtMM");
    auto* mass = new QHBoxLayout;
    mass->setSpacing(theme::kGap);
    mass->addStretch(1);
    mass->addWidget(form::caption("M", molarMass_));
    mass->addWidget(molarMass_);
    mass->addWidget(form::unit("kg/kmol"));
    all->addLayout(mass);
    return box;
}

QPushButton* GroupContributionView::calculation(const QString& name,
                                                void (GroupContributionView::*run)()) {
    QPushButton* button = form::button("&Calculate", name);
    button->setDefault(true);
    connect(button, &QPushButton::clicked, this, run);
    return button;
}

QGroupBox* GroupContributionView::buildCritical() {
    auto* box = form::frame("Critical Data", "fraCrit");
    auto* grid = form::grid(box);
    int row = 0;
    const auto add = [&](QLineEdit*& field, const char* name, const char* caption, const char* unit,
                         const char* tip) {
        field = output(name);
        field->setToolTip(tip);
        form::addRow(grid, row++, caption, field, unit);
    };
    add(Tb_, "txtTb", "T(LV),NP", "K", " normal boiling point ");
    add(Tf_, "txtTf", "T(f)", "K", " freezing point, very approximate guess (average error 23 K) ");
    add(Tc_, "txtTc", "T(cr)", "K", " critical temperature ");
    add(pc_, "txtpc", "p(cr)", "kPa", " critical pressure ");
    add(vc_, "txtVc", "v(cr)", "m^3/kmol", " critical molar volume ");
    add(rhoc_, "txtRhoc", "rho(cr)", "kg/m^3", kDensityTip);
    grid->addWidget(calculation("cmdCalcCrit", &GroupContributionView::calculateCritical), row++, 0,
                    1, 3);
    QPushButton* omega = form::button("Acentric &Factor omega", "cmdOmega");
    omega->setToolTip("LEE/KESLER method");
    connect(omega, &QPushButton::clicked, this, &GroupContributionView::showOmega);
    grid->addWidget(omega, row++, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    return box;
}

QGroupBox* GroupContributionView::buildFormation() {
    auto* box = form::frame("Quantities of Formation (ideal gas, 298.15 K)", "fraBildung");
    auto* grid = form::grid(box);
    dfh_ = output("txtdfh");
    dfg_ = output("txtdfg");
    form::addRow(grid, 0, "delta(F)h", dfh_, "kJ/kmol");
    form::addRow(grid, 1, "delta(F)g", dfg_, "kJ/kmol");
    grid->addWidget(calculation("cmdCalcBildung", &GroupContributionView::calculateFormation), 2, 0,
                    1, 3);
    grid->setColumnStretch(1, 1);
    return box;
}

QGroupBox* GroupContributionView::buildHeatCapacity() {
    auto* box = form::frame("cp/(kJ/(kmol K)) = C0 + C1*T + C2*T^2 + C3*T^3", "fracp");
    auto* grid = form::grid(box);
    for (std::size_t i = 0; i < coefficients_.size(); ++i) {
        const QString name = QString("C%1").arg(static_cast<int>(i));
        coefficients_[i] = output("txt" + name);
        form::addRow(grid, static_cast<int>(i), name, coefficients_[i]);
    }
    grid->addWidget(calculation("cmdCalccp", &GroupContributionView::calculateHeatCapacity), 4, 0,
                    1, 3);
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget* GroupContributionView::buildCommands() {
    auto* box = new QWidget;
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins({});
    layout->setSpacing(theme::kGap);
    QPushButton* clear = form::button("&Reset", "cmdReset");
    connect(clear, &QPushButton::clicked, this, &GroupContributionView::reset);
    apply_ = form::button(editor_ != nullptr ? "&Transfer to data editor" : "&Apply to data base",
                          "cmdApply");
    connect(apply_, &QPushButton::clicked, this, &GroupContributionView::apply);
    // Critical data stay in the view for the user to read.
    apply_->setVisible(frame_ != GroupFrame::Critical);
    QPushButton* print = form::button("&Print", "cmdPrint");
    connect(print, &QPushButton::clicked, this, [this] {
        dialogs::print_out({.title = windowTitle().toStdString(),
                            .font = "COURIER",
                            .text = form::textOf(this).toStdString()});
    });
    QPushButton* help = form::button("&Help", "Hilfe");
    desk_.connectHelp(help, help::kGroupContributions);
    QPushButton* close = form::button("&Close", "cmdEsc");
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    layout->addWidget(clear);
    layout->addWidget(print);
    layout->addStretch(1);
    layout->addWidget(apply_);
    layout->addWidget(close);
    layout->addWidget(help);
    return box;
}

estimation::GroupCounts GroupContributionView::counts() const {
    estimation::GroupCounts counts{};
    for (std::size_t i = 0; i < counts.size(); ++i)
        counts[i] = estimation::group_count(groups_[i]->text().toStdString());
    return counts;
}

double GroupContributionView::knownBoilingPoint() const {
    return editor_ != nullptr ? numbers::val_input((*editor_)[kFieldTboil])
                              : static_cast<double>(session_->substance.Tboil);
}

void GroupContributionView::showMolarMass() {
    molarMass_->setText(general(estimation::molar_mass(counts())));
}

void GroupContributionView::clearResults() {
    critical_ = {};
    formation_ = {};
    cp_.reset();
    for (QLineEdit* field : {Tb_, Tf_, Tc_, pc_, vc_, rhoc_, dfh_, dfg_, coefficients_[0],
                             coefficients_[1], coefficients_[2], coefficients_[3]})
        if (field != nullptr) field->setText(kNone);
    if (rhoc_ != nullptr) rhoc_->setToolTip(kDensityTip);
    if (status_ != nullptr) status_->setText(kExample);
    offerTransfer(false);
}

void GroupContributionView::offerTransfer(bool results) {
    const bool target = editor_ != nullptr || !session_->substance.name.empty();
    apply_->setEnabled(results && target);
}

void GroupContributionView::reset() {
    for (QLineEdit* field : groups_) {
        const QSignalBlocker quiet(field);
        field->setText(" 0");
    }
    showMolarMass();
    clearResults();
}

void GroupContributionView::calculateCritical() {
    clearResults();
    const estimation::GroupCounts groups = counts();
    critical_ = estimation::calc_critical(groups, knownBoilingPoint());
    Tb_->setText(qt(estimation::temperature_text(critical_.Tb)));
    Tf_->setText(qt(estimation::temperature_text(critical_.Tf)));
    Tc_->setText(qt(estimation::temperature_text(critical_.Tc)));
    pc_->setText(qt(estimation::pressure_text(critical_.pc)));
    vc_->setText(qt(estimation::volume_text(critical_.vc)));
    rhoc_->setText(qt(estimation::density_text(critical_.rhoc)));
    if (critical_.rhoc) rhoc_->setToolTip(qt(estimation::density_tooltip(groups)));
    QStringList implausible;
    for (const std::string& note : estimation::implausible_values(critical_))
        implausible << qt(note);
    if (!implausible.isEmpty()) status_->setText(implausible.join(QChar(10)));
}

void GroupContributionView::calculateFormation() {
    clearResults();
    formation_ = estimation::calc_formation(counts());
    dfh_->setText(qt(estimation::formation_text(formation_.dfh)));
    dfg_->setText(qt(estimation::formation_text(formation_.dfg)));
    offerTransfer(formation_.dfh || formation_.dfg);
}

void GroupContributionView::calculateHeatCapacity() {
    clearResults();
    cp_ = estimation::calc_cp(counts());
    if (!cp_) return;
    for (std::size_t i = 0; i < coefficients_.size(); ++i)
        coefficients_[i]->setText(general((*cp_)[i]));
    offerTransfer(true);
}

void GroupContributionView::showOmega() {
    estimation::show_omega(critical_.Tb.value_or(0), critical_.Tc.value_or(0),
                           critical_.pc.value_or(0));
}

void GroupContributionView::apply() {
    const auto transfer = [&](auto& target) {
        if (frame_ == GroupFrame::Formation) estimation::transfer_formation(formation_, target);
        if (frame_ == GroupFrame::HeatCapacity && cp_) estimation::transfer_cp(*cp_, target);
    };
    if (editor_ != nullptr) {
        transfer(*editor_);
        accept();
        return;
    }
    transfer(session_.change()->substance);
    status_->setText(" Applied to the loaded data of " + qt(session_->substance.name));
}

}  // namespace quor::gui
