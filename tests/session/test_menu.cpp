#include <algorithm>
#include <map>
#include <set>

#include "app/menu_catalogue.h"
#include "app/menu_commands.h"
#include "support/codes.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using session::Command;

class Menu : public SessionTest {
  protected:
    static const menu::Row& row(std::string_view name) {
        const menu::Row* found = menu::find(name);
        if (found == nullptr) throw std::runtime_error("no row " + std::string(name));
        return *found;
    }
    // Everything has a handler, so that only the session decides.
    void handleAll() {
        for (const menu::Row& r : menu::rows())
            if (!r.action.empty()) commands.add(r.action, [] {});
    }

    app::Commands commands;
};

TEST_F(Menu, EveryRowHasANameOfItsOwn) {
    std::set<std::string> names;
    for (const menu::Row& r : menu::rows())
        if (r.kind != menu::Kind::Separator) {
            EXPECT_TRUE(names.insert(menu::object_name(r)).second) << menu::object_name(r);
            EXPECT_FALSE(r.caption.empty()) << menu::object_name(r);
        }
}

TEST_F(Menu, EveryRowStandsInAMenuThatOpensBeforeIt) {
    std::set<std::string_view> menus = {""};
    for (const menu::Row& r : menu::rows()) {
        EXPECT_TRUE(menus.contains(r.parent)) << menu::object_name(r);
        if (r.kind == menu::Kind::Submenu) menus.insert(r.submenu);
    }
}

TEST_F(Menu, TopLevelRowsComeInTheOrderOfTheWork) {
    std::vector<std::string> names;
    for (const menu::Row& r : menu::rows())
        if (r.parent.empty()) names.push_back(menu::object_name(r));
    EXPECT_EQ(names, (std::vector<std::string>{"mnuData", "mnuEdit", "mnuStoff", "mnuModel",
                                               "mnu2D", "mnu3D", "mnuCalcMain", "mnuFitting",
                                               "mnuOptions", "mnuWindow", "mnuHilfe"}));
}

TEST_F(Menu, AccessKeysOfTheMenuBarDoNotClash) {
    std::set<char> keys;
    for (const menu::Row& r : menu::rows()) {
        const std::size_t mark = r.caption.find('&');
        if (!r.parent.empty() || mark == std::string_view::npos) continue;
        EXPECT_TRUE(keys.insert(r.caption[mark + 1]).second) << r.caption;
    }
    EXPECT_EQ(keys.size(), 10U);
}

TEST_F(Menu, RowsOfTheCalculationMenuStartTheirModes) {
    const std::vector<std::pair<std::string, int>> modes = {
        {"mnuCalc_0", 1},  {"mnuCalc_1", 2},   {"mnuCalc_2", 3},  {"mnuCalc_3", 13},
        {"mnuCalc_5", 4},  {"mnuCalc_6", 5},   {"mnuCalc_8", 6},  {"mnuCalc_9", 7},
        {"mnuCalc_11", 8}, {"mnuCalc_13", 12}, {"mnuCalc_15", 9}, {"mnuCalc_16", 10},
        {"mnuCalc_18", 11}};
    for (const auto& [name, mode] : modes) EXPECT_EQ(row(name).code, mode) << name;
    // The captions of the database functions run one row behind what the rows start.
    const std::vector<std::pair<std::string, int>> database = {
        {"L density", 14},       {"Enthalpy of vaporization", 24}, {"Ideal-gas heat capacity", 15},
        {"L heat capacity", 16}, {"S heat capacity", 17},          {"S heat capacity", 18}};
    for (std::size_t i = 0; i < database.size(); ++i) {
        const menu::Row& r = row("mnuCalc_sub_database_" + std::to_string(i + 1));
        EXPECT_EQ(r.caption, database[i].first);
        EXPECT_EQ(r.code, database[i].second);
    }
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(row("mnuCalc_sub_sub_database_" + std::to_string(i)).code, 19 + i);
    EXPECT_EQ(menu::object_name(*menu::calculation_row(9)), "mnuCalc_15");
    EXPECT_EQ(menu::calculation_row(23), nullptr);
}

TEST_F(Menu, DiagramRowsCarryTheirDiagrams) {
    struct Expected {
        const char* menu;
        std::vector<int> indices, codes, sections;
        std::vector<std::string> axes;
    };
    const std::vector<std::string> yT5(5, "yT"), yp5(5, "yp"), yv5(5, "yv");
    const std::vector<Expected> all = {
        {"mnuGraf_sub_cut",
         {1, 2, 3, 5, 6, 8},
         {1, 26, 2, 3, 4, 5},
         {1, 1, 1, 2, 2, 3},
         {"pv", "yp", "yp", "Tv", "Tx", "pT"}},
        {"mnuGraf_sub_FuT",
         {1, 3, 4, 5, 6, 7, 9, 10, 11, 12, 13},
         {34, 15, 16, 17, 18, 19, 184, 183, 182, 181, 185},
         {2, 2, 2, 2, 2, 2, 3, 3, 3, 3, 3},
         std::vector<std::string>(11, "yT")},
        {"mnuGraf_sub_Fup", {1, 2, 3, 4, 5}, {150, 151, 152, 153, 154}, {1, 1, 1, 1, 1}, yp5},
        {"mnuGraf_sub_FuV", {1, 2, 3, 4, 5}, {158, 157, 156, 160, 159}, {1, 1, 1, 1, 1}, yv5},
        {"mnuGraf_sub_res_FuT",
         {1, 2, 3, 4},
         {31, 30, 32, 33},
         {2, 2, 2, 2},
         std::vector<std::string>(4, "yT")},
        {"mnuGraf_sub_res_Fup",
         {1, 2, 3, 4},
         {41, 40, 42, 43},
         {1, 1, 1, 1},
         std::vector<std::string>(4, "yp")},
        {"mnuGraf_sub_HS", {1, 2}, {107, 24}, {1, 2}, {"yy", "yy"}},
        {"mnuGraf_sub_ES", {1, 2}, {109, 23}, {1, 2}, {"yy", "yy"}},
        {"mnuGraf_sub_EH", {1, 2}, {21, 22}, {1, 2}, {"yy", "yy"}},
        {"mnuGraf_sub_proj",
         {0, 1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 14, 15},
         {13, 6, 27, 106, 7, 8, 9, 90, 91, 93, 94, 92, 10, 11},
         std::vector<int>(14, 5),
         {"yT", "pv", "yp", "yp", "Tv", "yT", "pT", "yT", "yT", "yT", "yT", "yT", "pT", "yT"}},
        {"mnuGraf_sub_database",
         {1, 2, 3, 4, 5, 6, 7},
         {300, 301, 310, 305, 302, 303, 304},
         std::vector<int>(7, 7),
         std::vector<std::string>(7, "yT")},
        {"mnuGraf_sub_sub_database",
         {0, 1, 2, 3},
         {306, 307, 308, 309},
         {7, 7, 7, 7},
         std::vector<std::string>(4, "pT")},
    };
    using diagrams::Section;
    const std::map<int, Section> sections = {{1, Section::isothermal},
                                             {2, Section::isobaric},
                                             {3, Section::isochoric},
                                             {5, Section::projection},
                                             {7, Section::database}};
    std::size_t rows = 0;
    for (const Expected& e : all)
        for (std::size_t i = 0; i < e.indices.size(); ++i, ++rows) {
            const std::string name = std::string(e.menu) + "_" + std::to_string(e.indices[i]);
            const menu::Row& r = row(name);
            EXPECT_EQ(r.code, e.codes[i]) << name;
            EXPECT_TRUE(menu::prepare(session, r));
            ASSERT_NE(session->diagram, nullptr) << name;
            EXPECT_EQ(session->diagram->code, e.codes[i]);
            EXPECT_EQ(session->diagram->section, sections.at(e.sections[i])) << name;
            EXPECT_EQ(session->diagram->axis_pair, e.axes[i]) << name;
        }
    const auto shown = std::count_if(menu::rows().begin(), menu::rows().end(),
                                     [](const auto& r) { return r.action == "Diagram2D"; });
    EXPECT_EQ(static_cast<std::size_t>(shown), rows);
}

TEST_F(Menu, SurfaceRowsCarryTheirKinds) {
    const std::vector<std::pair<int, int>> kinds = {{0, 1}, {1, 3}, {2, 4}, {4, 5},
                                                    {5, 7}, {6, 8}, {7, 9}, {8, 10}};
    for (const auto& [index, kind] : kinds)
        EXPECT_EQ(row("mnu3DSub_" + std::to_string(index)).code, kind);
}

TEST_F(Menu, ARowWithoutAHandlerIsDisabled) {
    const menu::Row& status = row("mnuData_Status");
    EXPECT_TRUE(menu::allowed(session, status));
    EXPECT_FALSE(menu::enabled(session, commands, status));
    commands.add("mnuData_Status", [] {});
    EXPECT_TRUE(menu::enabled(session, commands, status));
}

TEST_F(Menu, ACommandSwitchesItsRow) {
    handleAll();
    const std::vector<std::pair<std::string, Command>> rows = {
        {"mnuStoff", Command::chooseSubstance},
        {"mnuModel", Command::chooseModels},
        {"mnu2D", Command::diagrams},
        {"mnu3D", Command::surfaces},
        {"mnuCalcMain", Command::calculations},
        {"mnuFitting", Command::fitting},
        {"mnuOptions", Command::options},
        {"mnuData_SaveProject", Command::saveProject},
        {"mnuData_BatchInput", Command::measuredDataInput},
        {"mnuData_BatchEdit", Command::measuredDataEdit},
        {"mnuData_EditStoffdaten", Command::substanceData}};
    for (const auto& [name, command] : rows) {
        EXPECT_FALSE(menu::enabled(session, commands, row(name))) << name;
        session::set_commands(session, {command}, true);
        EXPECT_TRUE(menu::enabled(session, commands, row(name))) << name;
    }
    for (const char* always :
         {"mnuData_OpenBank", "mnuData_LoadLastSession", "mnuData_LoadProject", "mnuData_EditXY",
          "mnuData_Exit", "mnuHilfe_About", "mnuData_JOBACK_CritData"})
        EXPECT_TRUE(menu::enabled(session, commands, row(always))) << always;
}

TEST_F(Menu, CaptionsFollowTheModeOfCalculation) {
    EXPECT_EQ(menu::caption(session, row("mnuCalc_0")),
              "T, rho      => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, row("mnuCalc_2")),
              "T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, row("mnuCalc_3")),
              "p, rho      => T, state L/V     + thermod. Fu.");
    EXPECT_FALSE(menu::visible(session, row("mnuCalc_1")));
    session.change()->batch_mode = true;
    EXPECT_EQ(menu::caption(session, row("mnuCalc_0")),
              "columns T, rho(V) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, row("mnuCalc_1")),
              "columns T, rho(L) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, row("mnuCalc_2")),
              "columns T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, row("mnuCalc_3")),
              "columns p, rho(V) => T, state L/V     + thermod. Fu.");
    EXPECT_TRUE(menu::visible(session, row("mnuCalc_1")));
}

TEST_F(Menu, TheVirialRowNamesParametersOnlyForACubicEquation) {
    EXPECT_EQ(menu::caption(session, row("mnuCalc_18")),
              "T => Virial Coefficient B, Parameters of the CEOS");
    session.change()->models.vapour_only = true;
    EXPECT_EQ(menu::caption(session, row("mnuCalc_18")), "T => Virial Coefficient B");
}

TEST_F(Menu, TheTankIsForDirectOperation) {
    handleAll();
    session::set_commands(session, {Command::calculations, Command::toolTank, Command::needsLPhase},
                          true);
    const menu::ToolButton& tool = menu::tool_buttons().back();
    ASSERT_EQ(tool.index, 15);
    EXPECT_TRUE(menu::enabled(session, commands, row("mnuCalc_15")));
    EXPECT_TRUE(menu::enabled(session, commands, row("mnuCalc_16")));
    EXPECT_TRUE(menu::enabled(session, commands, tool));
    session.change()->batch_mode = true;
    EXPECT_FALSE(menu::enabled(session, commands, row("mnuCalc_15")));
    EXPECT_FALSE(menu::enabled(session, commands, row("mnuCalc_16")));
    EXPECT_FALSE(menu::enabled(session, commands, tool));
}

TEST_F(Menu, TheGlobalTankNeedsALiquidFromTheEquationOfState) {
    handleAll();
    session::set_commands(session, {Command::calculations, Command::toolTank}, true);
    session.change()->models.eos_has_priority = false;
    EXPECT_FALSE(menu::enabled(session, commands, row("mnuCalc_15")));
    EXPECT_TRUE(menu::enabled(session, commands, row("mnuCalc_16")));
    EXPECT_TRUE(menu::enabled(session, commands, menu::tool_buttons().back()));
}

TEST_F(Menu, TheTankButtonGoesWithTheCalculationMenu) {
    handleAll();
    session::set_commands(session, {Command::toolTank, Command::needsLPhase}, true);
    EXPECT_FALSE(menu::enabled(session, commands, menu::tool_buttons().back()));
    session::set_commands(session, {Command::calculations}, true);
    EXPECT_TRUE(menu::enabled(session, commands, menu::tool_buttons().back()));
}

TEST_F(Menu, ToolButtonsBearTheirTips) {
    const std::vector<std::pair<int, std::string>> tips = {
        {2, " New project "},
        {4, " Load last session "},
        {6, " Load an existing project "},
        {7, " Save actual project "},
        {11, "Reference State for Thermodynamic"},
        {15, " Tank calculation "}};
    ASSERT_EQ(menu::tool_buttons().size(), tips.size());
    for (std::size_t i = 0; i < tips.size(); ++i) {
        EXPECT_EQ(menu::tool_buttons()[i].index, tips[i].first);
        EXPECT_EQ(menu::tool_buttons()[i].tooltip, tips[i].second);
    }
}

TEST_F(Menu, DatabaseRowsFollowTheDataOfTheSubstance) {
    handleAll();
    const auto now = session.change();
    models::SubstanceRecord& s = now->substance;
    const auto enabled = [this](const std::string& name) {
        return menu::enabled(session, commands, row(name));
    };
    const std::string first = "mnuCalc_sub_database_", second = "mnuCalc_sub_sub_database_";
    for (int i = 1; i <= 6; ++i) EXPECT_FALSE(enabled(first + std::to_string(i))) << i;
    for (int i = 0; i <= 3; ++i) EXPECT_FALSE(enabled(second + std::to_string(i))) << i;
    EXPECT_TRUE(enabled("mnuCalc_sub_database_0"));

    s.rhoL_coefficients[1] = -2e-6F;
    EXPECT_TRUE(enabled(first + "1"));
    s.rhoS_coefficients[0] = 1e-6F;
    EXPECT_FALSE(enabled(first + "2")) << "not more than 1E-6 away from 0";
    s.rhoS_coefficients[0] = 900.0F;
    EXPECT_TRUE(enabled(first + "2"));
    s.hLV_T_low = 200;
    EXPECT_TRUE(enabled(first + "3"));
    s.cp_sinh_cosh.T_low = 200;
    EXPECT_TRUE(enabled(first + "4"));
    s.cp_sinh_cosh.T_low = 0;
    s.cp_polynomial.T_low = 200;
    EXPECT_TRUE(enabled(first + "4"));
    s.cpL.T_low = 200;
    EXPECT_TRUE(enabled(first + "5"));
    s.cpS.T_low = 50;
    EXPECT_TRUE(enabled(first + "6"));

    s.frost.T_low = 200;
    EXPECT_FALSE(enabled(second + "0")) << "both limits are needed";
    s.frost.T_high = 300;
    EXPECT_TRUE(enabled(second + "0"));
    s.wagner.T_low = s.wagner.T_high = 250;
    EXPECT_TRUE(enabled(second + "1"));
    s.antoine_low.T_low = s.antoine_low.T_high = 250;
    EXPECT_TRUE(enabled(second + "2"));
    s.antoine_high.T_low = s.antoine_high.T_high = 250;
    EXPECT_TRUE(enabled(second + "3"));
}

TEST_F(Menu, ParametersOfTheEOSNeedACompleteChoice) {
    handleAll();
    EXPECT_FALSE(menu::enabled(session, commands, row("mnuData_ParameterEOS")));
    session::set_commands(session, {Command::calculations}, true);
    EXPECT_TRUE(menu::enabled(session, commands, row("mnuData_ParameterEOS")));
}

TEST_F(Menu, SurfacesOfACubicEquationAskForTheRealBehaviour) {
    session.change()->models.eos = codes::eos(6);
    user.answers = {dialogs::Answer::No};
    EXPECT_TRUE(menu::prepare(session, row("mnu3DSub_0")));
    EXPECT_TRUE(session->surface_scurve);
    EXPECT_EQ(session->surface_kind, 1);
    EXPECT_EQ(user.lastText(),
              "Draw physically real behaviour?\n"
              "(No = Draw S-shaped curves in the undercritical region)");
    EXPECT_EQ(user.lastTitle(), "for cubic EOS only");
    user.answers = {dialogs::Answer::Yes};
    menu::prepare(session, row("mnu3DSub_0"));
    EXPECT_FALSE(session->surface_scurve);

    const std::size_t asked = user.messages.size();
    menu::prepare(session, row("mnu3DSub_5"));
    session.change()->models.vapour_only = true;
    menu::prepare(session, row("mnu3DSub_0"));
    EXPECT_EQ(user.messages.size(), asked);
}

TEST_F(Menu, NewDataNeedASubstance) {
    EXPECT_FALSE(menu::prepare(session, row("mnuData_BatchInput")));
    EXPECT_EQ(user.lastText(), "First choose substance!");
    EXPECT_EQ(user.lastTitle(), "friendly remark");
}

TEST_F(Menu, NewDataReplaceOldOnesOnlyAfterAYes) {
    session.change()->substance_number = 1;
    session.change()->measured = {.points = {{.T = 300}, {.T = 300}}, .file = "old.BAQ"};
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(menu::prepare(session, row("mnuData_BatchInput")));
    EXPECT_EQ(user.lastText(),
              "Exspecting input of new data;\nthe existing set of data will be deleted.\n"
              "Do you want this?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(session->measured.points.size(), 2U);

    user.answers = {dialogs::Answer::Yes};
    EXPECT_TRUE(menu::prepare(session, row("mnuData_BatchInput")));
    EXPECT_EQ(session->measured.points.size(), 0U);
    EXPECT_EQ(session->measured.file, "");
}

TEST_F(Menu, TheNoteOnSavingAProjectAppearsOnce) {
    menu::prepare(session, row("mnuData_SaveProject"));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "Please note:\nBefore saving your project the settings\n"
              "for \"Models\" and \"Options\" must be complete");
    EXPECT_EQ(user.lastTitle(), "Single Note");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Information);
    menu::prepare(session, row("mnuData_SaveProject"));
    EXPECT_EQ(user.messages.size(), 1U);
}

TEST_F(Menu, FittingForgetsTheMeasuredData) {
    session.change()->measured.points.resize(5);
    menu::prepare(session, row("mnuFitting"));
    EXPECT_EQ(session->measured.points.size(), 0U);
}

TEST_F(Menu, OpeningTheDataMenuOffersToEditWhatIsThere) {
    menu::open_data_menu(session);
    EXPECT_FALSE(session::is_enabled(session, Command::measuredDataEdit));
    session.change()->measured.points.resize(1);
    menu::open_data_menu(session);
    EXPECT_TRUE(session::is_enabled(session, Command::measuredDataEdit));
}

TEST_F(Menu, ACommandRunsByItsIdAndTheLastOneAddedCounts) {
    int first = 0, second = 0;
    commands.add("x", [&] { ++first; });
    EXPECT_TRUE(commands.run("x"));
    commands.add("x", [&] { ++second; });
    EXPECT_TRUE(commands.run("x"));
    EXPECT_FALSE(commands.run("y"));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

}  // namespace
