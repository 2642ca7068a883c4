#include <algorithm>
#include <filesystem>
#include <fstream>

#include "common/numbers.h"
#include "common/text.h"
#include "report/titles.h"
#include "session_calc_test.h"
#include "support/machine_faults.h"

using namespace quor;

namespace {

using report::ResultView;

std::string content_of(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// The result view round the texts of a calculation.
class ResultViewTest : public SessionCalcTest {
  protected:
    void use_sets(const std::vector<calculation::BatchDataSet>& sets) {
        change([&](session::SessionState& s) {
            s.batch_mode = true;
            s.measured.points = sets;
        });
    }

    ResultView open(int mode) {
        session.change()->calculation.task = calculation::task_of_code(mode);
        return session::open_result_view(session);
    }
    int page() const {
        const calculation::Pages& pages = state().pages;
        return 1 + (pages.residual ? 1 : 0) + (pages.derivatives ? 2 : 0);
    }
    std::string title(int code) const {
        return report::title_of(calculation::task_of_code(code), state().method);
    }
    std::string caption(int code) const {
        return report::caption_of(calculation::task_of_code(code), state().method);
    }
    std::string given_caption() const {
        return report::input_caption(session->results.current.data_set);
    }
};

TEST_F(ResultViewTest, TitlesNameTheCalculation) {
    const std::pair<int, const char*> titles[] = {
        {1, " T, rho(V)  => p"},
        {2, " T, rho(L)  => p"},
        {3, " T, p => rho"},
        {13, " p, rho => T"},
        {4, " T => p(LV) (global calculation)"},
        {5, " p => T(LV) (global calculation)"},
        {6, "T => Enthalpy of Vaporization according to \"Models\""},
        {7, "p => Enthalpy of Vaporization according to \"Models\""},
        {8, " thermodynamic Fu(T) (global calculation)"},
        {12, "Polytropic process"},
        {11, "Comparison of Virial Coefficients"}};
    for (const auto& [mode, text] : titles) {
        EXPECT_EQ(title(mode), text);
        EXPECT_EQ(caption(mode), std::string("Result of the Calculation: ") + text);
    }
    EXPECT_EQ(caption(9), "Phases and Pressure in a Tank (global calculation)");
    session.change()->calculation.method.global = false;
    EXPECT_EQ(title(4), " T => p(LV) (partial calculation)");
    EXPECT_EQ(caption(10),
              "Phases and Pressure in a Tank (partial calculation, rho_L  by BENSON's method)");
}

TEST_F(ResultViewTest, DirectModeOpensEmptyAndHidesTheStepping) {
    const ResultView view = open(3);
    EXPECT_EQ(view.caption, "Result of the Calculation:  T, p => rho");
    EXPECT_EQ(given_caption(), " Specification value from input ");
    EXPECT_EQ(view.ok_caption, "Close");
    EXPECT_FALSE(view.step_visible || view.result_output_visible);
    EXPECT_TRUE(view.protocol_visible && view.extended_visible && view.extended_enabled);
    EXPECT_EQ(page(), 1);
    EXPECT_EQ(resultText().par1.text, "no T in this data set");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ResultViewTest, PanelsFollowTheMode) {
    session.change()->batch_mode = true;
    const struct {
        int mode;
        bool output, protocol, extended;
    } cases[] = {{1, true, true, true},    {6, true, true, false},  {7, true, true, false},
                 {8, true, true, true},    {9, true, false, true},  {11, false, true, false},
                 {14, false, true, false}, {24, false, true, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        const ResultView view = open(c.mode);
        EXPECT_EQ(view.result_output_visible, c.output);
        EXPECT_EQ(view.protocol_visible, c.protocol);
        EXPECT_EQ(view.extended_visible, c.extended);
    }
    EXPECT_TRUE(open(12).wide);
    session.change()->calculation.method.global = false;
    EXPECT_FALSE(open(4).extended_enabled);
    EXPECT_TRUE(open(3).extended_enabled);
}

TEST_F(ResultViewTest, OpensOnTheFirstActiveDataSet) {
    use_sets({{-1, 290, 100}, {0, 300, 100}, {0, 310, 100}});
    session.change()->results.rows.assign(9, {});
    ResultView view = open(3);
    EXPECT_EQ(state().data_set, 2);
    EXPECT_EQ(given_caption(), " Specification value from set #2");
    EXPECT_EQ(view.ok_caption, "=>Load");
    EXPECT_TRUE(view.step_visible && view.result_output_visible);
    EXPECT_EQ(session->results.rows.size(), 3U);
    EXPECT_EQ(resultText().par1.text, "T = 300.000 K");
    EXPECT_EQ(session->results.rows[1].phases, " V ");
    EXPECT_EQ(session->results.rows[0].phases, "   ");
}

TEST_F(ResultViewTest, StepsOverInactiveSetsAndBeepsAtTheEnds) {
    use_sets({{0, 290, 100}, {-1, 300, 100}, {0, 310, 100}, {-1, 320, 100}});
    ResultView view = open(3);
    EXPECT_EQ(state().data_set, 1);
    session::step_forward(session);
    EXPECT_EQ(state().data_set, 3);
    EXPECT_EQ(given_caption(), " Specification value from set #3");
    EXPECT_EQ(resultText().par1.text, "T = 310.000 K");
    EXPECT_EQ(user.beeps, 0);
    session::step_forward(session);
    EXPECT_EQ(user.beeps, 1);
    EXPECT_EQ(state().data_set, 3);
    EXPECT_EQ(resultText().par1.text, "T = 310.000 K") << "calculates the same set again";
    session::step_backward(session);
    EXPECT_EQ(state().data_set, 1);
    session::step_backward(session);
    EXPECT_EQ(user.beeps, 2);
    EXPECT_EQ(state().data_set, 1);
}

TEST_F(ResultViewTest, BatchModeWithoutDataHasNoT) {
    use_sets({});
    open(3);
    EXPECT_EQ(state().data_set, 1);
    EXPECT_EQ(resultText().par1.text, "no T in this data set");
}

TEST_F(ResultViewTest, PagesFollowTheCheckBoxes) {
    use_sets({{0, 300, 500}});
    ResultView view = open(3);
    session::set_extended_pages(session, view, true, false);
    EXPECT_EQ(page(), 2);
    EXPECT_TRUE(view.function_print_enabled);
    EXPECT_TRUE(has_line("Residual Functions:"));
    session::set_extended_pages(session, view, false, true);
    EXPECT_EQ(page(), 3);
    EXPECT_FALSE(has_line("Residual Functions:"));
    session::set_extended_pages(session, view, true, true);
    EXPECT_EQ(page(), 4);
    session::set_extended_pages(session, view, false, false);
    EXPECT_EQ(page(), 1);
    EXPECT_FALSE(view.function_print_enabled);
    session::set_equilibrium_functions(session, true);
    EXPECT_TRUE(has_line("                               thermodynamic Fu(T)"));
    session::set_equilibrium_functions(session, false);
    EXPECT_FALSE(has_line("                               thermodynamic Fu(T)"));
    view = open(8);
    session::set_extended_pages(session, view, true, false);
    EXPECT_FALSE(view.function_print_enabled) << "only for modes below 6";
}

TEST_F(ResultViewTest, RefusedTankLeavesTheViewEmpty) {
    session.change()->tank = {1.0F, 100.0F, 400.0F};
    session.change()->calculation.method.global = false;
    open(10);
    EXPECT_TRUE(session->results.current.refused());
    EXPECT_TRUE(lines().empty());
}

TEST_F(ResultViewTest, SeparatorShowsAndSets) {
    const std::pair<char, int> entries[] = {{';', 0}, {',', 1}, {'\t', 2}, {'|', 0}};
    for (const auto& [separator, index] : entries) {
        session.change()->csv_separator = separator;
        EXPECT_EQ(report::separator_index(session->csv_separator), index);
    }
    session::choose_separator(session, 2);
    EXPECT_EQ(session->csv_separator, '\t');
    session::choose_separator(session, 1);
    EXPECT_EQ(session->csv_separator, ',');
    session::choose_separator(session, 0);
    EXPECT_EQ(session->csv_separator, ';');
}

TEST_F(ResultViewTest, LoadWritesAListAndClosesTheViews) {
    int closed = 0;
    session::CalculationViews views;
    views.close_result_view = [&] { ++closed; };
    views.close_direct_input = [&] { ++closed; };
    use_sets({{0, 300, 500, 11.0F}});
    const ResultView view = open(3);
    user.fileAnswers = {std::nullopt, (folder() / "list").string()};
    EXPECT_FALSE(
        session::finish_result_view(session, view, report::ListTarget::File, false, views));
    EXPECT_EQ(closed, 0) << "a cancel leaves the view open";
    ASSERT_EQ(user.files.size(), 1U);
    EXPECT_EQ(user.files[0].title, "Save QUOR result list as ...");
    EXPECT_EQ(user.files[0].filter, "Result file (*.LST)|*.LST");
    EXPECT_EQ(user.files[0].default_extension, ".LST");
    EXPECT_TRUE(user.files[0].save && user.files[0].overwrite_prompt);
    EXPECT_TRUE(session::finish_result_view(session, view, report::ListTarget::File, false, views));
    EXPECT_EQ(closed, 2);
    EXPECT_EQ(content_of(folder() / "list.LST").substr(0, 29), "QUOR Results of Calculation\r\n");
    EXPECT_TRUE(
        session::finish_result_view(session, view, report::ListTarget::Printer, false, views));
    ASSERT_EQ(user.prints.size(), 1U);
    EXPECT_EQ(user.prints[0].font, "COURIER");
    EXPECT_EQ(user.prints[0].text.substr(0, 29), "QUOR: Results of Calculation\n");
    EXPECT_TRUE(session::finish_result_view(session, view, report::ListTarget::None, false, views));
}

TEST_F(ResultViewTest, UnwritableListTellsAndLeavesTheViewOpen) {
    use_sets({{0, 300, 500}});
    const ResultView view = open(3);
    const session::CalculationViews views;
    user.fileAnswers = {(folder() / "no" / "such" / "folder.LST").string()};
    EXPECT_FALSE(
        session::finish_result_view(session, view, report::ListTarget::File, false, views));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_NE(user.lastText().find("folder.LST"), std::string::npos);
}

TEST_F(ResultViewTest, IsoCalculatorNeedsTAndP) {
    EXPECT_FALSE(session::iso_start(session));
    session::calculate(session, report::functions_request(300, 0));
    EXPECT_FALSE(session::iso_start(session));
    session::calculate(session, report::functions_request(300, 500.5));
    const auto typed = session::iso_start(session);
    ASSERT_TRUE(typed);
    EXPECT_DOUBLE_EQ(typed->p, 500.5);
    use_sets({{0, 310, 700}});
    session.change()->calculation.data_set = 1;
    session.change()->calculation.task = calculation::Task::state;
    session::calculate(session, session::present_request(session), 1);
    const auto measured = session::iso_start(session);
    ASSERT_TRUE(measured);
    EXPECT_DOUBLE_EQ(measured->T, 310);
}

// ---- Protocol ---------------------------------------------------------------------------------

class Protocol : public ResultViewTest {
  protected:
    std::vector<std::string> file_lines() {
        return text::lines(content_of(folder() / protocol().file));
    }
    const report::Protocol& protocol() const { return session->protocol; }
    void write_state(double T, double p) {
        calculate(3, T, p);
        session::add_to_protocol(session);
    }
};

TEST_F(Protocol, CollectsAndWritesTheKeptRows) {
    EXPECT_EQ(protocol().file, "26151101.CSV");
    write_state(300, 100);
    write_state(310.5, 200);
    EXPECT_EQ(protocol().rows.size(), 2U);
    EXPECT_TRUE(protocol().pending);
    ASSERT_TRUE(session::write_protocol(session));
    const std::string bytes = content_of(folder() / "26151101.CSV");
    EXPECT_NE(bytes.find("\r\n"), std::string::npos);
    const auto rows = file_lines();
    ASSERT_EQ(rows.size(), 9U);
    EXPECT_EQ(rows[0],
              "QUOR-6: p-V-T Calculations of States and Processes - Protocol from 15.11.2026");
    EXPECT_EQ(rows[1], "Propane");
    EXPECT_EQ(rows[2], "C3H8");
    EXPECT_EQ(rows[3], "units: [T] = K   [p] = kPa   [B] = m^3/kmol    [v] = m^3/kmol ");
    EXPECT_EQ(rows[4], "molar SI-units for function z: [z] = kJ/kmol or kJ/(kmol K)");
    EXPECT_EQ(rows[5], "");
    EXPECT_EQ(rows[6], "T;p;v(V);");
    const auto general = [](double value) {
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.7G",
                      static_cast<double>(static_cast<float>(value)));
        std::string text(buffer);
        std::replace(text.begin(), text.end(), ',', '.');  // of a locale with a decimal comma
        return text;
    };
    calculate(3, 300, 100);
    EXPECT_EQ(rows[7], "300;100;" + general(session->results.current.numbers[9]) + ";");
    calculate(3, 310.5, 200);
    EXPECT_EQ(rows[8], "310.5;200;" + general(session->results.current.numbers[9]) + ";");
}

TEST_F(Protocol, NamesStandForTheirIndices) {
    for (std::size_t i = 0; i < 42; ++i)
        session.change()->results.current.numbers[i] = static_cast<double>(i + 1);
    session::add_to_protocol(session);
    ASSERT_TRUE(session::write_protocol(session));
    const auto rows = file_lines();
    const auto names = text::split(rows[7], ';');
    ASSERT_EQ(names.size(), 43U);
    EXPECT_EQ(names[9], "v(V)");
    EXPECT_EQ(names[16], " eU(V)");
    EXPECT_EQ(names[19], "v(L)");
    EXPECT_EQ(names[29], "delta(LV)h");
    EXPECT_EQ(names[34], "delta(V)");
    EXPECT_EQ(names[38], "delta(L)");
    EXPECT_EQ(names[41], "B");
    EXPECT_EQ(names[42], "");
    EXPECT_EQ(text::split(rows[8], ';')[41], "42");
}

TEST_F(Protocol, FunctionsComeWithTheirReferenceState) {
    session.change()->units.system = models::UnitSystem::specific;
    session.change()->units.caloric = models::CaloricUnit::specific;
    calculate(8, 300, 100);
    session::add_to_protocol(session);
    ASSERT_TRUE(session::write_protocol(session));
    const auto rows = file_lines();
    EXPECT_EQ(rows[3], "units: [T] = K   [p] = kPa   [B] = m^3/kmol    [v] = m^3/kg");
    EXPECT_EQ(rows[4], "specific SI-units for function z: [z] = kJ/kg or kJ/(kg K)");
    EXPECT_EQ(rows[5],
              "Model: CEOS Peng / Robinson; ideal-gas cp: sinh/cosh equation; Reference state: h = "
              "0, s = 0, ideal gas at 298.15 K, 101.325 kPa; Surroundings for exergies: 298.15 K, "
              "101.325 kPa");
    EXPECT_EQ(rows[6], "");
    EXPECT_EQ(rows[7],
              "T;p;v(V);h(V);s(V);g(V);u(V);a(V);eH(V); eU(V);cp(V);cV(V);sound speed(V);");
}

TEST_F(Protocol, DecimalCommaWithCommaWarnsInGermanAndGoesOn) {
    numbers::set_decimal_mark(',');
    session.change()->decimal_comma = true;
    session::choose_separator(session, 1);
    write_state(310.5, 200);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "Bei Computereinstellung \"Deutschland\" (Dezimalzeichen Komma)\n"
              "ist Komma als Dateitrennzeichen nicht sinnvoll; der Clipboard-Inhalt\n"
              "ist nicht mehr Excel-kompatibel.\nsemicolon recommended");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    ASSERT_TRUE(session::write_protocol(session));
    EXPECT_EQ(file_lines()[7].substr(0, 10), "310,5,200,");
    user.messages.clear();
    session::choose_separator(session, 0);
    write_state(310.5, 200);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Protocol, OpenNewCopiesTheFileAndTakesANewName) {
    write_state(300, 100);
    ASSERT_TRUE(session::open_new_protocol(session));
    EXPECT_EQ(protocol().file, "26151102.CSV");
    EXPECT_EQ(session::protocol_file_title(session), "26151102.CSV");
    EXPECT_FALSE(protocol().pending);
    EXPECT_TRUE(protocol().rows.empty());
    EXPECT_TRUE(protocol().rows.empty());
    EXPECT_NE(user.clipboard.find("\r\nT\tp\tv(V)\t\r\n300\t100\t"), std::string::npos);
    write_state(301, 100);
    ASSERT_TRUE(session::open_new_protocol(session));
    EXPECT_EQ(user.clipboard.find("\r\n300\t"), std::string::npos) << "a new file starts empty";
}

TEST_F(Protocol, EmptyFileIsDeleted) {
    std::ofstream(folder() / protocol().file).flush();
    const std::string name = protocol().file;
    ASSERT_TRUE(session::open_new_protocol(session));
    EXPECT_FALSE(std::filesystem::exists(folder() / name));
    EXPECT_TRUE(user.clipboard.empty());
    std::ofstream(folder() / protocol().file).flush();
    session::close_protocol(session);
    EXPECT_FALSE(std::filesystem::exists(folder() / protocol().file));
}

TEST_F(Protocol, ExitWritesWhatIsPending) {
    write_state(300, 100);
    session::close_protocol(session);
    EXPECT_FALSE(protocol().pending);
    EXPECT_EQ(file_lines()[6], "T;p;v(V);");
}

TEST_F(Protocol, WhatCannotBeWrittenToItsFolderGoesWhereTheUserWantsIt) {
    namespace fs = std::filesystem;
    write_state(300, 100);
    const fs::path file = folder() / protocol().file;
    ASSERT_TRUE(session::write_protocol(session));
    fs::permissions(file, fs::perms::owner_read);
    fs::create_directory(folder() / "sub");
    user.fileAnswers = {(folder() / "sub" / "MINE").string()};
    EXPECT_TRUE(session::close_protocol(session));
    EXPECT_EQ(user.lastText(),
              "The file 26151101.CSV could not be written (it is write-protected).\n\n"
              "Save it in another place?");
    EXPECT_EQ(user.files.back().name, "26151101.CSV");
    EXPECT_EQ(content_of(folder() / "sub" / "MINE.CSV"), content_of(file));
    EXPECT_FALSE(protocol().pending);
}

TEST_F(Protocol, AFileThatAnotherProgramHasWrittenSinceIsLeftToIt) {
    namespace fs = std::filesystem;
    write_state(300, 100);
    const fs::path file = folder() / protocol().file;
    ASSERT_TRUE(session::write_protocol(session));
    std::ofstream(file) << "of another program";
    fs::last_write_time(file, fs::file_time_type::clock::now() + std::chrono::seconds(2));
    write_state(310, 100);
    ASSERT_TRUE(session::write_protocol(session));
    EXPECT_EQ(content_of(file), "of another program");
    EXPECT_EQ(protocol().file, "26151102.CSV");
    EXPECT_NE(content_of(folder() / protocol().file).find("310;100"), std::string::npos);
}

TEST_F(Protocol, WriteProtectedFileLosesNothing) {
    namespace fs = std::filesystem;
    write_state(300, 100);
    const fs::path file = folder() / protocol().file;
    ASSERT_TRUE(session::write_protocol(session));
    const std::string before = content_of(file);
    fs::permissions(file, fs::perms::owner_read);
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(session::open_new_protocol(session));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_NE(user.lastText().find("26151101.CSV could not be written"), std::string::npos);
    EXPECT_TRUE(protocol().pending);
    EXPECT_EQ(protocol().rows.size(), 1U);
    EXPECT_EQ(protocol().file, "26151101.CSV");
    EXPECT_EQ(content_of(file), before);
    user.answers = {dialogs::Answer::Cancel};
    EXPECT_FALSE(session::close_protocol(session)) << "the program goes on";
    EXPECT_TRUE(protocol().pending);
    fs::permissions(file, fs::perms::owner_all);
    EXPECT_TRUE(session::open_new_protocol(session));
    EXPECT_NE(user.clipboard.find("300\t100"), std::string::npos);
}

TEST_F(Protocol, FolderThatTakesNoFileLosesNothing) {
    namespace fs = std::filesystem;
    write_state(300, 100);
    {
        const FaultyDisk disk = FaultyDisk::read_only(folder());
        if (!disk.is_made()) GTEST_SKIP() << "no disks can be made here";
        EXPECT_FALSE(session::open_new_protocol(session));
    }
    EXPECT_TRUE(protocol().pending);
    EXPECT_EQ(protocol().rows.size(), 1U);
    EXPECT_FALSE(fs::exists(folder() / protocol().file));
    EXPECT_TRUE(session::open_new_protocol(session));
}

TEST_F(Protocol, UnwritablePathLosesNothing) {
    write_state(300, 100);
    session.change()->protocol.file = (folder() / "gone" / "a.CSV").string();
    EXPECT_FALSE(session::open_new_protocol(session));
    EXPECT_TRUE(protocol().pending);
    EXPECT_EQ(protocol().rows.size(), 1U);
    session.change()->protocol.file = "26151101.CSV";
    EXPECT_TRUE(session::open_new_protocol(session));
}

TEST_F(Protocol, AFileOfAnotherProgramIsNotOverwritten) {
    // Two programs took the same free name as they started.
    std::ofstream(folder() / "26151101.CSV") << "of another program";
    write_state(300, 100);
    ASSERT_TRUE(session::write_protocol(session));
    EXPECT_EQ(content_of(folder() / "26151101.CSV"), "of another program");
    EXPECT_EQ(protocol().file, "26151102.CSV");
    EXPECT_EQ(file_lines()[6], "T;p;v(V);");
    write_state(310, 100);
    ASSERT_TRUE(session::write_protocol(session));
    EXPECT_EQ(protocol().file, "26151102.CSV") << "the own file is written again";
    EXPECT_EQ(file_lines().size(), 9U);
}

TEST_F(Protocol, ARowStaysWithTheSubstanceThatMadeIt) {
    session.change()->substance = fluids::Row("Water");
    use_models({});
    write_state(400, 100);
    session.change()->substance = fluids::ReferencePropane();
    use_models({});
    ASSERT_TRUE(session::write_protocol(session));
    EXPECT_EQ(file_lines()[1], "Water");
    write_state(300, 100);
    ASSERT_TRUE(session::write_protocol(session));
    const auto rows = file_lines();
    ASSERT_EQ(rows.size(), 18U);
    EXPECT_EQ(rows[1], "Water");
    EXPECT_EQ(rows[8].substr(0, 8), "400;100;");
    EXPECT_EQ(rows[9], "");
    EXPECT_EQ(rows[10], "Propane");
    EXPECT_EQ(rows[17].substr(0, 8), "300;100;");
}

TEST_F(Protocol, ARowStaysWithItsModelAndItsUnits) {
    write_state(300, 100);
    use_models({.eos = 4});
    write_state(300, 100);
    session.change()->units.system = models::UnitSystem::specific;
    session.change()->units.caloric = models::CaloricUnit::specific;
    write_state(300, 100);
    ASSERT_TRUE(session::write_protocol(session));
    std::vector<std::string> models, units;
    for (const std::string& line : file_lines()) {
        if (line.starts_with("Model: ")) models.push_back(line);
        if (line.starts_with("units: ")) units.push_back(line);
    }
    ASSERT_EQ(models.size(), 3U);
    EXPECT_NE(models[0], models[1]);
    EXPECT_EQ(models[1], models[2]);
    ASSERT_EQ(units.size(), 3U);
    EXPECT_EQ(units[0], units[1]);
    EXPECT_TRUE(units[2].ends_with("[v] = m^3/kg"));
}

TEST_F(Protocol, AValueBeyond32BitsIsRefused) {
    session.change()->results.current.numbers[5] = 1e300;
    session::add_to_protocol(session);
    EXPECT_EQ(user.lastText(), "Overflow");
    EXPECT_FALSE(protocol().pending);
}

}  // namespace
