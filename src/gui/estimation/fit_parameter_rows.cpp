#include "gui/estimation/fit_parameter_rows.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "common/numbers.h"
#include "estimation/fit_report.h"
#include "estimation/fit_run.h"
#include "estimation/fit_worth.h"
#include "gui/widgets/exact_copy.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

using estimation::FitModelRow;

constexpr auto kNone = " ---";
// The longest texts of a parameter, and of what says how uncertain it is.
constexpr auto kLongestParameter = "-0.00000000000E-000", kLongestDeviation = "± 0.000000E-000";

enum Column { kLabel, kStart, kFixed, kLeft, kResult, kStdDev, kInterval };

QString number(double value) {
    return qt(estimation::parameter_text(value));
}

QString rough(const std::optional<double>& value, const QString& sign = {}) {
    return value ? sign + qt(estimation::rough_text(*value)) : QString(kNone);
}

/// Wide enough for a text, with the edges of the field and the room that it keeps beside a text.
void setRoomFor(QLineEdit* field, const QString& longest) {
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(longest) +
                           field->sizeHint().height());
}

QLineEdit* output(const QString& name, const QString& longest) {
    auto* field = form::named(new QLineEdit, name);
    field->setReadOnly(true);
    field->setAlignment(Qt::AlignRight);
    field->setFocusPolicy(Qt::ClickFocus);
    setRoomFor(field, longest);
    return field;
}

QToolButton* arrow(const QString& text, const QString& name, const QString& tip) {
    auto* button = form::named(new QToolButton, name);
    button->setText(text);
    button->setToolTip(tip);
    return button;
}

/// Shows a number with its first digits in sight.
void showNumber(QLineEdit* field, const QString& text) {
    field->setText(text);
    field->setCursorPosition(0);
}

/// Writes a value back when it was typed; what still shows it keeps all digits.
void take(const NumberEdit* field, double& value) {
    if (field->text() != number(value)) value = field->value();
}

}  // namespace

FitParameterRows::FitParameterRows(estimation::FitState& fit, QWidget* parent)
    : QWidget(parent), fit_(fit) {
    auto* grid = form::grid(this);
    grid->setContentsMargins({});
    const auto head = [&](const QString& text, int column) {
        auto* label = form::label(text);
        grid->addWidget(label, 0, column, Qt::AlignHCenter);
        return label;
    };
    head("start value", kStart);
    head("fixed", kFixed);
    resultHeads_ = {nullptr, head("result", kResult), head("std. deviation", kStdDev),
                    head("95 % interval", kInterval)};
    leftAll_ = arrow("<<", "cmdLeftAll", " apply all result-parameters as new starting values ");
    connect(leftAll_, &QToolButton::clicked, this, &FitParameterRows::takeAllResults);
    grid->addWidget(leftAll_, 0, kLeft, Qt::AlignHCenter);
    for (int i = 0; i < estimation::kMaxPar; ++i)
        rows_[static_cast<std::size_t>(i)] = buildRow(grid, i);

    const auto below = [&](const QString& text, const QString& name, int row, QLabel*& caption,
                           NumberEdit*& field) {
        field = form::named(new NumberEdit, name);
        caption = form::caption(text, field);
        grid->addWidget(caption, row, kLabel);
        grid->addWidget(field, row, kStart);
    };
    below("Tcr/K = ", "txtTcr", estimation::kMaxPar + 1, TcrCaption_, Tcr_);
    below("pcr/kPa = ", "txtpcr", estimation::kMaxPar + 2, pcrCaption_, pcr_);
    Tcr_->setQuantity(models::Dimension::temperature, {1, 0, "K"}, models::Fluid());
    pcr_->setQuantity(models::Dimension::pressure, {1, 0, "kPa"}, models::Fluid());
    for (NumberEdit* field : {Tcr_, pcr_})
        connect(field, &QLineEdit::editingFinished, this, &FitParameterRows::finishCritical);
    grid->setRowStretch(estimation::kMaxPar + 3, 1);
    grid->setColumnStretch(kResult, 1);
    keepPlaces();
}

// Results come and go without moving anything else.
void FitParameterRows::keepPlaces() {
    const auto keep = [](QWidget* part) {
        if (part == nullptr) return;
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        part->setSizePolicy(policy);
    };
    for (QWidget* head : resultHeads_) keep(head);
    keep(leftAll_);
    for (const Row& row : rows_)
        for (QWidget* part :
             std::initializer_list<QWidget*>{row.result, row.stdDev, row.interval, row.left})
            keep(part);
}

FitParameterRows::Row FitParameterRows::buildRow(QGridLayout* grid, int i) {
    const QString index = QString("_%1").arg(i);
    Row row{};
    row.start = form::named(new NumberEdit, "txtStart" + index);
    setRoomFor(row.start, kLongestParameter);
    row.label = form::caption({}, row.start);
    row.label->setObjectName("lblPar" + index);
    row.fixed = form::named(new QCheckBox, "chkFix" + index);
    row.fixed->setToolTip(" held at its start value ");
    row.result = output("txtResult" + index, kLongestParameter);
    row.stdDev = output("txtStdDev" + index, kLongestDeviation);
    row.interval = output("txtInterval" + index, kLongestDeviation);
    const auto copies = [this, i](QLineEdit* field, const estimation::Parameters& values) {
        copyExactly(field, [field, &value = values[static_cast<std::size_t>(i)]] {
            return field->text() == number(value) ? std::optional(value) : std::nullopt;
        });
    };
    copies(row.start, fit_.start);
    copies(row.result, fit_.parameters);
    row.left = arrow("<", "cmdleft" + index, " apply result as new starting value ");
    connect(row.start, &QLineEdit::editingFinished, this, [this, i] { finishStart(i); });
    connect(row.fixed, &QCheckBox::clicked, this, [this, i](bool on) { fix(i, on); });
    connect(row.left, &QToolButton::clicked, this, [this, i] { takeResult(i); });
    const int line = i + 1;
    grid->addWidget(row.label, line, kLabel);
    grid->addWidget(row.start, line, kStart);
    grid->addWidget(row.fixed, line, kFixed, Qt::AlignHCenter);
    grid->addWidget(row.left, line, kLeft, Qt::AlignHCenter);
    grid->addWidget(row.result, line, kResult);
    grid->addWidget(row.stdDev, line, kStdDev);
    grid->addWidget(row.interval, line, kInterval);
    return row;
}

void FitParameterRows::showSettings() {
    const FitModelRow* model = estimation::find_model(fit_.model);
    if (model == nullptr) return;
    for (int i = 0; i < estimation::kMaxPar; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const bool used = i < model->parameter_count;
        Row& row = rows_[k];
        row.label->setText(qt(model->labels[k]));
        row.fixed->setChecked(fit_.fixed[k]);
        if (!used) fit_.start[k] = 0;
        // A parameter that follows from the others cannot be chosen.
        row.fixed->setEnabled(model->computed != i);
        for (QWidget* part : std::initializer_list<QWidget*>{row.label, row.start, row.fixed})
            part->setVisible(used);
        shade(i);
    }
    for (QWidget* part : std::initializer_list<QWidget*>{TcrCaption_, Tcr_})
        part->setVisible(model->needs_Tcr);
    for (QWidget* part : std::initializer_list<QWidget*>{pcrCaption_, pcr_})
        part->setVisible(model->needs_pcr);
    Tcr_->setText(number(fit_.Tcr));
    pcr_->setText(number(fit_.pcr));
    showStartValues();
}

void FitParameterRows::showStartValues() {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const bool used = static_cast<int>(i) < fit_.parameter_count;
        showNumber(rows_[i].start, used ? number(fit_.start[i]) : " 0");
    }
}

void FitParameterRows::showResults() {
    const FitModelRow* model = estimation::find_model(fit_.model);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const Row& row = rows_[i];
        const bool used = fit_.fitted && static_cast<int>(i) < fit_.parameter_count;
        const bool computed = model != nullptr && model->computed == static_cast<int>(i);
        for (QWidget* part :
             std::initializer_list<QWidget*>{row.result, row.stdDev, row.interval, row.left})
            part->setVisible(used);
        if (!used) continue;
        showNumber(row.result, number(fit_.parameters[i]));
        row.stdDev->setText(computed ? QString() : rough(standard_deviation(fit_, i)));
        const bool adjusted = !fit_.fixed[i] && !computed;
        row.interval->setText(adjusted ? rough(interval95(fit_, i), "± ") : QString());
    }
    for (QWidget* head : resultHeads_)
        if (head != nullptr) head->setVisible(fit_.fitted);
    leftAll_->setVisible(fit_.fitted);
}

void FitParameterRows::read() {
    for (int i = 0; i < fit_.parameter_count; ++i) finishStart(i);
    finishCritical();
}

void FitParameterRows::finish(NumberEdit* field, double& value, const QString& step) {
    const double before = value;
    take(field, value);
    if (field->isUndoAvailable()) field->setText(field->text());
    if (value != before) Q_EMIT changed(step);
}

void FitParameterRows::finishStart(int i) {
    const auto k = static_cast<std::size_t>(i);
    finish(rows_[k].start, fit_.start[k], "Change start value " + nameOf(i));
}

void FitParameterRows::finishCritical() {
    double Tcr = fit_.Tcr;
    take(Tcr_, Tcr);
    if (Tcr_->isUndoAvailable()) Tcr_->setText(Tcr_->text());
    if (Tcr != fit_.Tcr) {
        estimation::change_Tcr(fit_, Tcr);
        showStartValues();
        Q_EMIT changed("Change Tcr");
    }
    finish(pcr_, fit_.pcr, "Change pcr");
}

QString FitParameterRows::nameOf(int i) const {
    return rows_[static_cast<std::size_t>(i)].label->text().section('=', 0, 0).trimmed();
}

void FitParameterRows::fix(int i, bool fixed) {
    const auto k = static_cast<std::size_t>(i);
    finishStart(i);
    fit_.fixed[k] = fixed;
    if (rows_[k].start->text().trimmed().isEmpty()) rows_[k].start->setText(" 0.");
    shade(i);
    Q_EMIT changed(nameOf(i) + (fixed ? " fixed" : " free"));
}

// The row of a fixed parameter is grey; its start value can still be typed.
void FitParameterRows::shade(int i) {
    const auto k = static_cast<std::size_t>(i);
    QPalette colours;
    if (fit_.fixed[k]) {
        colours.setColor(QPalette::Text, theme::quietColour());
        colours.setColor(QPalette::WindowText, theme::quietColour());
    }
    for (QWidget* part : std::initializer_list<QWidget*>{rows_[k].label, rows_[k].start})
        part->setPalette(colours);
}

void FitParameterRows::takeResult(int i) {
    read();
    estimation::take_result_as_start(fit_, i);
    const auto k = static_cast<std::size_t>(i);
    showNumber(rows_[k].start, number(fit_.start[k]));
    Q_EMIT changed("Result as start value " + nameOf(i));
}

void FitParameterRows::takeAllResults() {
    read();
    estimation::take_all_results_as_start(fit_);
    showStartValues();
    Q_EMIT changed("Results as start values");
}

}  // namespace quor::gui
