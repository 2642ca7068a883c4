#include <cmath>
#include <map>

#include "calc_test.h"
#include "common/numbers.h"
#include "common/text.h"
#include "hand_units.h"
#include "models/unit_text.h"
#include "report/diagnosis.h"
#include "report/iso_calculator.h"
#include "report/protocol.h"
#include "report/reference_lines.h"
#include "report/tank_picture.h"
#include "report/titles.h"

using namespace quor;

namespace {

using models::Dimension;
using Cells = std::vector<std::string>;

/// Results of every task told in all ready sets of units and in two of a user's own.
class ResultUnits : public CalcTest {
  protected:
    ResultUnits() {
        use_fluid();
        use_models({});
        use_benson_reference();
        input = {.T = 300, .p = 500, .rhoV = 100};
        tank = {.V = 0.5F, .m = 100, .T = 273.16F};
        process = {.T1 = 300,
                   .p1 = 500,
                   .exponent = 1.1,
                   .kappa = 1.15,
                   .liquid = false,
                   .points = {{310, 600}, {320, 700}}};
    }

    static std::vector<models::UnitChoice> sets() {
        std::vector<models::UnitChoice> all;
        for (const models::UnitSet& set : models::unit_sets()) all.push_back(set.choice);
        for (const char* own :
             {"T=degC,p=bar(g)",
              "T=degF,p=psi(g),v=ft^3/lbmol,rho=mol/l,h=kJ/kg,s=J/(mol K),V=l,m=t"})
            all.push_back(*models::read_choice(own));
        return all;
    }

    HandUnits hand() const {
        return {static_cast<double>(substance.M), fluid().eos().vcrit_calculated};
    }

    /// The result of a task in molar units, with all pages.
    const report::TaskResult& molar(int code) {
        chosen.pages = {.residual = true, .derivatives = true, .functions = true};
        // Few substances have a liquid's and a solid's cp, or every vapour pressure equation.
        const bool pressures = code >= 19 && code <= 22;
        use_fluid(pressures ? "Nitrogen" : code == 17 || code == 18 || code == 24 ? "Water" : "");
        use_models({});
        const double T = input.T;
        if (pressures) input.T = 90;
        calculate(code);
        input.T = T;
        if (last.failed()) ADD_FAILURE() << code << ": " << report::result_as_text(last.report);
        return last;
    }

    static std::string texts(const report::TaskResult& r) {
        return report::result_as_text(r.report) + report::result_as_table(r.report) +
               r.report.phases + report::name_of(r.made);
    }

    /// The rows of a table that have a number: quantity, unit and one or two values.
    static std::vector<Cells> rows(const report::TaskResult& r) {
        std::vector<Cells> all;
        for (const std::string& line : text::split(report::result_as_table(r.report), '\n')) {
            Cells cells = text::split(line, '\t');
            if (cells.size() < 3 || cells.size() > 4) continue;
            if (numbers::typed_number(cells[2]) || numbers::typed_number(cells.back()))
                all.push_back(cells);
        }
        return all;
    }

    /// The next row of the same quantity.
    static const Cells* same(const std::vector<Cells>& rows, std::size_t& from,
                             const Cells& wanted) {
        for (; from < rows.size(); ++from)
            if (rows[from].size() == wanted.size() && name(rows[from]) == name(wanted))
                return &rows[from++];
        return nullptr;
    }

    /// "T(Lo)" and "h"; what a label says of the unit in front of its slash stands in the unit.
    static std::string name(const Cells& row) { return row[0].substr(0, row[0].find(" / ")); }

    /// What the last digit of a number stands for.
    static double last_digit(const std::string& number) {
        const std::size_t e = number.find('E');
        const std::string digits = number.substr(0, e);
        const std::size_t mark = digits.find_first_of(".,");
        const double decimals =
            mark == std::string::npos ? 0 : static_cast<double>(digits.size() - mark - 1);
        const double exponent = e == std::string::npos ? 0 : numbers::val(number.substr(e + 1));
        return std::pow(10.0, exponent - decimals);
    }

    void expect_same(const Cells& told, const Cells& base) const {
        const HandUnits by_hand = hand();
        for (std::size_t i = 2; i < told.size(); ++i) {
            const auto shown = numbers::typed_number(told[i]),
                       value = numbers::typed_number(base[i]);
            ASSERT_EQ(shown.has_value(), value.has_value()) << told[0] << ' ' << told[i];
            if (!shown) continue;
            const double wanted = by_hand.si(*value, base[1]);
            const double room = 0.51 * (last_digit(told[i]) * by_hand.size(told[1]) +
                                        last_digit(base[i]) * by_hand.size(base[1])) +
                                1e-6 * std::fabs(wanted);
            EXPECT_NEAR(by_hand.si(*shown, told[1]), wanted, room)
                << told[0] << ": " << told[i] << ' ' << told[1] << " of " << base[i] << ' '
                << base[1];
        }
    }

    static constexpr Codes kTasks = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                     13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 24};
};

TEST_F(ResultUnits, EveryTaskTellsWhatItTellsInMolarUnits) {
    for (const char mark : {'.', ','}) {
        numbers::set_decimal_mark(mark);
        for (const int code : kTasks) {
            const report::TaskResult base = molar(code);
            const std::vector<Cells> wanted = rows(base);
            EXPECT_FALSE(wanted.empty()) << code;
            for (const models::UnitChoice& choice : sets()) {
                SCOPED_TRACE(std::to_string(code) + " in " + models::text_of(choice));
                // Those of the database are divided by p(cr) in reduced units.
                if (choice.system == models::UnitSystem::reduced && code >= 19 && code <= 22)
                    continue;
                const report::TaskResult told = report::told_in(base, choice);
                ASSERT_FALSE(told.failed());
                std::size_t seen = 0, place = 0;
                for (const Cells& row : rows(told)) {
                    const Cells* from = same(wanted, place, row);
                    ASSERT_NE(from, nullptr) << row[0];
                    expect_same(row, *from);
                    ++seen;
                }
                // The database's molar and specific volume are one in a unit of the user's choice.
                EXPECT_GE(seen + 1, wanted.size());
            }
        }
    }
}

TEST_F(ResultUnits, ToldAgainIsWhatACalculationInThoseUnitsTells) {
    for (const char mark : {'.', ','}) {
        numbers::set_decimal_mark(mark);
        for (const int code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 16, 20}) {
            const report::TaskResult base = molar(code);
            for (const models::UnitChoice& choice : sets()) {
                SCOPED_TRACE(std::to_string(code) + " in " + models::text_of(choice));
                units = choice;
                const report::TaskResult& calculated = molar(code);
                units = {};
                const report::TaskResult told = report::told_in(base, choice);
                EXPECT_EQ(texts(told), texts(calculated));
                EXPECT_EQ(told.numbers, calculated.numbers);
                EXPECT_EQ(told.made, calculated.made);
                // Back again nothing is left of the other units.
                const report::TaskResult back = report::told_in(told, {});
                EXPECT_EQ(texts(back), texts(base));
                EXPECT_EQ(back.numbers, base.numbers);
            }
        }
    }
}

TEST_F(ResultUnits, TheNumbersOfAProtocolAreConvertedToTheLastDigit) {
    enum Kind { T, p, rho, v, h, s, alpha, chi, delta, w };
    // As the names of the numbers say.
    constexpr std::array<Kind, 42> kKinds = {
        T, p, rho, v,     rho, s,     v,     s,     v,   v,     h,     s, h, h,
        h, h, h,   s,     s,   v,     h,     s,     h,   h,     h,     h, h, s,
        s, h, s,   alpha, chi, alpha, delta, alpha, chi, alpha, delta, w, w, v};
    for (const int code : {3, 6, 8, 11, 14, 16, 17}) {
        const report::TaskResult base = molar(code);
        const HandUnits by_hand = hand();
        for (const models::UnitChoice& choice : sets()) {
            // Without a unit of its own a set leaves B and the coefficients in m^3/kmol, K and kPa.
            if (choice.shown == models::UnitChoice{}.shown) continue;
            const report::TaskResult told = report::told_in(base, choice);
            const auto unit = [&](Dimension d) { return std::string(told.made.units.of(d).name); };
            const std::string t = unit(Dimension::temperature), step = t == "degF" ? "degR" : "K";
            std::string pressure = unit(Dimension::pressure);
            const std::string gauge = pressure;
            if (pressure.ends_with("(g)")) pressure.resize(pressure.size() - 3);
            const std::map<Kind, std::pair<std::string, std::string>> names = {
                {T, {"K", t}},
                {p, {"kPa", gauge}},
                {rho, {"kg/m^3", unit(Dimension::density)}},
                {v, {"m^3/kmol", unit(Dimension::volume)}},
                {h, {"kJ/kmol", unit(Dimension::energy)}},
                {s, {"kJ/(kmol K)", unit(Dimension::entropy)}},
                {alpha, {"1/K", "1/" + step}},
                {chi, {"1/kPa", "1/" + pressure}},
                {delta, {"K/kPa", step + "/" + pressure}},
                {w, {"m/s", unit(Dimension::speed)}}};
            for (std::size_t i = 0; i < kKinds.size(); ++i) {
                const auto& [from, to] = names.at(kKinds[i]);
                const double wanted = by_hand.si(base.numbers[i], from);
                EXPECT_NEAR(by_hand.si(told.numbers[i], to), wanted, 1e-11 * std::fabs(wanted))
                    << i << " of task " << code << " in " << models::text_of(choice);
            }
        }
    }
}

TEST_F(ResultUnits, AStateInMetricUnitsReadsAsAnEngineerWritesIt) {
    units = *models::read_choice("metric");
    input = {.T = 300, .p = 1000};
    calculate(3);
    EXPECT_EQ(resultText.par1.text, "T = 26.850 degC");
    EXPECT_EQ(resultText.par2.text, "p = 10.00000 bar");
    EXPECT_EQ(resultText.head.back().text,
              "degC, bar, m^3/kg, kg/m^3, kJ/kg, kJ/(kg K), m/s, m^3, kg, kmol");
    EXPECT_THAT(report::reference_line(last.made),
                testing::HasSubstr("ideal gas at 25 degC, 1.01325 bar"));
    units = *models::read_choice("T=degF,p=psi(g)");
    calculate(3);
    EXPECT_EQ(resultText.par1.text, "T = 80.330 degF");
    EXPECT_EQ(resultText.par2.text, "p = 130.3418 psi(g)");
}

TEST_F(ResultUnits, DigitsKeepTheirMeaningInASmallAndInALargeUnit) {
    input = {.T = 300, .p = 1234.567};
    for (const auto& [unit, text] : {std::pair{"p=MPa", "p = 1.234567 MPa"},
                                     {"p=Pa", "p = 1234567 Pa"},
                                     {"p=Torr", "p = 9260.01 Torr"},
                                     {"p=kPa", "p = 1234.567 kPa"}}) {
        units = *models::read_choice(unit);
        calculate(3);
        EXPECT_EQ(resultText.par2.text, text);
    }
}

TEST_F(ResultUnits, ZeroCelsiusAndAtmosphericGaugePressureAreNoDustAndNoGap) {
    units = *models::read_choice("T=degC,p=bar(g)");
    input = {.T = 273.15, .p = 101.325};
    calculate(3);
    EXPECT_EQ(resultText.par1.text, "T = 0.000 degC");
    EXPECT_EQ(resultText.par2.text, "p = 0.00000 bar(g)");
    EXPECT_EQ(numbers[0], 0.0);
    EXPECT_EQ(numbers[1], 0.0);
    // Both columns are there although all that is in them is 0.
    report::Protocol protocol;
    ASSERT_TRUE(protocol.add(last.made, last.numbers));
    const auto written = report::protocol_lines(protocol.rows, "01.01.2026", ';');
    EXPECT_THAT(written,
                testing::Contains(testing::StartsWith("units: [T] = degC   [p] = bar(g)")));
    EXPECT_THAT(written, testing::Contains(testing::StartsWith("T;p;v(V);")));
    EXPECT_THAT(written.back(), testing::StartsWith("0;0;"));
    // Without a pressure there is no column of one.
    calculate(14);
    report::Protocol of_database;
    ASSERT_TRUE(of_database.add(last.made, last.numbers));
    EXPECT_THAT(report::protocol_lines(of_database.rows, "01.01.2026", ';'),
                testing::Contains(testing::StartsWith("T;rho(L);v(L);")));
}

TEST_F(ResultUnits, AProtocolBeginsAnewWhereTheUnitsChange) {
    calculate(3);
    report::Protocol protocol;
    ASSERT_TRUE(protocol.add(last.made, last.numbers));
    const report::TaskResult us = report::told_in(last, *models::read_choice("us"));
    ASSERT_TRUE(protocol.add(us.made, us.numbers));
    const auto written = report::protocol_lines(protocol.rows, "01.01.2026", ';');
    EXPECT_THAT(written, testing::Contains("units: [T] = K   [p] = kPa   [B] = m^3/kmol    "
                                           "[v] = m^3/kmol "));
    EXPECT_THAT(written, testing::Contains("units: [T] = degF   [p] = psi   [rho] = lb/ft^3   "
                                           "[B], [v] = ft^3/lb"));
    EXPECT_THAT(written,
                testing::Contains("[alpha], [beta] = 1/degR   [chi] = 1/psi   [delta] = degR/psi"));
    EXPECT_THAT(written.back(), testing::StartsWith("80.33;72.51887;"));
}

TEST_F(ResultUnits, TheStatesOfAProcessStandInTheChosenUnits) {
    calculate(12);
    const report::TaskResult base = last;
    const HandUnits by_hand = hand();
    const std::vector<Cells> wanted = [&] {
        std::vector<Cells> all;
        for (const report::ListLine& line : base.report.lines)
            if (line.cells.size() == 5) all.push_back(line.cells);
        return all;
    }();
    ASSERT_GE(wanted.size(), 3U);
    EXPECT_EQ(wanted[0], (Cells{"T/K", "p/kPa", "v/(m^3/kmol)", "h/ (kJ/kmol)", "s/ (kJ/kmol/K)"}));
    const report::TaskResult us = report::told_in(base, *models::read_choice("us"));
    std::size_t row = 0;
    for (const report::ListLine& line : us.report.lines) {
        if (line.cells.size() != 5) continue;
        const Cells& from = wanted.at(row++);
        if (row == 1) {
            EXPECT_EQ(line.cells,
                      (Cells{"T/degF", "p/psi", "v/(ft^3/lb)", "h/(BTU/lb)", "s/(BTU/(lb degR))"}));
            continue;
        }
        constexpr std::array kFrom = {"K", "kPa", "m^3/kmol", "kJ/kmol", "kJ/(kmol K)"};
        constexpr std::array kTo = {"degF", "psi", "ft^3/lb", "BTU/lb", "BTU/(lb degR)"};
        for (std::size_t i = 0; i < 5; ++i) {
            const double value = by_hand.si(*numbers::typed_number(from[i]), kFrom[i]);
            EXPECT_NEAR(by_hand.si(*numbers::typed_number(line.cells[i]), kTo[i]), value,
                        1e-6 * std::fabs(value));
        }
    }
    EXPECT_EQ(row, wanted.size());
}

TEST_F(ResultUnits, TheColumnsOfAListStayInLineUnderLongUnits) {
    input = {.T = 280, .p = 3000};
    for (const models::UnitChoice& choice : sets()) {
        chosen.pages = {.residual = true, .derivatives = true, .functions = true};
        units = choice;
        calculate(8);
        for (const report::ListLine& line : resultText.lines) {
            if (!line.of_phases || line.cells[2].empty() || !line.cells[3].empty()) continue;
            EXPECT_EQ(text::length(line.text), 2 * 17U + 20U)
                << line.text << " in " << models::text_of(choice);
        }
    }
}

TEST_F(ResultUnits, ATankShowsItsContentAndWhatWasTypedWithoutDust) {
    calculate(9);
    const models::Units us = models::make_units(*models::read_choice("us"), fluid());
    EXPECT_EQ(report::given_text(tank, last.made.units), "V = 0.5 m^3\nm = 100 kg\nT = 273.16 K");
    EXPECT_EQ(report::given_text(tank, models::make_units(*models::read_choice("metric"), fluid())),
              "V = 0.5 m^3\nm = 100 kg\nT = 0.01 degC");
    EXPECT_EQ(report::given_text(tank, us), "V = 17.65733 ft^3\nm = 220.4623 lb\nT = 32.018 degF");
    const double p = last.answer.p;
    const report::TaskResult told = report::told_in(last, us.choice);
    EXPECT_EQ(report::describe_tank(report::tank_state_of(told)).p_text,
              "p = " +
                  numbers::format(static_cast<double>(static_cast<float>(p)) / 6.894757293168361,
                                  "###0.0###") +
                  " psi");
    EXPECT_EQ(told.report.par1.text, "T = 32.018 degF");
    EXPECT_DOUBLE_EQ(told.numbers[0], 1.8 * 273.16 - 459.67);
}

TEST_F(ResultUnits, TheDiagnosisNamesItsRootsInTheChosenUnits) {
    input = {.T = 300, .p = 900};
    calculate(3);
    const report::Diagnosis molar = report::diagnose(fluid(), last.answer.last);
    const report::Diagnosis us = report::diagnose(
        fluid(), last.answer.last, models::make_units(*models::read_choice("us"), fluid()));
    ASSERT_EQ(us.roots.size(), 3U);
    EXPECT_THAT(molar.state, testing::EndsWith(",  T = 300 K,  p = 900 kPa"));
    EXPECT_THAT(us.state, testing::EndsWith(",  T = 80.33 degF,  p = 130.534 psi"));
    for (std::size_t i = 0; i < 3; ++i) {
        const Cells shown = text::split(us.roots[i].value, ' ');
        EXPECT_EQ(shown[1], "ft^3/lb");
        EXPECT_NEAR(hand().si(*numbers::typed_number(shown[0]), shown[1]),
                    hand().si(molar.roots[i].v, "m^3/kmol"), 1e-6 * us.roots[i].v);
        EXPECT_EQ(us.roots[i].note, molar.roots[i].note);
    }
    EXPECT_THAT(us.legend, testing::HasSubstr(" psi, which makes the two"));
}

TEST_F(ResultUnits, TheIsoCalculatorWorksInTheChosenUnits) {
    input = {.T = 350, .p = 1000};
    const report::TaskResult start =
        report::make_result(fluid(), reference, {}, report::functions_request(350, 1000));
    using calculation::IsoFunction, calculation::IsoGiven;
    for (const IsoFunction function :
         {IsoFunction::V, IsoFunction::H, IsoFunction::S, IsoFunction::EH}) {
        report::IsoCalculator molar(start, function, IsoGiven::p);
        ASSERT_TRUE(molar.calculate(molar.constant_text, "800"));
        report::IsoCalculator own(start, function, IsoGiven::p);
        const std::string before = own.constant_text;
        own.tell_in(*models::read_choice("T=degC,p=bar(g),v=l/kg,h=kcal/kg,s=kcal/(kg K)"));
        EXPECT_EQ(own.given_label, "p/bar(g) =");
        EXPECT_THAT(
            own.constant_label,
            testing::AnyOf("V/(l/kg) =", "H/(kcal/kg) =", "S/(kcal/(kg K)) =", "E(H)/(kcal/kg) ="));
        EXPECT_EQ(own.sought_label, "T/degC =");
        EXPECT_EQ(own.given_text, "8.98675");
        EXPECT_EQ(own.state_text(), "Last state: T = 76.85 degC,  p = 8.98675 bar(g)");
        ASSERT_TRUE(own.calculate(own.constant_text, "6.98675"));
        EXPECT_NEAR(own.last_p(), 800, 1e-9);
        EXPECT_NEAR(own.last_T(), molar.last_T(), 1e-3);
        EXPECT_NEAR(*numbers::typed_number(own.sought_text) + 273.15, own.last_T(), 1e-4);
        own.tell_in({});
        EXPECT_EQ(own.sought_label, "T/K =");
        EXPECT_EQ(own.given_text, "800");
        // What was typed and not yet calculated is converted by its field.
        own.given_text = "750";
        own.tell_in(*models::read_choice("metric"));
        EXPECT_EQ(own.given_text, "750");
        EXPECT_EQ(own.sought_label, "T/degC =");
        own.tell_in({});
        EXPECT_TRUE(own.reset());
        EXPECT_NEAR(*numbers::typed_number(own.constant_text) / *numbers::typed_number(before), 1,
                    1e-5);
    }
}

TEST_F(ResultUnits, AComparisonNamesTheChosenUnitsInItsHeads) {
    chosen.task = calculation::Task::saturationAtT;
    chosen.pages = {.residual = true, .derivatives = true};
    const std::vector<calculation::BatchDataSet> sets = {{.T = 273.16, .p = 470, .rhoL = 528.5F},
                                                         {.T = 300, .p = 1000, .rhoV = 21.5F}};
    const auto lines_in = [&](const char* choice) {
        return report::make_result_list(
                   report::compare(fluid(), reference, *models::read_choice(choice), chosen, sets,
                                   "propane.BAQ"),
                   "x", true, report::ListForm::File)
            .lines;
    };
    const auto words = [](const std::string& line) {
        Cells all;
        for (const std::string& word : text::split(line, ' '))
            if (!word.empty()) all.push_back(word);
        return all;
    };
    const auto kelvin = lines_in("specific"), us = lines_in("us");
    ASSERT_EQ(kelvin.size(), us.size());
    std::size_t head = 0;
    while (head < us.size() && !us[head].starts_with("==")) ++head;
    EXPECT_EQ(words(kelvin[head + 2])[0], "K");
    EXPECT_EQ(words(us[head + 2]),
              (Cells{"degF", "psi", "lb/ft^3", "lb/ft^3", "BTU/lb", "degF", "psi", "lb/ft^3",
                     "lb/ft^3", "BTU/lb", "-", "-", "-", "-", "-"}));
    EXPECT_EQ(words(us[head + 4])[1], "32.018");
    const Cells in_kelvin = words(kelvin[head + 5]), in_us = words(us[head + 5]);
    EXPECT_EQ(in_us[1], "80.33");
    EXPECT_NEAR(numbers::val(in_us[2]) * 6.894757293168361, numbers::val(in_kelvin[2]), 1e-3);
    EXPECT_NEAR(numbers::val(in_us[3]) * 0.45359237 / std::pow(0.3048, 3),
                numbers::val(in_kelvin[3]), 1e-4);
    // Deviations are of absolute values, whatever the unit.
    EXPECT_EQ(words(us.at(head + 5)).back(), words(kelvin.at(head + 5)).back());
    EXPECT_THAT(us, testing::Contains("T/degF = 80.33"));
    EXPECT_THAT(us, testing::Contains(testing::StartsWith("chi, 1/psi ")));
    EXPECT_THAT(kelvin, testing::Contains("T/K = 300"));
}

TEST_F(ResultUnits, WhatCouldNotBeCalculatedIsToldTheSameWayInOtherUnits) {
    input = {.T = 400, .p = 500};
    calculate(4);
    ASSERT_TRUE(last.failed());
    EXPECT_EQ(resultText.par1.text, "T = 400.000 K > T(cr) !!!");
    const report::TaskResult told = report::told_in(last, *models::read_choice("metric"));
    EXPECT_EQ(told.report.par1.text, "T = 126.850 degC > T(cr) !!!");
    EXPECT_TRUE(told.report.par1.red && told.failed());
    EXPECT_EQ(texts(report::told_in(told, {})), texts(last));
    const report::TaskResult nothing;
    EXPECT_EQ(texts(report::told_in(nothing, *models::read_choice("metric"))), texts(nothing));
}

TEST_F(ResultUnits, UnitsThatAFluidCannotHaveBecomeMolarOnes) {
    calculate(3);
    report::TaskResult without = last;
    models::SubstanceRecord record = substance;
    record.M = 0;
    without.made.fluid = {record, selection, eos_parameters, jt};
    const report::TaskResult told = report::told_in(without, *models::read_choice("metric"));
    EXPECT_FALSE(told.failed());
    EXPECT_EQ(told.report.par1.text, "T = 26.850 degC");
    EXPECT_EQ(told.made.units.of(Dimension::volume).name, "m^3/kmol");
}

}  // namespace
