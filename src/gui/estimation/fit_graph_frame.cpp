#include "gui/estimation/fit_graph_frame.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "gui/chart/chart2d_plot.h"
#include "gui/chart/picture_export.h"
#include "gui/estimation/fit_chart.h"
#include "gui/widgets/child_view.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr QSize kLeastChart(380, 200);
constexpr QSizeF kPrinted(640, 420);
constexpr int kValueDigits = 10;

QString general(double value) {
    return QString::fromStdString(numbers::general(value)).trimmed();
}

}  // namespace

FitGraphFrame::FitGraphFrame(const estimation::FitState& fit, QWidget* parent)
    : QGroupBox("Graph", parent), fit_(fit) {
    setObjectName("fraGraph");
    plot_ = form::named(new chart::Chart2DPlot, "chart");
    plot_->setMinimumSize(kLeastChart);
    plot_->show2D(&chart_);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    const auto button = [&](const QString& text, const QString& name,
                            void (FitGraphFrame::*run)()) {
        QPushButton* push = form::button(text, name);
        connect(push, &QPushButton::clicked, this, run);
        buttons->addWidget(push);
    };
    button("&Function", "cmdGraphFunction", &FitGraphFrame::showFunction);
    button("&Residuals", "cmdGraphResid", &FitGraphFrame::showResiduals);
    relative_ = form::named(new QCheckBox("relati&ve"), "chkRelative");
    relative_->setToolTip(" residuals in per cent of the measured values ");
    connect(relative_, &QCheckBox::clicked, this, &FitGraphFrame::showResiduals);
    buttons->addWidget(relative_);
    button("&ln p over 1/T", "cmdGraphLnp", &FitGraphFrame::showLnp);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kGap, theme::kGap, theme::kGap, theme::kGap);
    layout->setSpacing(theme::kGap);
    layout->addLayout(buttons);
    layout->addWidget(plot_, 1);
    layout->addWidget(buildCalculator());
}

QWidget* FitGraphFrame::buildCalculator() {
    auto* box = new QWidget;
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins({});
    layout->setSpacing(theme::kGap);
    direction_[0] = form::named(new QRadioButton("y from T"), "optCalc_0");
    direction_[1] = form::named(new QRadioButton("T from y"), "optCalc_1");
    direction_[0]->setChecked(true);
    value_ = form::named(new NumberEdit, "txtXY");
    value_->setProperty(kTakesReturn, true);
    connect(value_, &QLineEdit::returnPressed, this, &FitGraphFrame::calculate);
    connect(value_, &QLineEdit::textEdited, this, [this] { result_->clear(); });
    QPushButton* run = form::button("Calculate <Enter>", "cmdCalc");
    connect(run, &QPushButton::clicked, this, &FitGraphFrame::calculate);
    result_ = form::named(form::label(), "lblCalc");
    result_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QRadioButton* one : direction_) {
        layout->addWidget(one);
        connect(one, &QRadioButton::clicked, this, [this] { result_->clear(); });
    }
    value_->setMinimumWidth(value_->fontMetrics().horizontalAdvance('0') * kValueDigits);
    layout->addWidget(value_);
    layout->addWidget(run);
    layout->addWidget(result_, 1);
    return box;
}

void FitGraphFrame::showFit() {
    setVisible(fit_.fitted);
    result_->clear();
    if (fit_.fitted) showFunction();
}

std::string FitGraphFrame::drawing() const {
    return chart::pictureBytes(chart::paintingOf(chart_), chart::PictureFormat::Svg,
                               {.size = kPrinted, .title = "Fitting"})
        .toStdString();
}

void FitGraphFrame::display(chart::Chart2D chart) {
    chart_ = std::move(chart);
    plot_->show2D(&chart_);
}

void FitGraphFrame::showFunction() {
    display(estimation::chartOf(estimation::function_graph(fit_), false));
}

void FitGraphFrame::showResiduals() {
    const auto kind =
        relative_->isChecked() ? estimation::Residuals::Relative : estimation::Residuals::Absolute;
    display(estimation::chartOf(estimation::residual_graph(fit_, kind), true));
}

void FitGraphFrame::showLnp() {
    const Result<estimation::FitGraph> graph = estimation::lnp_graph(fit_);
    if (graph)
        display(estimation::chartOf(*graph, false));
    else
        dialogs::tell(graph.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
}

void FitGraphFrame::calculate() {
    if (!value_->holdsNumber()) {
        value_->setMark("A number is needed here.");
        value_->setFocus();
        return;
    }
    const bool forward = direction_[0]->isChecked();
    const Result<double> result = forward ? estimation::fitted_y(fit_, value_->value())
                                          : estimation::fitted_x(fit_, value_->value());
    if (!result) dialogs::tell(result.reason(), "Error", dialogs::Icon::Stop);
    result_->setText(result ? (forward ? "y = " : "T = ") + general(*result) : QString());
}

}  // namespace quor::gui
