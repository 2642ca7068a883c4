#include "gui/diagrams/design_panel.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>

#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_window.h"
#include "gui/chart/chart_qt.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

using chart::Group;

constexpr int kShiftSteps = 100;

template <class Names>
QStringList list(const Names& names) {
    QStringList all;
    for (const std::string_view name : names) all << qt(name);
    return all;
}

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

QTabBar* placeTabs(const QString& name) {
    auto* bar = form::named(new QTabBar, name);
    bar->setUsesScrollButtons(true);
    bar->setExpanding(false);
    bar->setDrawBase(false);
    return bar;
}

/// One tab a place; those of free places are hidden, and what has come last is in front.
template <class IsUsed>
void showTabs(QTabBar* bar, const QString& prefix, int places, IsUsed isUsed) {
    while (bar->count() < places) {
        bar->addTab(prefix + QString::number(bar->count() + 1));
        bar->setTabVisible(bar->count() - 1, false);
    }
    for (int place = 0; place < bar->count(); ++place) {
        if (bar->isTabVisible(place) == isUsed(place)) continue;
        bar->setTabVisible(place, isUsed(place));
        if (isUsed(place)) bar->setCurrentIndex(place);
    }
}

}  // namespace

DesignPanel::DesignPanel(diagrams::DiagramSheet& sheet, QWidget* parent)
    : DesignControls(parent), sheet_(sheet) {
    curvePage();
    pointPage();
    axisPage();
    textPage();
    legendPage();
    morePage();
    follow();
}

// ------------------------------------------------------------------------------------ what is
// shown

void DesignPanel::follow() {
    loading_ = true;
    showTabs(curves_, "C. ", static_cast<int>(sheet_.curves.size()),
             [this](int place) { return diagrams::is_drawn(sheet_, place); });
    showTabs(points_, "P. ", static_cast<int>(sheet_.point_sets.size()),
             [this](int place) { return diagrams::has_point_set(sheet_, place); });
    fillTextList();
    for (const Load& load : loads_) load();
    loading_ = false;
}

int DesignPanel::curve() const {
    const int place = curves_->currentIndex();
    return diagrams::is_drawn(sheet_, place) ? place : -1;
}

int DesignPanel::pointSet() const {
    const int place = points_->currentIndex();
    return diagrams::has_point_set(sheet_, place) ? place : -1;
}

void DesignPanel::showCurve(int place) {
    follow();
    showPage("curves");
    if (diagrams::is_drawn(sheet_, place)) curves_->setCurrentIndex(place);
}

void DesignPanel::showPointSet(int place) {
    follow();
    showPage("points");
    if (diagrams::has_point_set(sheet_, place)) points_->setCurrentIndex(place);
}

void DesignPanel::showHit(const chart::ChartHit& hit) {
    using chart::ChartPart;
    switch (hit.part) {
        case ChartPart::Curve:
            return diagrams::is_drawn(sheet_, hit.series) ? showCurve(hit.series)
                                                          : showPage("more");
        case ChartPart::PointSet:
            return diagrams::has_point_set(sheet_, hit.series) ? showPointSet(hit.series)
                                                               : showPage("more");
        case ChartPart::Label: {
            const int place = diagrams::curve_place_of(sheet_.chart.labels[at(hit.label)]);
            if (place >= 0) return showCurve(place);
            showPage("texts");
            texts_->setCurrentIndex(hit.label);
            return;
        }
        case ChartPart::Legend:
            return showPage("legend");
        case ChartPart::Header:
        case ChartPart::Footer:
            return showPage("texts");
        case ChartPart::AxisX:
        case ChartPart::AxisY:
        case ChartPart::AxisY2:
            return showPage("axes");
        default:
            return showPage("more");
    }
}

chart::Series* DesignPanel::series(Group group) const {
    const int place = group == Group::Curves ? curve() : pointSet();
    return place < 0 ? nullptr : &chart::series_at(sheet_.chart, group, place);
}

// ------------------------------------------------------------------------------------------- pages

void DesignPanel::curvePage() {
    QFormLayout* into = page("curves", "Curves");
    curves_ = placeTabs("tabKurven");
    connect(curves_, &QTabBar::currentChanged, this, [this] {
        if (!loading_) follow();
    });
    into->addRow(curves_);
    const auto ofCurve = [this](auto member) {
        return [this, member] {
            chart::Series* s = series(Group::Curves);
            return s == nullptr ? nullptr : &(s->*member);
        };
    };
    const auto label = ofCurve(&chart::Series::label);
    const Field<chart::Series> any = [this] { return series(Group::Curves); };
    text(into, "Legend text", "txtLegend", ofCurve(&chart::Series::legend));
    check(into, "in the legend", "chkLegend1", ofCurve(&chart::Series::in_legend));
    text(into, "Label", "txtLabel",
         [label] { return label() == nullptr ? nullptr : &label()->text; });
    check(into, "label shown", "chkEinzelLabelSichtbar",
          [label] { return label() == nullptr ? nullptr : &label()->shown; });

    auto* shift = form::named(new QSlider(Qt::Horizontal), "scrShiftLab");
    shift->setRange(0, kShiftSteps);
    connect(shift, &QSlider::valueChanged, this, [this, label](int value) {
        if (loading_ || label() == nullptr) return;
        label()->shift = static_cast<double>(value) / kShiftSteps;
        apply();
    });
    loads_.push_back([shift, label] {
        shift->setEnabled(label() != nullptr);
        const double place = label() == nullptr || label()->shift < 0 ? 0.5 : label()->shift;
        shift->setValue(static_cast<int>(std::lround(place * kShiftSteps)));
    });
    into->addRow("Shift label", shift);

    colour(into, "Colour", "cmdKurvenFarbe", [this]() -> chart::Colour* {
        chart::Series* s = series(Group::Curves);
        if (s == nullptr) return nullptr;
        return &s->line.colour;
    });
    choice(
        into, "Style", "cmbKStil", list(chart::kLinePatternNames),
        [any] { return any() == nullptr ? -1 : static_cast<int>(any()->line.pattern); },
        [any](int index) {
            if (any() != nullptr) any()->line.pattern = static_cast<chart::LinePattern>(index);
        });
    number(
        into, "Width", "UpDown1_KBreite", 0.5, 12, 0.5,
        [any] { return static_cast<double>(any()->line.width); },
        [any](double value) { any()->line.width = static_cast<float>(value); }, any);
    // Single points have the colour of the line.
    loads_.push_back([any] {
        if (any() != nullptr) any()->symbol_colour = any()->line.colour;
    });
}

void DesignPanel::pointPage() {
    QFormLayout* into = page("points", "Points");
    points_ = placeTabs("tabPunkte");
    connect(points_, &QTabBar::currentChanged, this, [this] {
        if (!loading_) follow();
    });
    into->addRow(points_);
    const Field<chart::Series> any = [this] { return series(Group::Points); };
    text(into, "Legend text", "txtLegPoints",
         [any] { return any() == nullptr ? nullptr : &any()->legend; });
    check(into, "in the legend", "chkLegend2",
          [any] { return any() == nullptr ? nullptr : &any()->in_legend; });
    colour(into, "Colour", "cmdPunktFarbe",
           [any] { return any() == nullptr ? nullptr : &any()->symbol_colour; });
    choice(
        into, "Symbol", "cmbPunktStil", list(chart::kSymbolNames),
        [any] { return any() == nullptr ? -1 : static_cast<int>(any()->symbol); },
        [any](int index) {
            if (any() != nullptr) any()->symbol = static_cast<chart::SymbolShape>(index);
        });
    number(
        into, "Size", "UpDown1_PointSize", 2, 40, 1,
        [any] { return static_cast<double>(any()->symbol_size); },
        [any](double value) { any()->symbol_size = static_cast<float>(value); }, any);
}

void DesignPanel::axisPage() {
    QFormLayout* into = page("axes", "Axes");
    axisGroup(into, true);
    axisGroup(into, false);
    QPushButton* standard = form::button("Standard origin", "optStandardOrigin");
    connect(standard, &QPushButton::clicked, this, [this] {
        sheet_.chart.x.automatic_origin = sheet_.chart.y.automatic_origin = true;
        apply();
    });
    into->addRow(standard);
    scalingGroup(into);
}

void DesignPanel::axisGroup(QFormLayout* into, bool xAxis) {
    const QString letter = xAxis ? "X" : "Y";
    const auto axis = [this, xAxis]() -> chart::Axis& {
        return xAxis ? sheet_.chart.x : sheet_.chart.y;
    };
    auto* box = form::frame(letter + " axis", "fra" + letter);
    auto* group = new QFormLayout(box);
    group->setLabelAlignment(Qt::AlignRight);
    colour(group, "Colour", "cmd" + letter + "Colour", [axis] { return &axis().colour; });
    font(group, "Numbers", "cmd" + letter + "Font", [axis] { return &axis().number_font; });
    check(group, "grid", "chk" + letter + "Grid", [axis] { return &axis().grid_shown; });
    colour(group, "Grid colour", "cmd" + letter + "GridColour",
           [axis] { return &axis().grid.colour; });
    QStringList patterns = list(chart::kLinePatternNames);
    for (QString& name : patterns) name.replace("Curve ", "");
    patterns[0] = "none";
    choice(
        group, "Grid style", "cmb" + letter + "Grid", patterns,
        [axis] { return static_cast<int>(axis().grid.pattern); },
        [axis](int index) { axis().grid.pattern = static_cast<chart::LinePattern>(index); });

    auto* own = form::named(new QCheckBox("other axis crosses at"), "opt" + letter + "Origin");
    connect(own, &QCheckBox::toggled, this, [this, axis](bool on) {
        if (loading_) return;
        axis().automatic_origin = !on;
        apply();
    });
    loads_.push_back([own, axis] { own->setChecked(!axis().automatic_origin); });
    group->addRow(QString(), own);
    auto* origin = form::named(new NumberEdit, "txt" + letter + "Origin");
    connect(origin, &QLineEdit::textEdited, this, [this, origin, axis] {
        if (!origin->holdsNumber()) return;
        axis().origin = origin->value();
        axis().automatic_origin = false;
        apply();
    });
    loads_.push_back([origin, axis] {
        if (!origin->hasFocus()) origin->setValue(axis().origin);
    });
    group->addRow("Origin at", origin);
    into->addRow(box);
}

void DesignPanel::scalingGroup(QFormLayout* into) {
    auto* box = form::frame("Grid, ticks, digits", "fraScaling");
    auto* group = new QFormLayout(box);
    group->setLabelAlignment(Qt::AlignRight);
    auto* automatic = form::named(new QRadioButton("by the chart"), "optScaling_0");
    auto* manual = form::named(new QRadioButton("by the values"), "optScaling_1");
    group->addRow(automatic);
    group->addRow(manual);
    for (QRadioButton* option : {automatic, manual})
        connect(option, &QRadioButton::clicked, this, &DesignPanel::applyScaling);
    loads_.push_back([this, automatic, manual] {
        (sheet_.manual_scaling ? manual : automatic)->setChecked(true);
    });
    struct Entry {
        const char* caption;
        const char* name;
        double chart::Axis::*value;
        bool xAxis;
    };
    for (const Entry& e : {Entry{"X ticks", "txtXTickValue", &chart::Axis::tick_spacing, true},
                           Entry{"Y ticks", "txtYTickValue", &chart::Axis::tick_spacing, false},
                           Entry{"X grid", "txtXGridValue", &chart::Axis::grid_spacing, true},
                           Entry{"Y grid", "txtYGridValue", &chart::Axis::grid_spacing, false}}) {
        auto* edit = form::named(new NumberEdit, e.name);
        connect(edit, &QLineEdit::textEdited, this, &DesignPanel::applyScaling);
        loads_.push_back([this, edit, e] {
            if (edit->hasFocus()) return;
            const chart::Axis& axis = e.xAxis ? sheet_.chart.x : sheet_.chart.y;
            if (axis.*e.value > 0) edit->setValue(axis.*e.value);
        });
        group->addRow(e.caption, edit);
    }
    for (const bool xAxis : {true, false}) {
        auto* edit = form::named(new NumberEdit, xAxis ? "txtXZiffValue" : "txtYZiffValue");
        connect(edit, &QLineEdit::textEdited, this, &DesignPanel::applyScaling);
        loads_.push_back([this, edit, xAxis] {
            const chart::Axis& axis = xAxis ? sheet_.chart.x : sheet_.chart.y;
            if (!edit->hasFocus() && axis.decimals >= 0) edit->setValue(axis.decimals);
        });
        group->addRow(xAxis ? "X digits" : "Y digits", edit);
    }
    into->addRow(box);
}

void DesignPanel::applyScaling() {
    if (loading_) return;
    const auto value = [this](const char* name) {
        const auto* edit = findChild<NumberEdit*>(name);
        return edit->holdsNumber() ? edit->value() : 0;
    };
    const auto digits = [this](const char* name) {
        const auto* edit = findChild<NumberEdit*>(name);
        return edit->holdsNumber() ? static_cast<int>(std::clamp(edit->value(), -1.0, 15.0)) : -1;
    };
    const bool manual = findChild<QRadioButton*>("optScaling_1")->isChecked();
    diagrams::set_scaling(
        sheet_, manual ? 1 : 0,
        {value("txtXTickValue"), value("txtYTickValue"), value("txtXGridValue"),
         value("txtYGridValue"), digits("txtXZiffValue"), digits("txtYZiffValue")});
    apply();
}

void DesignPanel::textPage() {
    QFormLayout* into = page("texts", "Titles");
    chart::Chart2D& c = sheet_.chart;
    text(
        into, "Header", "txtHeader", [&c] { return &c.header.text; }, true);
    font(into, "", "cmdHeaderFont", [&c] { return &c.header.font; });
    colour(into, "", "cmdHeaderColour", [&c] { return &c.header.colour; });
    check(into, "header centred", "chkHeaderAuto", [&c] { return &c.header.automatic; });
    text(
        into, "Footer", "txtFooter", [&c] { return &c.footer.text; }, true);
    font(into, "", "cmdFooterFont", [&c] { return &c.footer.font; });
    colour(into, "", "cmdFooterColour", [&c] { return &c.footer.colour; });
    check(into, "footer centred", "chkFooterAuto", [&c] { return &c.footer.automatic; });
    text(into, "X axis", "txtXTitle", [&c] { return &c.x.title; });
    font(into, "", "cmdXTitleFont", [&c] { return &c.x.title_font; });
    text(into, "Y axis", "txtYTitle", [&c] { return &c.y.title; });
    font(into, "", "cmdYTitleFont", [&c] { return &c.y.title_font; });

    texts_ = form::named(new QComboBox, "cmbTexts");
    connect(texts_, &QComboBox::currentIndexChanged, this, [this] {
        if (!loading_) follow();
    });
    into->addRow("Text", texts_);
    const auto label = [this]() -> chart::Label* {
        const int i = texts_->currentIndex();
        auto& labels = sheet_.chart.labels;
        return i >= 0 && at(i) < labels.size() ? &labels[at(i)] : nullptr;
    };
    text(into, "", "txtText", [label] { return label() == nullptr ? nullptr : &label()->text; });
    font(into, "", "cmdTextFont",
         [label] { return label() == nullptr ? nullptr : &label()->font; });
    colour(into, "", "cmdTextColour",
           [label] { return label() == nullptr ? nullptr : &label()->text_colour; });
    check(into, "frame", "chkTextFrame",
          [label] { return label() == nullptr ? nullptr : &label()->frame.shown; });
}

void DesignPanel::fillTextList() {
    QStringList all;
    for (const chart::Label& label : sheet_.chart.labels) all << qt(label.text).simplified();
    QStringList now;
    for (int i = 0; i < texts_->count(); ++i) now << texts_->itemText(i);
    if (all == now) return;
    const int kept = texts_->currentIndex();
    texts_->clear();
    texts_->addItems(all);
    if (kept >= 0 && kept < texts_->count()) texts_->setCurrentIndex(kept);
}

void DesignPanel::legendPage() {
    QFormLayout* into = page("legend", "Legend");
    chart::Legend& l = sheet_.chart.legend;
    check(into, "legend shown", "chkLegend", [&l] { return &l.shown; });
    choice(
        into, "Place", "cmbLegendPlace",
        {"where it hides least", "top left", "top", "top right", "right", "bottom right", "bottom",
         "bottom left", "left", "beside the diagram", "below the diagram", "free"},
        [&l] { return static_cast<int>(l.anchor); },
        [&l](int index) { l.anchor = static_cast<chart::LegendAnchor>(index); });
    check(into, "one below the other", "chkLegendVertical", [&l] { return &l.vertical; });
    font(into, "Font", "cmdLegendFont", [&l] { return &l.font; });
    colour(into, "Text", "cmdLegendColour", [&l] { return &l.text_colour; });
    colour(into, "Background", "cmdLegendBack", [&l] { return &l.background; });
    check(into, "frame", "chkLegendFrame", [&l] { return &l.frame.shown; });
    colour(into, "Frame colour", "cmdLegendFrame", [&l] { return &l.frame.colour; });
}

void DesignPanel::morePage() {
    QFormLayout* into = page("more", "More");
    chart::Chart2D& c = sheet_.chart;
    check(into, "curve labels and texts shown", "chkLabels", [&c] { return &c.labels_shown; });
    colour(into, "Plot area", "cmdPlotColour", [&c] { return &c.plot_area.background; });
    colour(into, "Sheet", "cmdSheetColour", [&c] { return &c.plot_area.sheet; });
    check(into, "frame of the plot area", "chkFrame", [&c] { return &c.plot_area.border.shown; });
    colour(into, "Frame colour", "cmdFrameColour", [&c] { return &c.plot_area.border.colour; });
    check(into, "frame of the sheet", "chkSheetFrame",
          [&c] { return &c.plot_area.sheet_border.shown; });
    printPlace(into, [&c] { return &c.print; });
}

}  // namespace quor::gui
