#include <QPlainTextEdit>
#include <QTextBlock>
#include <cmath>

#include "calculation/hand_units.h"
#include "common/numbers.h"
#include "gui/calc_view_test.h"
#include "gui/calculation/isotherm_plot.h"
#include "models/unit_text.h"
#include "report/report.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isVisible;
using drive::read;
using drive::type;

/// Open views show what they show in other units as soon as these change.
class ViewsFollowUnits : public CalcViewTest {
  protected:
    ~ViewsFollowUnits() override { numbers::set_decimal_mark('.'); }

    void use(const std::string& units) {
        session.change()->units = *models::read_choice(units);
        drive::settle();
    }

    static std::vector<std::string> sets() {
        std::vector<std::string> all;
        for (const models::UnitSet& set : models::unit_sets()) all.emplace_back(set.key);
        all.emplace_back("T=degC,p=bar(g)");
        return all;
    }

    HandUnits hand() const {
        return {static_cast<double>(session->substance.M), session.fluid().eos().vcrit_calculated};
    }

    /// All texts of a view.
    static QString textsOf(const char* view) {
        QString all = drive::get(view)->windowTitle();
        for (const QWidget* part : drive::get(view)->findChildren<QWidget*>()) {
            if (const auto* label = qobject_cast<const QLabel*>(part)) all += '\n' + label->text();
            if (const auto* field = qobject_cast<const QLineEdit*>(part))
                all += '\n' + field->text();
            if (const auto* list = qobject_cast<const QPlainTextEdit*>(part))
                all += '\n' + list->toPlainText();
        }
        return all;
    }

    /// The number and the plain name of the unit behind the last sign of equation of a text.
    struct Shown {
        double value;
        std::string unit;
    };
    static Shown shown(const QString& text) {
        QString right = text.section('=', -1).trimmed();
        const auto number = numbers::typed_number(right.section(' ', 0, 0).toStdString());
        QString unit = right.section(' ', 1).section('\n', 0, 0).trimmed();
        for (const auto& [pretty, plain] : {std::pair{"³", "^3"}, {"°", "deg"}, {"·", " "}})
            unit.replace(pretty, plain);
        return {number.value_or(std::nan("")), unit.toStdString()};
    }

    /// Units plain, and no blanks: names of units on screen are shorter.
    static std::string squeezed(QString text) {
        for (const auto& [pretty, plain] :
             {std::pair{"³", "^3"}, {"²", "^2"}, {"°", "deg"}, {"·", ""}})
            text.replace(pretty, plain);
        return text.remove(' ').toStdString();
    }

    void expectShows(const QString& text, double value, const char* unit, double room) const {
        const Shown s = shown(text);
        EXPECT_NEAR(hand().si(s.value, s.unit), hand().si(value, unit), room * hand().size(unit))
            << text.toStdString();
    }
};

TEST_F(ViewsFollowUnits, AResultAndItsDiagnosisShowTheSameStateInAllSetsAndComeBack) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("270", "2900");
    click("ResPlus_1");
    click("ResPlus_2");
    click("chkUHS");
    click("cmdCEOSDiagnose");
    for (const char mark : {'.', ','}) {
        numbers::set_decimal_mark(mark);
        use("specific");
        use("molar");
        const QString result = textsOf("frmCalcOut"), diagnosis = textsOf("frmCEOSDiagnose");
        const double v = session->results.current.answer.last.v[2];
        for (const std::string& set : sets()) {
            SCOPED_TRACE(set + mark);
            use(set);
            ASSERT_TRUE(isVisible("frmCalcOut") && isVisible("frmCEOSDiagnose"));
            expectShows(read("par1"), 270, "K", 1e-3);
            expectShows(read("par2"), 2900, "kPa", 1e-3);
            expectShows(read("lblState").section(",  ", 1, 1), 270, "K", 1e-4);
            expectShows(read("lblState").section(",  ", 2, 2), 2900, "kPa", 1e-3);
            const models::Units units = session->results.current.made.units;
            if (set != "molar" && set != "specific" && set != "reduced") {
                expectShows("= " + read("lblVolume_3"), v, "m^3/kmol", 1e-6 * v);
                EXPECT_FALSE(read("lblVolume_3").contains('^'));
                EXPECT_TRUE(drive::get<IsothermPlot>("pctEOS")->pressureTitle().contains(
                    QString::fromStdString(
                        models::pretty_unit(units.of(models::Dimension::pressure).name))));
            }
            EXPECT_EQ(read("statusZeile"), "");
            // The list on screen is that of a calculation in these units.
            const report::TaskResult anew =
                report::make_result(session.fluid(), session->reference, units.choice,
                                    session->results.current.request);
            EXPECT_EQ(squeezed(read("Liste").remove("! ")),
                      squeezed(QString::fromStdString(report::list_text(anew.report))));
            EXPECT_EQ(read("Liste").contains("m³") || read("Liste").contains("ft³"),
                      set != "molar" && set != "specific" && set != "reduced");
        }
        use("molar");
        EXPECT_EQ(textsOf("frmCalcOut"), result);
        EXPECT_EQ(textsOf("frmCEOSDiagnose"), diagnosis);
    }
}

TEST_F(ViewsFollowUnits, WhatIsSelectedInTheListIsCopiedWithPlainUnitsInItsColumns) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("270", "2900");
    use("us");
    auto* list = drive::get<QPlainTextEdit>("Liste");
    const std::vector<report::ListLine>& lines = session->results.current.report.lines;
    EXPECT_TRUE(list->document()->findBlockByNumber(0).text().contains("(lb/ft³)"));
    EXPECT_EQ(list->document()->findBlockByNumber(0).text().size(),
              static_cast<qsizetype>(lines[0].text.size()));
    QTextCursor cursor(list->document());
    cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
    list->setTextCursor(cursor);
    click("cmdCopyText");
    EXPECT_EQ(user.clipboard, lines[0].text + '\n' + lines[1].text);
    cursor.movePosition(QTextCursor::Start);
    cursor.movePosition(QTextCursor::NextWord, QTextCursor::MoveAnchor);
    cursor.movePosition(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
    list->setTextCursor(cursor);
    click("cmdCopyText");
    EXPECT_EQ(user.clipboard.find("³"), std::string::npos) << user.clipboard;
    EXPECT_NE(user.clipboard.find("lb/ft^3"), std::string::npos) << user.clipboard;
}

TEST_F(ViewsFollowUnits, TheTicksOfTheIsothermAreRoundInTheUnitOfItsAxis) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("270", "2900");
    click("cmdCEOSDiagnose");
    auto* plot = drive::get<IsothermPlot>("pctEOS");
    EXPECT_EQ(plot->pressureTitle(), "p/kPa");
    EXPECT_EQ(plot->volumeTitle(), "v/(m^3/kmol)");
    use("us");
    EXPECT_EQ(plot->pressureTitle(), "p/psi");
    EXPECT_EQ(plot->volumeTitle(), "v/(ft³/lb)");
    const std::vector<double> ticks = plot->pressureTicks();
    ASSERT_GE(ticks.size(), 3U);
    const double step = ticks[1] - ticks[0];
    const double mantissa = step / std::pow(10.0, std::floor(std::log10(step) + 1e-9));
    EXPECT_TRUE(std::fabs(mantissa - 1) < 1e-9 || std::fabs(mantissa - 2) < 1e-9 ||
                std::fabs(mantissa - 5) < 1e-9)
        << step;
    EXPECT_NEAR(std::remainder(ticks[0], step), 0, 1e-9 * step);
}

TEST_F(ViewsFollowUnits, ATankFollowsAlsoAfterAnotherCalculation) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    type("par_0", "0.5");
    type("par_1", "100");
    type("par_2", "273.16");
    click("cmdParameter_OK");
    const QString before = textsOf("frmKessel");
    const double p = session->results.current.answer.p;
    for (const std::string& set : sets()) {
        SCOPED_TRACE(set);
        use(set);
        expectShows(read("lblTankP"), p, "kPa", 2e-3);
        const QString given = read("lblTankGiven");
        expectShows(given.section('\n', 0, 0), 0.5, "m^3", 1e-6);
        expectShows(given.section('\n', 1, 1), 100, "kg", 1e-4);
        expectShows(given.section('\n', 2, 2), 273.16, "K", 1e-9);
        expectShows(read("par1"), 273.16, "K", 1e-3);
    }
    use("metric");
    EXPECT_EQ(read("lblTankGiven"), "V = 0.5 m³\nm = 100 kg\nT = 0.01 °C");
    use("molar");
    EXPECT_EQ(textsOf("frmKessel"), before);
    // A state of the iso-calculator takes the place of the result, not that of the tank in view.
    click("cmdIsoCalc");
    click("OptIsoFu_1");
    type("txtTpVorgabe", "5000");
    click("cmdCalc");
    ASSERT_EQ(session->results.current.request.task, calculation::Task::functions);
    use("metric");
    expectShows(read("lblTankP"), p, "kPa", 2e-3);
    EXPECT_EQ(read("lblTankGiven"), "V = 0.5 m³\nm = 100 kg\nT = 0.01 °C");
    use("molar");
    EXPECT_EQ(textsOf("frmKessel"), before);
}

TEST_F(ViewsFollowUnits, TheIsoCalculatorKeepsItsStateAndWhatWasTyped) {
    startProject("Carbon dioxide");
    choose("mnuCalc_11");
    calculate("350", "4000");
    click("cmdIsoCalc");
    click("OptIsoFu_2");
    type("txtTpVorgabe", "3000");
    const QString before = textsOf("frmIsoCalc");
    const double h = session->results.current.numbers[10];
    for (const std::string& set : sets()) {
        SCOPED_TRACE(set);
        use(set);
        const models::Units units = session->results.current.made.units;
        const auto name = [&](models::Dimension d) { return std::string(units.of(d).name); };
        const auto number = [](const char* field) {
            return numbers::typed_number(read(field).toStdString()).value_or(std::nan(""));
        };
        EXPECT_NEAR(hand().si(number("txtFuConst"), name(models::Dimension::energy)),
                    hand().si(h, "kJ/kmol"), 2e-6 * std::fabs(hand().si(h, "kJ/kmol")));
        EXPECT_NEAR(hand().si(number("txtTpVorgabe"), name(models::Dimension::pressure)), 3e6, 1);
        EXPECT_NEAR(hand().si(number("txtTpCalc"), name(models::Dimension::temperature)), 350,
                    1e-4);
        EXPECT_TRUE(read("lblIsoState").contains("Last state: T = "));
    }
    use("molar");
    EXPECT_EQ(textsOf("frmIsoCalc"), before);
    // The same state is found in either units.
    click("cmdCalc");
    const double T = session->results.current.answer.T;
    click("cmdReset");
    calculate("350", "4000");
    click("cmdIsoCalc");
    click("OptIsoFu_2");
    use("us");
    EXPECT_EQ(read("lblTpVorgabe"), "p/psi =");
    EXPECT_EQ(read("lblTpCalc"), "T/°F =");
    type("txtTpVorgabe", "30 bar");
    click("cmdCalc");
    EXPECT_NEAR(session->results.current.answer.T, T, 2e-3);
    EXPECT_NEAR(session->results.current.answer.p, 3000, 1e-6);
}

TEST_F(ViewsFollowUnits, ACopyAndAListOfResultsAreInTheUnitsOfTheMoment) {
    startProject("Carbon dioxide");
    useData({{.T = 270, .p = 100}, {.T = 280, .p = 100}});
    session.change()->batch_mode = true;
    choose("mnuCalc_2");
    use("us");
    click("cmdVor");
    EXPECT_TRUE(read("par1").endsWith("°F"));
    click("cmdCopyTable");
    EXPECT_TRUE(user.clipboard.find("degF, psi, ft^3/lb, lb/ft^3, BTU/lb") != std::string::npos);
    EXPECT_TRUE(user.clipboard.find("°") == std::string::npos);
    click("cmdCopyText");
    EXPECT_TRUE(user.clipboard.find("44.330 degF") != std::string::npos) << user.clipboard;
    click("optResultPrint_1");
    click("cmdCalc_OK");
    ASSERT_FALSE(user.prints.empty());
    EXPECT_TRUE(user.prints.back().text.find("lb/ft^3") != std::string::npos);
    EXPECT_TRUE(user.prints.back().text.find("44.33") != std::string::npos);
}

}  // namespace
