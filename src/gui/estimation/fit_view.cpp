#include "gui/estimation/fit_view.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "estimation/fit_apply.h"
#include "estimation/fit_report.h"
#include "estimation/fit_run.h"
#include "estimation/fit_start_values.h"
#include "estimation/fit_worth.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

using estimation::FitModelRow;
using estimation::FitTab;

constexpr int kTabs = 5;
constexpr int kModelsPerColumn = 3;
constexpr std::array kPhases{"ideal gas", "liquid", "solid"};

constexpr auto kName = "frmQFitting";

}  // namespace

FitView::FitView(Desk& desk, QWidget* parent)
    : ChildView(desk, kName, parent), FollowsSession(desk.session()) {
    setWindowTitle("   Fitting");
    title_ = form::named(form::label(), "lblTitle");
    rows_ = new FitParameterRows(fit_);
    connect(rows_, &FitParameterRows::changed, this, &FitView::remember);
    quality_ = new FitQualityFrame(fit_);
    graph_ = new FitGraphFrame(fit_);
    for (QWidget* part : std::initializer_list<QWidget*>{quality_, graph_}) {
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(part == graph_);
        part->setSizePolicy(policy);
    }

    auto* left = new QVBoxLayout;
    left->setSpacing(theme::kGroupGap);
    left->addWidget(buildTabs());
    left->addWidget(buildEquation());
    left->addWidget(rows_);
    left->addStretch(1);
    left->addWidget(buildCommands());
    auto* right = new QVBoxLayout;
    right->setSpacing(theme::kGroupGap);
    right->addWidget(quality_);
    right->addWidget(graph_, 1);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(theme::kGroupGap);
    columns->addLayout(left);
    columns->addLayout(right, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGap);
    layout->addWidget(title_);
    layout->addLayout(columns, 1);
    setDefaultButton(start_);
    setFocusProxy(start_);

    models_->button(0)->setChecked(true);
    beginFit(0);
    showTab(0);
    loadPoints();
    history_.restart(fit_);
    new UndoKeys(this, *this);
}

QString FitView::undoName() const {
    return qt(history_.undo_name().value_or(""));
}

QString FitView::redoName() const {
    return qt(history_.redo_name().value_or(""));
}

// What is still being typed is the last step.
void FitView::undo() {
    rows_->read();
    if (history_.undo()) showPresent();
}

void FitView::redo() {
    rows_->read();
    if (history_.redo()) showPresent();
}

void FitView::remember(const QString& step) {
    if (fit_.fitted && !is_same_function(fit_, history_.value())) dropResults();
    history_.change(step.toStdString(), fit_);
}

void FitView::showPresent() {
    const estimation::FitSettings& now = history_.value();
    const bool otherModel = now.model != fit_.model;
    const bool resultsStay = is_same_function(now, fit_);
    static_cast<estimation::FitSettings&>(fit_) = now;
    models_->button(now.model)->setChecked(true);
    phases_->button(static_cast<int>(now.cp_phase))->setChecked(true);
    logFit_[now.logarithmic ? 1 : 0]->setChecked(true);
    title_->setText(qt(estimation::fit_title(fit_)));
    showTarget();
    showModel();
    if (otherModel) showChosenTab();
    if (!resultsStay) dropResults();
}

QWidget* FitView::buildTabs() {
    models_ = new QButtonGroup(this);
    tabs_ = form::named(new QTabWidget, "SSTab1");
    tabs_->setUsesScrollButtons(false);
    for (int tab = 0; tab < kTabs; ++tab)
        tabs_->addTab(buildPage(tab), qt(estimation::tab_caption(static_cast<FitTab>(tab))));
    data_ = form::named(form::label(), "lblData");
    tabs_->setCornerWidget(data_);
    connect(tabs_, &QTabWidget::currentChanged, this, &FitView::showTab);
    connect(models_, &QButtonGroup::idClicked, this, &FitView::chooseModel);
    return tabs_;
}

QWidget* FitView::buildPage(int tab) {
    auto* page = new QWidget;
    auto* grid = form::grid(page);
    int n = 0;
    for (const FitModelRow& row : estimation::fit_models()) {
        if (static_cast<int>(row.tab) != tab) continue;
        auto* option =
            form::named(new QRadioButton(qt(row.name)), QString("optFit_%1").arg(row.number));
        models_->addButton(option, row.number);
        grid->addWidget(option, n % kModelsPerColumn, n / kModelsPerColumn);
        ++n;
    }
    int next = grid->rowCount();
    if (static_cast<FitTab>(tab) == FitTab::HeatCapacity) {
        auto* box = new QHBoxLayout;
        box->setSpacing(theme::kGap);
        box->addWidget(form::label("Phase:"));
        phases_ = new QButtonGroup(this);
        for (std::size_t i = 0; i < kPhases.size(); ++i) {
            const int id = static_cast<int>(i);
            auto* option =
                form::named(new QRadioButton(kPhases[i]), QString("optcpPhase_%1").arg(id));
            option->setChecked(i == 0);
            phases_->addButton(option, id);
            box->addWidget(option);
        }
        box->addStretch(1);
        connect(phases_, &QButtonGroup::idClicked, this, [this](int id) {
            fit_.cp_phase = static_cast<estimation::CpPhase>(id);
            remember(QString("Phase: ") + kPhases[static_cast<std::size_t>(id)]);
        });
        grid->addLayout(box, next++, 0, 1, 2);
    }
    const std::string_view units = estimation::unit_text(static_cast<FitTab>(tab));
    if (!units.empty()) grid->addWidget(form::note(qt(units)), next++, 0, 1, 2);
    grid->setRowStretch(next, 1);
    grid->setColumnStretch(1, 1);
    return page;
}

QWidget* FitView::buildEquation() {
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins({});
    layout->setSpacing(theme::kGap);
    equation_ = form::named(form::label(), "lblEquation");
    equation_->setWordWrap(true);
    equation_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    remark_ = form::named(form::label(), "lblRemark");
    lg_ = form::named(new QCheckBox("l&g instead of ln"), "chkLg");
    connect(lg_, &QCheckBox::clicked, this, &FitView::changeForm);
    layout->addWidget(equation_);
    layout->addWidget(remark_);
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGroupGap);
    row->addWidget(lg_);
    for (const std::size_t i : {0U, 1U}) {
        logFit_[i] = form::named(new QRadioButton(qt(estimation::log_fit_caption(i == 1))),
                                 QString("optLogFit_%1").arg(static_cast<int>(i)));
        logFit_[i]->setChecked(i == 0);
        connect(logFit_[i], &QRadioButton::clicked, this, [this, i] {
            fit_.logarithmic = i == 1;
            remember(logFit_[i]->text().trimmed());
        });
        row->addWidget(logFit_[i]);
    }
    row->addStretch(1);
    layout->addLayout(row);
    return box;
}

QWidget* FitView::buildCommands() {
    start_ = form::button("&Start", "cmdStart");
    connect(start_, &QPushButton::clicked, this, &FitView::start);
    QPushButton* proposal = form::button("&Propose start values", "cmdPropose");
    proposal->setToolTip(" from the points, by least squares on the linearised equation ");
    connect(proposal, &QPushButton::clicked, this, &FitView::propose);
    apply_ = form::button("&Apply parameters", "cmdApply");
    connect(apply_, &QPushButton::clicked, this, &FitView::apply);
    target_ = form::named(form::note(), "lblTarget");
    QPushButton* xy = form::button("Data import    &XY-editor", "cmdGotoXYEditor");
    xy->setEnabled(static_cast<bool>(desk_.doors.editXy));
    connect(xy, &QPushButton::clicked, this, [this] { desk_.doors.editXy(); });
    QPushButton* tpv = form::button("Data import &T-p-V-editor", "cmdGotoTpvEditor");
    tpv->setEnabled(static_cast<bool>(desk_.doors.editMeasuredData));
    connect(tpv, &QPushButton::clicked, this, [this] { desk_.doors.editMeasuredData(); });
    QPushButton* print = printButton([this] { this->print(); });
    QPushButton* help = form::button("&Help", "Hilfe");
    desk_.connectHelp(help, help::kFitting);
    QPushButton* close = form::button("&Close", "ESC");
    connect(close, &QPushButton::clicked, this, &FitView::closeView);

    auto* box = new QWidget;
    auto* grid = form::grid(box);
    grid->setContentsMargins({});
    grid->addWidget(start_, 0, 0);
    grid->addWidget(proposal, 0, 1);
    grid->addWidget(close, 0, 2);
    grid->addWidget(help, 0, 3);
    grid->addWidget(apply_, 1, 0);
    grid->addWidget(target_, 1, 1, 1, 3);
    grid->addWidget(xy, 2, 0);
    grid->addWidget(tpv, 2, 1);
    grid->addWidget(print, 2, 2);
    grid->setColumnStretch(3, 1);
    return box;
}

void FitView::loadPoints() {
    rows_->read();
    const bool measured = session_->fit_source == session::FitSource::measuredData;
    const auto note = estimation::set_fit_points(
        fit_,
        measured ? estimation::fit_points(session_->measured.points, session_->fit_column)
                 : session_->xy.points,
        measured);
    if (note) dialogs::tell(*note, "WARNING");
    title_->setText(qt(estimation::fit_title(fit_)));
    // Points that come in for another substance begin a fit of that one.
    if (!estimation::is_same_substance(fit_.substance, session_->substance)) beginFit(fit_.model);
    showTarget();
    dropResults();
    remember("Load points");
}

void FitView::followSession() {
    showTarget();
}

void FitView::adoptSubstance() {
    fit_.substance = session_->substance;
    showTarget();
}

void FitView::showTarget() {
    const std::string& own = fit_.substance.name;
    const std::string& active = session_->substance.name;
    const bool same = estimation::is_same_substance(fit_.substance, session_->substance);
    target_->setText(own.empty() ? QString()
                     : same      ? qt(estimation::target_caption(own))
                                 : "... of " + qt(own) + ", but " +
                                  (active.empty() ? QString("no substance") : qt(active)) +
                                  " is loaded now: choose the model again for it");
    apply_->setEnabled(!own.empty());
}

void FitView::showTab(int index) {
    tabs_->setCurrentIndex(index);
    data_->setText(qt(estimation::data_caption(static_cast<FitTab>(index))));
}

void FitView::showChosenTab() {
    if (const FitModelRow* row = estimation::find_model(fit_.model))
        showTab(static_cast<int>(row->tab));
}

void FitView::chooseModel(int number) {
    rows_->read();
    beginFit(number);
    remember("Choose " + models_->button(number)->text().trimmed());
}

void FitView::beginFit(int number) {
    adoptSubstance();
    if (!estimation::choose_model(fit_, static_cast<std::int16_t>(number))) return;
    showModel();
    showResults();
}

void FitView::showModel() {
    for (QRadioButton* option : logFit_) option->setEnabled(!estimation::is_linear(fit_));
    showEquation();
    rows_->showSettings();
}

void FitView::showEquation() {
    const FitModelRow* row = estimation::find_model(fit_.model);
    if (row == nullptr) return;
    lg_->setVisible(!row->caption_lg.empty());
    lg_->setChecked(fit_.lg);
    equation_->setText(qt(estimation::equation_caption(*row, fit_.lg)));
    remark_->setText(qt(row->remark));
    remark_->setVisible(!row->remark.empty());
}

// The start values of the other form come in as long as nobody has changed them.
void FitView::changeForm(bool lg) {
    const FitModelRow* row = estimation::find_model(fit_.model);
    if (row == nullptr) return;
    rows_->read();
    const double Tcr = fit_.substance.Tcrit;
    const bool untouched = fit_.start == estimation::start_values(*row, fit_.lg, Tcr);
    fit_.lg = lg;
    if (untouched) fit_.start = estimation::start_values(*row, fit_.lg, Tcr);
    rows_->showStartValues();
    showEquation();
    dropResults();
    remember(lg ? "lg instead of ln" : "ln instead of lg");
}

void FitView::start() {
    rows_->read();
    Result<estimation::FitState> result = [this] {
        const session::BusyPointer busy(session_);
        return estimation::run_fit(fit_);
    }();
    if (!result) {
        dialogs::tell(result.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    fit_ = *std::move(result);
    showResults();
}

void FitView::propose() {
    rows_->read();
    const Result<estimation::Parameters> proposal = estimation::proposed_start_values(fit_);
    if (!proposal) {
        dialogs::tell(proposal.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    fit_.start = *proposal;
    rows_->showStartValues();
    remember("Propose start values");
}

void FitView::print() {
    rows_->read();
    dialogs::PrintJob job{
        .title = "Fitting", .font = "COURIER", .text = estimation::fit_report(fit_)};
    if (fit_.fitted) job.drawing = graph_->drawing();
    dialogs::print_out(job);
}

void FitView::apply() {
    const std::string flaws = fit_.fitted ? estimation::worthless_text(fit_) : "";
    if (!flaws.empty() &&
        !dialogs::ask("This fit is worthless:\n" + flaws + "\n\nApply its parameters nevertheless?",
                      "WARNING", dialogs::Icon::Exclamation, false))
        return;
    const Result<estimation::AppliedFit> applied = estimation::apply_fit(fit_, session_->substance);
    if (!applied) {
        dialogs::tell(applied.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        showTarget();
        return;
    }
    {
        const auto now = session_.change();
        now->substance = applied->substance;
        now->applied_unsaved = true;
    }
    for (const std::string& text : {applied->message, std::string(estimation::kNowActive)})
        if (!text.empty())
            dialogs::tell(text, "Parameters succuessfully applied", dialogs::Icon::Information);
    desk_.refresh();
}

void FitView::dropResults() {
    fit_.fitted = false;
    showResults();
}

void FitView::showResults() {
    rows_->showResults();
    quality_->showFit();
    graph_->showFit();
    // What the parts need is known once they have laid out themselves.
    for (const QWidget* part : std::initializer_list<QWidget*>{rows_, quality_, graph_})
        part->layout()->activate();
    fitWindow();
}

}  // namespace quor::gui
