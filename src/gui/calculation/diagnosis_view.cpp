#include "gui/calculation/diagnosis_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/calculation/isotherm_plot.h"
#include "gui/widgets/form.h"
#include "gui/widgets/print_page.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/unit_text.h"
#include "report/diagnosis.h"
#include "report/quantity_text.h"

namespace quor::gui {

namespace {

// Units with superscripts, where they are of the user's choice.
QString pretty(const models::Units& units, const std::string& text) {
    return qt(report::has_own_units(units) ? models::pretty_unit(text) : text);
}

}  // namespace

DiagnosisView::DiagnosisView(Desk& desk, QWidget* parent)
    : ChildView(desk, "frmCEOSDiagnose", parent), FollowsSession(desk.session()) {
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

void DiagnosisView::followSession() {
    if (session_->results.current.made.units != units_) open();
}

void DiagnosisView::open() {
    const report::TaskResult& result = session_->results.current;
    units_ = result.made.units;
    const report::Diagnosis diagnosis =
        report::diagnose(result.made.fluid, result.answer.last, units_);
    setWindowTitle(form::titleOf(qt(diagnosis.title)));
    state_->setText(pretty(units_, diagnosis.state));
    legend_->setText(pretty(units_, diagnosis.legend));
    plot_->showDiagnosis(diagnosis);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const bool there = i < diagnosis.roots.size();
        const report::RootRow root = there ? diagnosis.roots[i] : report::RootRow{};
        rows_[i].caption->setText(qt(root.caption));
        rows_[i].value->setText(pretty(units_, root.value));
        rows_[i].note->setText(qt(root.note));
        for (QLabel* label : {rows_[i].caption, rows_[i].value, rows_[i].note})
            label->setVisible(there);
    }
}

}  // namespace quor::gui
