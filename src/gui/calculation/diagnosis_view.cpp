#include "gui/calculation/diagnosis_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/numbers.h"
#include "common/text.h"
#include "gui/calculation/isotherm_plot.h"
#include "gui/widgets/form.h"
#include "gui/widgets/print_page.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/model_tables.h"
#include "report/diagnosis.h"

namespace quor::gui {

namespace {

// General format of a 32-bit value: enough digits for a reader.
QString shown(double value) {
    return qt(numbers::general(static_cast<float>(value)));
}

QString stateText(const models::Fluid& fluid, const report::Diagnosis& d) {
    if (d.roots.empty()) return {};
    return qt(text::trim(models::eos_name(fluid.models().eos))) + ",  T = " + shown(d.T) +
           " K,  p = " + shown(d.p) + " kPa";
}

QString legendText(const report::Diagnosis& d) {
    if (d.roots.empty()) return {};
    const QString marks = "dashed: p; full mark: stable root; empty mark: unstable or metastable";
    if (!(d.saturation_pressure > 0)) return marks;
    return marks + "\ndotted: p(LV) = " + shown(d.saturation_pressure) +
           " kPa, which makes the two coloured areas equal";
}

}  // namespace

DiagnosisView::DiagnosisView(Desk& desk, QWidget* parent)
    : ChildView(desk, "frmCEOSDiagnose", parent) {
    setWindowIcon(theme::icon("calculate"));
    state_ = form::named(form::label(), "lblState");
    plot_ = new IsothermPlot;
    legend_ = form::named(form::note(), "lblLegend");
    auto* grid = form::grid();
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(theme::kGroupGap);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const auto label = [&](const char* name, int column) {
            auto* one = form::named(form::label(), QString("%1_%2").arg(name).arg(i + 1));
            one->setTextInteractionFlags(Qt::TextSelectableByMouse);
            one->setFont(theme::fixedPitch());
            grid->addWidget(one, static_cast<int>(i), column);
            return one;
        };
        rows_[i] = {label("lblRoot", 0), label("lblVolume", 1), label("lblNote", 2)};
        rows_[i].value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    grid->setColumnStretch(2, 1);
    QPushButton* close = form::button("Close", "cmdClose");
    connect(close, &QPushButton::clicked, this, &ChildView::closeView);
    setDefaultButton(close);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGap);
    layout->addWidget(state_);
    layout->addWidget(plot_, 1);
    layout->addWidget(legend_);
    layout->addSpacing(theme::kGap);
    layout->addLayout(grid);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addStretch(1);
    buttons->addWidget(printButton([this] { print(); }));
    buttons->addWidget(close);
    layout->addLayout(buttons);
    open();
}

void DiagnosisView::print() {
    const report::Report& told = session_->results.current.report;
    printing::print(printing::pageWith([this](QPainter& painter) { plot_->paint(painter); },
                                       plot_->size(), windowTitle(),
                                       qt(report::head_as_text(told)) + '\n' + form::textOf(this)),
                    window());
}

void DiagnosisView::open() {
    const report::TaskResult& result = session_->results.current;
    const report::Diagnosis diagnosis = report::diagnose(result.made.fluid, result.answer.last);
    setWindowTitle(form::titleOf(qt(diagnosis.title)));
    state_->setText(stateText(result.made.fluid, diagnosis));
    legend_->setText(legendText(diagnosis));
    plot_->showDiagnosis(diagnosis);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const bool there = i < diagnosis.roots.size();
        const report::RootRow root = there ? diagnosis.roots[i] : report::RootRow{};
        rows_[i].caption->setText(qt(root.caption));
        rows_[i].value->setText(qt(root.value));
        rows_[i].note->setText(qt(root.note));
        for (QLabel* label : {rows_[i].caption, rows_[i].value, rows_[i].note})
            label->setVisible(there);
    }
}

}  // namespace quor::gui
