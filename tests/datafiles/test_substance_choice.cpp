#include "datafiles/database.h"
#include "datafiles/substance_choice.h"
#include "session/commands.h"
#include "support/databases.h"
#include "support/session_test.h"

namespace {

using Declare::Command;
using Declare::session;

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
        LoadSaveData::OpenDatabaseFile((folder() / "TEST.Q05").string());
        user.pointer.clear();
    }
    ~SubstanceChoice() override { LoadSaveData::CloseDatabase(); }
};

TEST_F(SubstanceChoice, NamesBehindTheFirstAreFurtherNames) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(LoadSaveData::NamesOf("Propane;R-290; Dimethylmethane   "),
              (Names{"Propane", "R-290", "Dimethylmethane"}));
    EXPECT_EQ(LoadSaveData::NamesOf("Water      "), Names{"Water"});
    EXPECT_EQ(LoadSaveData::NamesOf(""), Names{""});
    EXPECT_EQ(LoadSaveData::NamesOf("Water;;"), Names{"Water"});
    EXPECT_EQ(LoadSaveData::FirstNameOf(" Propane ;R-290"), "Propane");
    EXPECT_EQ(LoadSaveData::FirstNameOf("Water   "), "Water");
}

TEST_F(SubstanceChoice, FormulaAndCasrnOfAnEntry) {
    EXPECT_EQ(LoadSaveData::FormulaAndCasrn(1), "CO2 CASRN: 124-38-9");
    EXPECT_EQ(LoadSaveData::FormulaAndCasrn(0), "");
    EXPECT_EQ(LoadSaveData::FormulaAndCasrn(4), "");
}

TEST_F(SubstanceChoice, TakingASubstanceReadsItAndComputesWhatDependsOnIt) {
    Declare::models.EOSModel = 6;
    Declare::models.HLVModel = 3;
    Module2::SetCommands({Command::mnuCalcMain, Command::mnu2D}, true);
    EXPECT_TRUE(LoadSaveData::TakeSubstance(2));
    EXPECT_EQ(session.CurrentSubstance, 2);
    EXPECT_TRUE(session.SubstanceSet);
    EXPECT_EQ(Declare::substance.Name, "Propane");
    EXPECT_NEAR(Declare::eosParameters.eosB0,
                0.0778 * 8.31451 * Declare::substance.Tcrit / Declare::substance.pcrit, 1e-5);
    EXPECT_NE(Declare::substance.THO.A, 0.0F);
    EXPECT_EQ(Declare::models.HLVModel, 0) << "a new substance begins a new session";
    EXPECT_TRUE(Module2::IsEnabled(Command::mnuModel));
    EXPECT_FALSE(Module2::IsEnabled(Command::mnuCalcMain)) << "until the models are confirmed";
    EXPECT_FALSE(Module2::IsEnabled(Command::mnu2D));
    EXPECT_TRUE(user.messages.empty());
    ASSERT_FALSE(user.pointer.empty());
    EXPECT_FALSE(user.pointer.back()) << "the busy pointer is gone";
}

TEST_F(SubstanceChoice, LoadedDataAreDeletedAfterAYesOnly) {
    session.BatchCount = 2;
    session.BatchFile = "x.BAQ";
    Declare::BatchData.assign(3, {.T = 250});
    user.answers = {dialogs::Answer::No};
    EXPECT_TRUE(LoadSaveData::TakeSubstance(1));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Loaded exper. data (batch data) delete now?");
    EXPECT_EQ(user.lastTitle(), "Batch data");
    EXPECT_EQ(session.BatchCount, 2);

    user.answers = {dialogs::Answer::Yes};
    EXPECT_TRUE(LoadSaveData::TakeSubstance(2));
    EXPECT_EQ(session.BatchCount, 0);
    EXPECT_EQ(session.BatchFile, "");
    EXPECT_EQ(Declare::BatchData.at(1).T, 0);
}

TEST_F(SubstanceChoice, WithoutCriticalDataNothingCanBeCalculated) {
    Module2::SetCommands({Command::mnuModel, Command::mnuCalcMain}, true);
    EXPECT_FALSE(LoadSaveData::TakeSubstance(3));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "T(cr) and/or p(cr) not available in the data base\n"
              "(lacking critical data can be completed by the user in data-base editor)\n\n"
              "With  Strange water no QUOR calculations are possible!");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Stop);
    EXPECT_FALSE(session.SubstanceSet);
    EXPECT_FALSE(Module2::IsEnabled(Command::mnuModel));
    EXPECT_FALSE(Module2::IsEnabled(Command::mnuCalcMain));
}

TEST_F(SubstanceChoice, ADatabaseThatHasVanishedIsTold) {
    session.DatabaseFile = "TEST.Q05";
    LoadSaveData::CloseDatabase();
    std::filesystem::remove(folder() / "TEST.Q05");
    EXPECT_FALSE(LoadSaveData::TakeSubstance(1));
    EXPECT_EQ(user.lastText(), "The substance could not be read from the database TEST.Q05");
    EXPECT_EQ(session.CurrentSubstance, 0);
}

}  // namespace
