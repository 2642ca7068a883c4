#include "gui/calculation/tank_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/calculation/tank_drawing.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/print_page.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "models/unit_text.h"
#include "report/quantity_text.h"
#include "report/tank_picture.h"

namespace quor::gui {

namespace {

constexpr int kSwatch = 14;

void setColour(QLabel* swatch, const QColor& colour) {
    QPixmap picture(kSwatch, kSwatch);
    picture.fill(colour);
    swatch->setPixmap(picture);
}

// Units with superscripts, where they are of the user's choice.
QString pretty(const models::Units& units, const std::string& text) {
    return qt(report::has_own_units(units) ? models::pretty_unit(text) : text);
}

}  // namespace

TankView::TankView(Desk& desk, QWidget* parent)
    : ChildView(desk, "frmKessel", parent), FollowsSession(desk.session()) {
    setWindowIcon(theme::icon("tank"));
    frame_ = form::frame({}, "fraTank");
    drawing_ = new TankDrawing;
    auto* inFrame = new QHBoxLayout(frame_);
    inFrame->setSpacing(theme::kGroupGap);
    inFrame->addWidget(drawing_, 1);
    inFrame->addWidget(buildLegend());

    QPushButton* close = form::button("Close", "cmdClose");
    connect(close, &QPushButton::clicked, this, &ChildView::closeView);
    setDefaultButton(close);
    QPushButton* helpPage = form::button("Help", "cmdHelp");
    desk_.connectHelp(helpPage, help::kTank);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(helpPage);
    buttons->addWidget(printButton([this] { print(); }));
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGap);
    layout->addWidget(frame_, 1);
    layout->addLayout(buttons);
    open();
}

QWidget* TankView::buildLegend() {
    const auto label = [](const QString& name) {
        auto* one = form::named(form::label(), name);
        one->setTextInteractionFlags(Qt::TextSelectableByMouse);
        return one;
    };
    upperColour_ = label("TankUpperColour");
    upper_ = label("lblTankUpper");
    lowerColour_ = label("TankLowerColour");
    lower_ = label("lblTankLower");
    level_ = label("lblTankLevel");
    pressure_ = label("lblTankP");
    hint_ = label("lblTankHint");
    given_ = label("lblTankGiven");
    for (QLabel* important : {level_, pressure_}) {
        QFont font = important->font();
        font.setBold(true);
        important->setFont(font);
    }

    auto* legend = new QWidget;
    auto* grid = new QGridLayout(legend);
    grid->setContentsMargins({});
    grid->setSpacing(theme::kGap);
    grid->addWidget(upperColour_, 0, 0);
    grid->addWidget(upper_, 0, 1);
    grid->addWidget(lowerColour_, 1, 0);
    grid->addWidget(lower_, 1, 1);
    grid->setRowStretch(2, 1);
    int row = 3;
    for (QLabel* one : {level_, pressure_, hint_, given_}) grid->addWidget(one, row++, 0, 1, 2);
    grid->setRowStretch(row, 1);
    grid->setColumnStretch(1, 1);
    return legend;
}

void TankView::print() {
    const report::Report& told = result_.report;
    printing::print(printing::pageWith([this](QPainter& painter) { drawing_->paint(painter); },
                                       drawing_->size(), windowTitle(),
                                       qt(report::head_as_text(told)) + '\n' + form::textOf(this)),
                    window());
}

void TankView::open() {
    result_ = session_->results.current;
    showTank();
}

void TankView::followSession() {
    const models::UnitChoice present = session::unit_choice(session_.state());
    if (result_.made.units.choice == present) return;
    result_ = report::told_in(result_, present);
    showTank();
}

void TankView::showTank() {
    const models::Units& units = result_.made.units;
    const report::TankPicture picture = report::describe_tank(report::tank_state_of(result_));
    setWindowTitle(form::titleOf(qt(picture.title)));
    frame_->setTitle(form::captionOf(qt(picture.caption)));
    drawing_->showPicture(picture);
    level_->setText(qt(picture.level_text));
    pressure_->setText(pretty(units, picture.p_text));
    hint_->setText(qt(picture.hint));
    hint_->setVisible(!picture.hint.empty());
    given_->setText(pretty(units, report::given_text(result_.request.tank, units)));

    QPalette colours;
    if (picture.error) colours.setColor(QPalette::WindowText, theme::errorColour());
    level_->setPalette(colours);
    pressure_->setPalette(colours);

    lower_->setText(qt(picture.lower_text));
    upper_->setText(qt(picture.upper_text));
    setColour(lowerColour_, picture.supercritical ? TankDrawing::supercriticalColour()
                                                  : TankDrawing::liquidColour());
    setColour(upperColour_, TankDrawing::vapourColour());
    lowerColour_->setVisible(!picture.lower_text.empty());
    upperColour_->setVisible(!picture.upper_text.empty());
}

}  // namespace quor::gui
