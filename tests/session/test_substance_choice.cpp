#include <algorithm>
#include <fstream>

#include "datafiles/search.h"
#include "session/commands.h"
#include "session/substance_session.h"
#include "support/codes.h"
#include "support/database_builder.h"
#include "support/databases.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using session::Command;

class SubstanceChoice : public SessionTest {
  protected:
    SubstanceChoice() {
        databases::TableRow noCritical = databases::Row("Water");
        noCritical["name_en"] = "Strange water";
        noCritical["casrn"] = "0-00-0";
        noCritical["pcrit"] = "";
        databases::TableRow propane = databases::Row("Propane");
        propane["synonyms_en"] = "R-290; Dimethylmethane";
        databases::Write(folder() / "TEST.Q05",
                         {databases::Row("Carbon dioxide"), propane, noCritical});
        EXPECT_TRUE(session::open_database(session, (folder() / "TEST.Q05").string()));
        user.pointer.clear();
    }
};

TEST_F(SubstanceChoice, NamesBehindTheFirstAreFurtherNames) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(datafiles::names_of("Propane;R-290; Dimethylmethane   "),
              (Names{"Propane", "R-290", "Dimethylmethane"}));
    EXPECT_EQ(datafiles::names_of("Water      "), Names{"Water"});
    EXPECT_EQ(datafiles::names_of(""), Names{""});
    EXPECT_EQ(datafiles::names_of("Water;;"), Names{"Water"});
    EXPECT_EQ(datafiles::first_name_of(" Propane ;R-290"), "Propane");
    EXPECT_EQ(datafiles::first_name_of("Water   "), "Water");
}

TEST_F(SubstanceChoice, FormulaAndCasrnOfAnEntry) {
    EXPECT_EQ(datafiles::formula_and_casrn(session->database.entries()[0]), "CO2 CASRN: 124-38-9");
}

TEST_F(SubstanceChoice, TakingASubstanceReadsItAndComputesWhatDependsOnIt) {
    session.change()->models.eos = codes::eos(6);
    session.change()->models.vaporisation = codes::hlv(3);
    session::set_commands(session, {Command::calculations, Command::diagrams}, true);
    EXPECT_TRUE(session::take_substance(session, 2));
    EXPECT_EQ(session->substance_number, 2);
    EXPECT_TRUE(session->substance_set);
    EXPECT_EQ(session->substance.name, "Propane");
    EXPECT_NEAR(session->eos_parameters.b0,
                0.0778 * 8.31451 * session->substance.Tcrit / session->substance.pcrit, 1e-5);
    EXPECT_NE(session->substance.thompson.A, 0.0F);
    EXPECT_EQ(models::code_of(session->models.vaporisation), 0)
        << "a new substance begins a new session";
    EXPECT_TRUE(session::is_enabled(session, Command::chooseModels));
    EXPECT_FALSE(session::is_enabled(session, Command::calculations))
        << "until the models are confirmed";
    EXPECT_FALSE(session::is_enabled(session, Command::diagrams));
    EXPECT_TRUE(user.messages.empty());
    ASSERT_FALSE(user.pointer.empty());
    EXPECT_FALSE(user.pointer.back()) << "the busy pointer is gone";
}

TEST_F(SubstanceChoice, LoadedDataAreDeletedAfterAYesOnly) {
    session.change()->measured = {.points = {{.T = 250}, {.T = 250}}, .file = "x.BAQ"};
    user.answers = {dialogs::Answer::No};
    EXPECT_TRUE(session::take_substance(session, 1));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Loaded exper. data (batch data) delete now?");
    EXPECT_EQ(user.lastTitle(), "Batch data");
    EXPECT_EQ(session->measured.points.size(), 2U);

    user.answers = {dialogs::Answer::Yes};
    EXPECT_TRUE(session::take_substance(session, 2));
    EXPECT_EQ(session->measured.points.size(), 0U);
    EXPECT_EQ(session->measured.file, "");
}

TEST_F(SubstanceChoice, WithoutCriticalDataNothingCanBeCalculated) {
    session::set_commands(session, {Command::chooseModels, Command::calculations}, true);
    EXPECT_FALSE(session::take_substance(session, 3));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "T(cr) and/or p(cr) not available in the data base\n"
              "(lacking critical data can be completed by the user in data-base editor)\n\n"
              "With  Strange water no QUOR calculations are possible!");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Stop);
    EXPECT_FALSE(session->substance_set);
    EXPECT_FALSE(session::is_enabled(session, Command::chooseModels));
    EXPECT_FALSE(session::is_enabled(session, Command::calculations));
}

TEST_F(SubstanceChoice, ADatabaseThatCanNoLongerBeReadIsTold) {
    session.change()->database_file = "TEST.Q05";
    std::filesystem::resize_file(folder() / "TEST.Q05", 0);
    EXPECT_FALSE(session::take_substance(session, 1));
    EXPECT_EQ(user.lastText(), "The substance could not be read from the database TEST.Q05");
    EXPECT_EQ(session->substance_number, 0);
}

TEST_F(SubstanceChoice, ADatabaseThatAnotherProgramHasChangedIsToldAndNotMistaken) {
    const std::filesystem::path file = folder() / "TEST.Q05";
    std::string bytes = builder::ReadFile(file);
    // The first two substances change their places.
    std::swap_ranges(bytes.begin() + 684, bytes.begin() + 2 * 684, bytes.begin() + 2 * 684);
    std::fstream(file, std::ios::binary | std::ios::in | std::ios::out) << bytes;
    EXPECT_FALSE(session::take_substance(session, 1));
    EXPECT_EQ(user.lastText(),
              "The database TEST.Q05 has been changed by another program.\nOpen it again.");
    EXPECT_EQ(session->substance_number, 0);
    EXPECT_EQ(session::load_database(session, file.string()), session::LoadOutcome::Loaded);
    EXPECT_TRUE(session::take_substance(session, 2));
}

}  // namespace
