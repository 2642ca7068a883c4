#include <cmath>
#include <filesystem>
#include <fstream>

#include "calc_test.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "expected_text.h"
#include "models/caloric.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "report/batch_list.h"
#include "report/titles.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

using calculation::BatchDataSet;
using report::deviation_text;
using report::ListForm;
using report::relative_deviation;

/// Lists that compare a model with measured data.
class BatchList : public CalcTest {
  protected:
    BatchList() {
        use_fluid();
        use_models({});
    }

    void use_sets(int code, const std::vector<BatchDataSet>& rows) {
        chosen.task = calculation::task_of_code(code);
        sets = rows;
    }

    report::Comparison compare() const {
        return report::compare(fluid(), reference, units, chosen, sets, "propane.BAQ");
    }

    std::string title() const { return report::title_of(chosen.task, chosen.method); }

    report::ResultList list(bool extended = false, ListForm form = ListForm::File) const {
        return report::make_result_list(compare(), title(), extended, form);
    }

    bool write(const std::filesystem::path& name) const {
        const std::string path = report::result_file_path(name.string(), folder.path().string());
        return static_cast<bool>(
            files::write_whole(path, report::result_file_text(compare(), title(), false)));
    }

    TemporaryFolder folder;
    std::vector<BatchDataSet> sets;

    /// Cells of a table row, by the widths of its columns.
    static std::vector<std::string> cells(const std::string& line) {
        static constexpr std::size_t kWidths[] = {5,  11, 13, 13, 13, 17, 7,  11, 13,
                                                  13, 13, 18, 15, 15, 15, 15, 15};
        std::vector<std::string> all;
        std::size_t at = 0;
        for (const std::size_t width : kWidths) {
            all.push_back(at < line.size() ? text::trim(line.substr(at, width)) : "");
            at += width;
        }
        return all;
    }

    using Cells = std::vector<std::string>;
};

TEST_F(BatchList, DeviationNeedsBothValues) {
    EXPECT_FALSE(relative_deviation(0, 5));
    EXPECT_FALSE(relative_deviation(5, 0));
    EXPECT_FALSE(relative_deviation(1e-6, 5));
    ASSERT_TRUE(relative_deviation(102.5, 100));
    EXPECT_FLOAT_EQ(*relative_deviation(102.5, 100), 2.5F);
    EXPECT_FLOAT_EQ(*relative_deviation(50, 100), -50.0F);
    EXPECT_TRUE(std::isfinite(*relative_deviation(1e300, 1e-5)));
}

TEST_F(BatchList, DeviationIsWrittenWithAPoint) {
    EXPECT_EQ(deviation_text(2.5F), "(2.5 %)");
    EXPECT_EQ(deviation_text(-12.346F), "(-12.35 %)");
    EXPECT_EQ(deviation_text(499.99F), "(499.99 %)");
    EXPECT_EQ(deviation_text(500.0F), "(dev.> 500%!)");
    EXPECT_EQ(deviation_text(-500.0F), "(dev.> 500%!)");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(deviation_text(2.5F), "(2.5 %)");
}

TEST_F(BatchList, HeadAndColumnsOfTheFile) {
    use_sets(4, {{0, 300, 998}});
    const auto lines = list().lines;
    ASSERT_GE(lines.size(), 12U);
    EXPECT_EQ(lines[0], "QUOR Results of Calculation");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "Substance            : Propane");
    EXPECT_EQ(lines[3],
              "Calculation          : T => p(LV) (global calculation) Enthalpy of Vaporization "
              "(using EOS)");
    EXPECT_EQ(lines[4], "model                : CEOS Peng / Robinson");
    EXPECT_EQ(lines[5], "Vapour Pressure Equation: Wagner");
    EXPECT_EQ(lines[6], "Number of Data Sets  : 1");
    EXPECT_EQ(lines[7], "Name of Batchfile    : propane.BAQ");
    EXPECT_EQ(lines[8], std::string(lines[8].size(), '='));
    EXPECT_EQ(cells(lines[9]),
              (Cells{"#", "T(exp)", "p(exp)", "rhoV(exp)", "rhoL(exp)", "delta(LV)h(exp)", "phase",
                     "T(calc)", "p(calc)", "rhoV(calc)", "rhoL(calc)", "delta(LV)h(calc)",
                     "delta T", "delta p", "delta rhoV", "delta rhoL", "delta(LV)h"}));
    EXPECT_EQ(cells(lines[10]),
              (Cells{"", "K", "kPa", "kg/m^3", "kg/m^3", "kJ/kmol", "", "K", "kPa", "kg/m^3",
                     "kg/m^3", "kJ/kmol", "-", "-", "-", "-", "-"}));
    EXPECT_EQ(lines[11], lines[8]);
    chosen.method.global = false;
    EXPECT_EQ(list().lines[3],
              "Calculation          : T => p(LV) (partial calculation) (BENSON's method)");
}

TEST_F(BatchList, PrintedFormHasItsOwnHead) {
    use_sets(4, {{0, 300, 998}});
    const auto lines = list(false, ListForm::Print).lines;
    EXPECT_EQ(lines[0], "QUOR: Results of Calculation");
    EXPECT_EQ(lines[2], "Substance: Propane");
    EXPECT_EQ(
        lines[3],
        "Calculation: T => p(LV) (global calculation) Enthalpy of Vaporization del(LV)h calc. "
        "using EOS");
    EXPECT_EQ(lines[4], "Model: CEOS Peng / Robinson");
    EXPECT_EQ(lines[5], "Vapour Press. Equation: Wagner");
    EXPECT_EQ(lines[6], "Number of Data Sets: 1");
    EXPECT_EQ(lines[7], "Name Batchfile: propane.BAQ");
}

TEST_F(BatchList, RowsCompareCalculatedWithMeasuredValues) {
    const auto at = [&](double T) { return models::saturation_pressure(fluid(), T); };
    const double M = static_cast<double>(substance.M);
    const auto s300 = at(300), s320 = at(320);
    // 10 % above and 4 % below the calculated pressures; one liquid density, far too large.
    const double p1 = s300->p / 1.10, p2 = s320->p / 0.96;
    const auto rhoL = static_cast<float>(M / s300->v[0] / 6.5);
    use_sets(4, {{0, 300, p1, 0, rhoL, 0, 0},
                 {-1, 310, 1, 0, 0, 0, 0},
                 {0, 320, p2, 0, 0, 0, 0},
                 {0, 500, 9999, 0, 0, 0, 0}});
    const auto result = list();
    const auto first = cells(result.lines[12]), second = cells(result.lines[13]);
    EXPECT_EQ(first[0], "1");
    EXPECT_EQ(first[1], "300");
    EXPECT_EQ(first[2], expected::g7(p1));
    EXPECT_EQ(first[3], "") << "no measured V density";
    EXPECT_EQ(first[6], "V+L");
    EXPECT_EQ(first[7], "") << "T is given, not calculated";
    EXPECT_EQ(first[8], expected::g7(s300->p));
    EXPECT_EQ(first[9], expected::g7(M / s300->v[2]));
    EXPECT_EQ(first[12], "");
    EXPECT_EQ(first[13], "(10. %)");
    EXPECT_EQ(first[14], "");
    EXPECT_EQ(first[15], "(dev.> 500%!)");
    EXPECT_EQ(second[0], "3") << "an inactive set is left out";
    EXPECT_EQ(second[13], "(-4. %)");
    EXPECT_EQ(result.lines[14], result.lines[8]) << "a set without result is left out";
    EXPECT_EQ(result.means[report::kP].count, 2);
    EXPECT_NEAR(*result.means[report::kP].value(), 7.0, 1e-4);
    EXPECT_EQ(result.means[report::kRhoL].count, 0) << "500 % and more do not count";
    EXPECT_FALSE(result.means[report::kRhoL].value());
    const std::string& means = result.lines[15];
    EXPECT_EQ(means.substr(0, 36), "arithmet. mean of ABS(%-deviations):");
    EXPECT_EQ(text::trim(means.substr(36)), "7.00%");
}

TEST_F(BatchList, FunctionsOfModeEightStandBelowTheirSet) {
    use_sets(8, {{0, 300, 500}});
    const auto lines = list().lines;
    const auto state = models::solve_state_tp(fluid(), 300.0, 500.0);
    const auto z = state_functions(300, 500, state->v[2]);
    EXPECT_EQ(lines[8], "Model: CEOS Peng / Robinson; ideal-gas cp: sinh/cosh equation");
    EXPECT_EQ(lines[9], "Reference state: h = 0, s = 0, ideal gas at 298.15 K, 101.325 kPa");
    EXPECT_EQ(lines[10], "Surroundings for exergies: 298.15 K, 101.325 kPa");
    const auto expect_line = [&](std::size_t i, std::string label, double value) {
        label.resize(33, ' ');
        std::string number = expected::g7(value);
        number.insert(0, 16 - number.size(), ' ');
        EXPECT_EQ(lines[i], label + number + " (V)");
    };
    expect_line(16, " Enthalpy        h/kJ/kmol     =", z->h);
    expect_line(17, " Entropy         s/kJ/(kmol*K) =", z->s);
    expect_line(18, " Gibbs Function   g/kJ/kmol     =", z->g);
    expect_line(19, " Exergy of H     e/kJ/kmol     =", z->exergies->H);
    expect_line(20, " Exergy of U     e/kJ/kmol     =", z->exergies->U);
}

TEST_F(BatchList, SpecificUnitsDoNotChangeTheList) {
    use_sets(8, {{0, 300, 500}});
    const auto molar = list().lines;
    use_units(1);
    EXPECT_EQ(list().lines, molar) << "the list names its own units";
    use_sets(6, {{0, 300, 0, 0, 0, 15000.0F, 0}});
    const auto specific = list().lines;
    use_units(0);
    EXPECT_EQ(list().lines, specific);
}

TEST_F(BatchList, ExtendedPartHasAllFunctionsOfASet) {
    use_sets(3, {{0, 300, 500}});
    chosen.pages.residual = true;
    chosen.pages.derivatives = true;
    for (const ListForm form : {ListForm::File, ListForm::Print}) {
        const auto lines = list(true, form).lines;
        const auto begin = std::find(lines.begin(), lines.end(),
                                     "T -, p -, v - derivatives and thermodynamic functions");
        ASSERT_NE(begin, lines.end());
        const std::vector<std::string> page(begin, lines.end());
        ASSERT_EQ(page.size(), 6U + 22U);
        const bool file = form == ListForm::File;
        EXPECT_EQ(page[1], "for data set 1");
        EXPECT_EQ(page[2], "T/K = 300");
        EXPECT_EQ(page[3], "p/kPa = 500");
        EXPECT_EQ(page[4], file
                               ? std::string(30, ' ') + "L-phase" + std::string(13, ' ') + "V-phase"
                               : std::string(36, ' ') + "L" + std::string(19, ' ') + "V");
        const auto state = models::solve_state_tp(fluid(), 300.0, 500.0);
        const auto V = residual_functions(300, 500, state->v[2]);
        EXPECT_EQ(page[6],
                  " (dp/dV) at T  : " + std::string(29, ' ') + expected::signed_exp(V->first[1]));
        const std::string label = file ? "       d2p/dV2 : " : "       d2p/dV² : ";
        EXPECT_EQ(page[15], label + std::string(29, ' ') + expected::signed_exp(V->second[1]));
        EXPECT_EQ(page[27].substr(0, 17), " cp/kJ/kmol/K  : ");
    }
    chosen.pages.residual = false;
    chosen.pages.derivatives = false;
    for (const std::string& line : list(true).lines)
        EXPECT_EQ(line.find("for data set"), std::string::npos);
}

TEST_F(BatchList, IsTheSameWithADecimalComma) {
    use_sets(3, {{0, 300.5, 500.25, 11.5F, 0, 0, 0}});
    chosen.pages.residual = true;
    chosen.pages.derivatives = true;
    const auto point = list(true).lines;
    numbers::set_decimal_mark(',');
    EXPECT_EQ(list(true).lines, point);
}

TEST_F(BatchList, EveryModeMakesAList) {
    for (const int eos : Codes{6, 16})
        for (const int mode : Codes{1, 2, 3, 4, 5, 6, 7, 8, 13}) {
            SCOPED_TRACE(testing::Message() << eos << " mode " << mode);
            use_models({.eos = eos, .hlv = 2});
            chosen.method.global = eos == 6;
            use_benson_reference();
            use_sets(mode, {{0, 300, 900, 19.0F, 510.0F, 15000.0F, 0}});
            const auto result = list();
            EXPECT_EQ(cells(result.lines[mode == 8 ? 15 : 12])[0], "1");
        }
}

TEST_F(BatchList, FileNameGetsFolderAndExtension) {
    use_sets(3, {{0, 300, 500}});
    EXPECT_TRUE(write("one"));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "one.LST"));
    EXPECT_TRUE(write("two.TXT"));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "two.TXT"));
    EXPECT_TRUE(write(folder.path() / "three"));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "three.LST"));
    EXPECT_EQ(report::result_file_path("LPT1", folder.path().string()), "LPT1");
}

TEST_F(BatchList, FiveThousandSetsHaveAResultEach) {
    std::vector<BatchDataSet> rows;
    for (int i = 0; i < 5000; ++i)
        rows.push_back({0, 150.0 + 0.04 * i, 20.0 + i, 10.0F, 500.0F, 15000.0F, 0});
    use_sets(3, rows);
    chosen.pages = {.residual = true, .derivatives = true, .functions = true};
    const report::Comparison all = compare();
    EXPECT_EQ(all.results.size(), 5000U);
    std::size_t results = 0;
    for (const auto& one : all.results) results += one.phases != "   ";
    EXPECT_EQ(results, 5000U);
    EXPECT_TRUE(all.told.empty());
    EXPECT_GT(report::make_result_list(all, title(), true, ListForm::Print).lines.size(),
              5000U * 29U);
}

TEST_F(BatchList, TroubleOfAllSetsIsToldOnce) {
    use_sets(3, std::vector<BatchDataSet>(50, {0, 300, 500, 0, 0, 0, 0}));
    use_units(1);
    substance.M = 0;
    const report::Comparison all = compare();
    ASSERT_EQ(all.told.size(), 1U);
    EXPECT_EQ(all.told[0].text, "Division by zero");
    const auto result = report::make_result_list(all, "x", false, ListForm::File);
    for (const auto& mean : result.means) EXPECT_FALSE(mean.value());
}

TEST_F(BatchList, WithoutDataThereIsAnEmptyTable) {
    use_sets(3, {});
    const auto result = list();
    EXPECT_EQ(result.lines[6], "Number of Data Sets  : 0");
    EXPECT_EQ(result.lines.back(), "arithmet. mean of ABS(%-deviations):");
}

}  // namespace
