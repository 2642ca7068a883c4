#include "gui/estimation/fit_quality_frame.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "common/numbers.h"
#include "estimation/fit_report.h"
#include "estimation/fit_run.h"
#include "estimation/fit_worth.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

using estimation::FitModelRow;

constexpr int kCellPadding = 6;

/// The name of a parameter without what follows it on its label.
QString shortLabel(const FitModelRow& row, std::size_t i) {
    return qt(row.labels[i]).section(' ', 0, 0);
}

}  // namespace

FitQualityFrame::FitQualityFrame(const estimation::FitState& fit, QWidget* parent)
    : QGroupBox(parent), fit_(fit) {
    setObjectName("fraFQS");
    sumOfSquares_ = form::named(form::label(), "lblSQ");
    sR_ = form::named(form::label(), "lblsR");
    for (QLabel* figure : {sumOfSquares_, sR_}) {
        figure->setFont(theme::fixedPitch());
        figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    deviations_ = form::named(form::label(), "lblDeviations");
    explanation_ = form::named(form::note(), "lblExplanation");
    notes_ = form::named(form::label(), "lblNotes");
    notes_->setWordWrap(true);
    QPalette colours = notes_->palette();
    colours.setColor(QPalette::WindowText, theme::errorColour());
    notes_->setPalette(colours);

    correlationCaption_ = form::label("correlation of the parameters");
    correlation_ = form::named(new QTableWidget, "tblCorrelation");
    correlation_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    correlation_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    correlation_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    correlation_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    correlation_->verticalHeader()->setDefaultSectionSize(correlation_->fontMetrics().height() +
                                                          kCellPadding);

    auto* figures = new QHBoxLayout;
    figures->setSpacing(theme::kGroupGap);
    figures->addWidget(sumOfSquares_);
    figures->addWidget(sR_);
    figures->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kGap, theme::kGap, theme::kGap, theme::kGap);
    layout->setSpacing(theme::kGap);
    layout->addLayout(figures);
    layout->addWidget(deviations_);
    layout->addWidget(notes_);
    layout->addWidget(explanation_);
    layout->addWidget(correlationCaption_);
    layout->addWidget(correlation_);
}

void FitQualityFrame::showFit() {
    setVisible(fit_.fitted);
    if (!fit_.fitted) return;
    const estimation::QualityTexts texts = estimation::quality_of(fit_);
    setTitle(form::captionOf(qt(texts.caption)));
    sumOfSquares_->setText(qt(texts.sum_of_squares));
    sR_->setText(qt(texts.residual_deviation));
    explanation_->setText(qt(texts.explain_sum_of_squares) + "\n" +
                          qt(texts.explain_residual_deviation) + "\n" + qt(texts.symbols));
    deviations_->setText(qt(estimation::deviation_text(fit_.report)));
    deviations_->setVisible(!deviations_->text().isEmpty());
    QStringList notes;
    if (is_worthless(fit_)) notes << "This fit is worthless:";
    for (const estimation::FitNote& note : estimation::fit_notes(fit_)) notes << qt(note.text);
    notes_->setText(notes.join('\n'));
    notes_->setVisible(!notes.isEmpty());
    showCorrelation();
}

void FitQualityFrame::showCorrelation() {
    const FitModelRow* model = estimation::find_model(fit_.model);
    const estimation::FitReport& report = fit_.report;
    correlation_->setVisible(report.has_correlation);
    correlationCaption_->setVisible(report.has_correlation);
    if (model == nullptr || !report.has_correlation) return;
    std::vector<std::size_t> adjusted;
    QStringList names;
    for (std::size_t i = 0; i < static_cast<std::size_t>(model->parameter_count); ++i) {
        if (report.correlation[i][i] == 0) continue;
        adjusted.push_back(i);
        names << shortLabel(*model, i);
    }
    const int n = static_cast<int>(adjusted.size());
    correlation_->setRowCount(n);
    correlation_->setColumnCount(n);
    correlation_->setHorizontalHeaderLabels(names);
    correlation_->setVerticalHeaderLabels(names);
    for (int row = 0; row < n; ++row)
        for (int column = 0; column < n; ++column) {
            const double r = report.correlation[adjusted[static_cast<std::size_t>(row)]]
                                               [adjusted[static_cast<std::size_t>(column)]];
            auto* cell = new QTableWidgetItem(qt(numbers::format(r, "0.0000;-0.0000")));
            cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            correlation_->setItem(row, column, cell);
        }
    const int height = correlation_->horizontalHeader()->sizeHint().height() +
                       n * correlation_->verticalHeader()->defaultSectionSize() +
                       2 * correlation_->frameWidth();
    correlation_->setFixedHeight(height);
}

}  // namespace quor::gui
