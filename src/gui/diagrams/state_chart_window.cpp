#include "gui/diagrams/state_chart_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

#include "common/dialogs.h"
#include "diagrams/sheet_file.h"
#include "gui/chart/picture_commands.h"
#include "gui/chart/picture_export.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "models/reference_state.h"
#include "session/diagram_choice.h"

namespace quor::gui {

namespace {

using diagrams::ChartQuantity;

constexpr QSize kFirstSize(960, 700);
constexpr auto kHint =
    "Point at a state to read it     Drag: zoom     Wheel: zoom about the pointer";
constexpr std::array kPossible = {ChartQuantity::T, ChartQuantity::p, ChartQuantity::v,
                                  ChartQuantity::h, ChartQuantity::s};

}  // namespace

StateChartWindow::StateChartWindow(Desk& desk, diagrams::ChartKind kind)
    : ChartWindow(desk, "frmStateChart", "graph2d"), FollowsSession(desk.session()), kind_(kind) {
    canvas_ = new chart::Chart2DWidget(chart_, this);
    canvas_->setObjectName("chart");
    setCentralWidget(canvas_);
    setFocusProxy(canvas_);
    status_->setText(kHint);
    buildMenus();
    buildBar();
    connect(canvas_, &chart::Chart2DWidget::mouseMoved, this, &StateChartWindow::showState);
    connect(canvas_, &chart::Chart2DWidget::windowChanged, this, [this] {
        // Lines are computed for the window that is seen.
        const chart::Window seen = chart::shown_window(chart_);
        window_ = {seen.x.min, seen.x.max, seen.y.min, seen.y.max};
        compute();
    });
    resize(kFirstSize);
    choose(static_cast<int>(kind));
}

void StateChartWindow::openFromMenu(Desk& desk) {
    const bool others = desk.lastUsed<StateChartWindow>() != nullptr;
    const auto kind = static_cast<diagrams::ChartKind>(desk.session()->state_chart);
    (new StateChartWindow(desk, kind))->open(others);
}

void StateChartWindow::buildBar() {
    QToolBar* bar = addToolBar("Chart");
    bar->setObjectName("barChart");
    bar->setMovable(false);
    kinds_ = form::named(new QComboBox, "cmbChart");
    kinds_->setAccessibleName("chart");
    for (const diagrams::StateChartKind& row : diagrams::state_chart_kinds())
        kinds_->addItem(qt(std::string(row.title)));
    connect(kinds_, &QComboBox::activated, this, &StateChartWindow::choose);
    bar->addWidget(kinds_);
    bar->addSeparator();
    bar->addWidget(form::label(" Lines of constant "));
    for (std::size_t i = 0; i < families_.size(); ++i) {
        const QString name = qt(std::string(diagrams::name_of(kPossible[i])));
        families_[i] = form::named(new QCheckBox(name), "chkFamily_" + name);
        connect(families_[i], &QCheckBox::clicked, this, &StateChartWindow::compute);
        bar->addWidget(families_[i]);
    }
}

void StateChartWindow::buildMenus() {
    const auto picture = [this] {
        return picture_commands::Picture{chart::paintingOf(chart_), chart_.print, windowTitle()};
    };
    menus_.addMenu(
        {.caption = "&Chart",
         .name = "mnuChart",
         .rows = {{.caption = "&Whole chart",
                   .name = "mnuChartFit",
                   .run = [this] { fit(); },
                   .shortcut = QKeySequence("Ctrl+0")},
                  {.caption = "&Save as *.oc2 ...", .name = "mnuChartSave", .run = [this] {
                       diagrams::DiagramSheet sheet;
                       sheet.chart = chart_;
                       diagrams::save_oc2(sheet, session_->folder_diagrams,
                                          windowTitle().toStdString());
                   }}}});
    menus_.addMenu({.caption = "&Picture",
                    .name = "mnuPicture",
                    .rows = {{.caption = "&Copy",
                              .name = "mnuPictureCopy",
                              .run = [picture] { picture_commands::copy(picture()); },
                              .shortcut = QKeySequence::Copy},
                             {.caption = "&Save as ...",
                              .name = "mnuPictureSave",
                              .run =
                                  [this, picture] {
                                      picture_commands::save(picture(), session_->folder_diagrams);
                                  }},
                             {.caption = "&Print ...",
                              .name = "mnuPicturePrint",
                              .run = [this, picture] { picture_commands::print(picture(), this); },
                              .shortcut = QKeySequence::Print}}});
}

// Another kind begins with its own families, in its own window.
void StateChartWindow::choose(int kind) {
    const diagrams::StateChartKind& row =
        diagrams::state_chart_kinds()[static_cast<std::size_t>(kind)];
    kind_ = row.kind;
    kinds_->setCurrentIndex(kind);
    for (std::size_t i = 0; i < families_.size(); ++i) {
        families_[i]->setChecked(std::ranges::find(row.families, kPossible[i]) !=
                                 row.families.end());
        const bool axis = row.x.quantity == kPossible[i] || row.y.quantity == kPossible[i];
        families_[i]->setEnabled(!axis);
    }
    fit();
}

void StateChartWindow::fit() {
    window_.reset();
    compute();
}

void StateChartWindow::followSession() {
    const diagrams::Pen pen = session::present_pen(session_);
    const bool same = basis_ && basis_->fluid == pen.basis.fluid &&
                      basis_->reference == pen.basis.reference && basis_->units == pen.basis.units;
    if (same) return;
    // A window of other units or another fluid says nothing of the present one.
    fit();
}

void StateChartWindow::compute() {
    basis_ = session::present_pen(session_).basis;
    models::settle_reference(basis_->reference);
    flash_.reset();
    diagrams::StateChartRequest request{.kind = kind_, .window = window_};
    for (std::size_t i = 0; i < families_.size(); ++i)
        if (families_[i]->isEnabled() && families_[i]->isChecked())
            request.families.push_back({kPossible[i], {}});
    const auto made =
        diagrams::state_chart(basis_->fluid, basis_->reference, basis_->units, request);
    if (made) {
        chart_ = diagrams::chart_of(*made, *basis_);
        flash_ = std::make_unique<models::Flash>(
            basis_->fluid, basis_->reference,
            models::surroundings_state(basis_->fluid, basis_->reference));
        status_->setText(made->skipped.empty() ? QString(kHint) : qt(made->skipped.front()));
        QStringList skipped;
        for (const std::string& reason : made->skipped) skipped << qt(reason);
        status_->setToolTip(form::tip(skipped.join('\n')));
    } else {
        chart_ = chart::Chart2D();
        chart_.header.text = made.reason();
        status_->setText(qt(made.reason()));
    }
    canvas_->forgetZoom();
    const std::string& name = basis_->fluid.substance().name;
    setCaption(qt(std::string(diagrams::row_of(kind_).title) + " chart of " + name), {});
    canvas_->refresh();
}

void StateChartWindow::showState(const chart::ChartHit& hit) {
    if (!flash_ || !hit.inPlot) return status_->setText(kHint);
    const auto state = diagrams::state_at(*flash_, kind_, hit.x, hit.y, basis_->units);
    status_->setText(state ? qt(diagrams::state_text(*state, basis_->units))
                           : QString("no stable state of this model here"));
}

}  // namespace quor::gui
