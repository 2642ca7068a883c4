#include "common/text.h"
#include "datafiles/database_builder.h"
#include "datafiles/search.h"
#include "datafiles/synonyms.h"
#include "session/module2.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using datafiles::comparing_form;
using datafiles::find_in_synonyms;
using datafiles::FindSubstance;
using datafiles::normalise_name;
using dialogs::Icon;

constexpr const char* kTitle = "ERROR: Selection of a substance";

constexpr const char* kSynonyms =
    "110-82-7\r\n"
    "Cyclohexane_Cyclohexan_R-C610_cleaner\r\n"
    "CYCLOHEXANE\r\n"
    "HEXAHYDROBENZOL\r\n"
    "\r\n"
    "64-19-7\r\n"
    "Acetic acid_Essigsäure_vinegar\r\n"
    "ACETIC.ACID\r\n"
    "ESSIGSÄURE\r\n"
    "\r\n"
    "50-00-0\r\n"
    "Formaldehyde_Methanal\r\n"
    "FORMALDEHYDE\r\n"
    "\r\n"
    "END\r\n"
    "1-1-1\r\n"
    "Behind the end_x\r\n"
    "BEHIND\r\n";

class Search : public SessionTest {
  protected:
    Search() {
        legacy::the_session.SubstanceCount = 3;
        legacy::the_substances.Numbers = {0, 5, 417, 5};
        legacy::the_substances.Names = {"", "Cyclohexane;R-C610   ", "Acetic acid   ",
                                        "Ethyl äther "};
        legacy::the_substances.Casrn = {"", "110-82-7    ", "64-19-7     ", "60-29-7     "};
        legacy::the_substances.Formulas = {"", "C6H12       ", "C2H4O2      ", "C4H10O      "};
        builder::WriteFile(folder() / "SYNOM.TXT", text::to_oem(kSynonyms));
    }
};

TEST_F(Search, AnExactNameOrCasrnIsFoundWithoutTheSynonyms) {
    std::filesystem::remove(folder() / "SYNOM.TXT");
    EXPECT_EQ(FindSubstance("Acetic acid").index, 2);
    EXPECT_EQ(FindSubstance("Acetic acid   ").index, 2);
    EXPECT_EQ(FindSubstance("Ethyl äther").index, 3);
    EXPECT_EQ(FindSubstance("110-82-7").index, 1);
    EXPECT_TRUE(FindSubstance("110-82-7").found);
    // The whole field is compared.
    EXPECT_EQ(FindSubstance("Cyclohexane;R-C610").index, 1);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Search, ASynonymIsFoundInAnySpelling) {
    for (const char* name : {"Cyclohexane", "zyklohexane", "CYKLO-Hexane", "zyclo hexane",
                             "(cyclo)hexane", "hexahydrobenzol"})
        EXPECT_EQ(FindSubstance(name).index, 1) << name;
    for (const char* name :
         {"acetic acid", "Azetic Acid", "essigsaeure", "Essigsäure", "ESSIG-SÄURE"})
        EXPECT_EQ(FindSubstance(name).index, 2) << name;
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Search, AMissIsTold) {
    const datafiles::SubstanceFound result = FindSubstance("unobtainium");
    EXPECT_FALSE(result.found);
    EXPECT_EQ(result.index, 0);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Nothing found.");
    EXPECT_EQ(user.lastTitle(), kTitle);
    EXPECT_EQ(user.messages[0].icon, Icon::Exclamation);
}

TEST_F(Search, TheEndOfTheFileIsItsEndBlock) {
    EXPECT_FALSE(FindSubstance("behind").found);
    EXPECT_EQ(user.lastText(), "Nothing found.");
    EXPECT_FALSE(FindSubstance("END").found);
    EXPECT_EQ(user.lastText(), "Nothing found.");
}

TEST_F(Search, AKnownSubstanceThatTheDatabaseLacksIsNamed) {
    EXPECT_FALSE(FindSubstance("formaldehyde").found);
    EXPECT_EQ(user.lastText(),
              " This substance is not involved in the database \nFormaldehyde\nCASRN 50-00-0");
    EXPECT_EQ(user.messages.back().icon, Icon::Exclamation);
    EXPECT_FALSE(FindSubstance("50-00-0").found);
    EXPECT_EQ(user.lastText(),
              " This substance is not involved in the database \nFormaldehyde\nCASRN 50-00-0");
}

TEST_F(Search, AMissingSynonymFileIsNotedOnce) {
    std::filesystem::remove(folder() / "SYNOM.TXT");
    EXPECT_FALSE(FindSubstance("zyklohexan").found);
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.messages[0].text,
              "The file SYNOM.TXT was not found in the QUOR directory.\n"
              "Substances are found by their exact name or CASRN only.");
    EXPECT_EQ(user.messages[1].text, "Nothing found.");
    EXPECT_FALSE(FindSubstance("zyklohexan").found);
    EXPECT_EQ(user.messages.size(), 3U);
}

TEST_F(Search, AnEmptySearchFindsNothing) {
    legacy::the_substances.Names[2] = "      ";
    legacy::the_substances.Casrn[2] = "      ";
    EXPECT_FALSE(FindSubstance("").found);
    EXPECT_FALSE(FindSubstance("   ").found);
    EXPECT_EQ(datafiles::find_by_casrn("  "), 0);
}

TEST_F(Search, NumbersAndCasrnsGiveTheirFirstPlace) {
    EXPECT_EQ(datafiles::find_by_number(417), 2);
    EXPECT_EQ(datafiles::find_by_number(5), 1);
    EXPECT_EQ(datafiles::find_by_number(6), 0);
    EXPECT_EQ(datafiles::find_by_number(0), 0);
    EXPECT_EQ(datafiles::find_by_casrn("60-29-7"), 3);
    EXPECT_EQ(datafiles::find_by_casrn("60-29-7     "), 3);
    EXPECT_EQ(datafiles::find_by_casrn("60-29"), 0);
}

TEST_F(Search, WithoutADatabaseNothingIsFound) {
    session::reset_everything();
    EXPECT_EQ(datafiles::find_by_number(1), 0);
    EXPECT_EQ(datafiles::find_by_casrn("60-29-7"), 0);
    EXPECT_FALSE(FindSubstance("Acetic acid").found);
}

TEST(NormaliseName, UsesUpperCaseWithUmlautsAndNoBlanks) {
    EXPECT_EQ(normalise_name(" ö l ü ß é"), "ÖLÜßÉ");
}

TEST(NormaliseName, BringsVariantsToOneSpelling) {
    EXPECT_EQ(normalise_name("Äthanol"), "ETHANOL");
    EXPECT_EQ(normalise_name("äthylenglykol"), "ETHYLENGLYCOL");
    EXPECT_EQ(normalise_name("Karbonyl sulphid"), "CARBONYLSULFID");
    EXPECT_EQ(normalise_name("Azeton"), "ACETON");
    EXPECT_EQ(normalise_name("sek-butanol"), "SEC-BUTANOL");
    EXPECT_EQ(normalise_name("Zyklopentan"), "CYCLOPENTAN");
    EXPECT_EQ(normalise_name("Zyclopentan"), "CYCLOPENTAN");
    EXPECT_EQ(normalise_name("Cyklopentan"), "CYCLOPENTAN");
    EXPECT_EQ(normalise_name("Dekan"), "DECAN");
    EXPECT_EQ(normalise_name("m-Kresol"), "M-CRESOL");
}

TEST(NormaliseName, OxydBecomesOxidUnlessAnIFollows) {
    EXPECT_EQ(normalise_name("Kohlendioxyd"), "KOHLENDIOXID");
    EXPECT_EQ(normalise_name("oxyd oxydul"), "OXIDOXIDUL");
    EXPECT_EQ(normalise_name("Oxydiethyl"), "OXYDIETHYL");
    EXPECT_EQ(normalise_name("oxyd-oxydi"), "OXID-OXYDI");
}

TEST(NormaliseName, WritesAbbreviationsOut) {
    EXPECT_EQ(normalise_name("Me-chlorid"), "METHYLCHLORID");
    EXPECT_EQ(normalise_name("et-benzol"), "ETHYLBENZOL");
    EXPECT_EQ(normalise_name("Ameisensaeure"), "AMEISENSÄURE");
}

TEST(NormaliseName, TheComparingFormHasNoPunctuation) {
    EXPECT_EQ(comparing_form(normalise_name("n-(Hexa.dekan)")), "NHEXADECAN");
    EXPECT_EQ(comparing_form("1,2-DIPHENYL"), "1,2DIPHENYL");
}

TEST(Synonyms, TheFirstHitWins) {
    const std::string file = "1\nA_a\nX\n\n2\nB_b\nX\n\nEND\n";
    EXPECT_EQ(find_in_synonyms(file, "x").casrn, "1");
    EXPECT_EQ(find_in_synonyms(file, "2").line, "B_b");
    EXPECT_FALSE(find_in_synonyms(file, "y").found);
    EXPECT_EQ(find_in_synonyms(file, "y").casrn, "END");
}

TEST(Synonyms, AFileWithoutAnEndIsReadToItsEnd) {
    EXPECT_EQ(find_in_synonyms("1\nA_a\nX", "x").casrn, "1");
    EXPECT_FALSE(find_in_synonyms("1\nA_a\nX", "z").found);
    EXPECT_FALSE(find_in_synonyms("", "z").found);
    EXPECT_FALSE(find_in_synonyms("\n\n\n1\n", "z").found);
    EXPECT_EQ(find_in_synonyms("\n\n1\nA\nX\n\n\n\n2\nB\nY\n", "y").casrn, "2");
}

TEST(Synonyms, OnlyPunctuationIsNoHitForOnlyPunctuation) {
    EXPECT_FALSE(find_in_synonyms("1\nA\n-\n\nEND\n", "-").found);
}

class ShippedSynonyms : public SessionTest {};

TEST_F(ShippedSynonyms, UsualNamesLeadToTheirSubstance) {
    builder::WriteFile(folder() / "SYNOM.TXT",
                       builder::ReadFile(std::string(QUOR_SOURCE_DATA) + "/SYNOM.TXT"));
    const std::pair<const char*, const char*> names[] = {
        {"water", "7732-18-5"},        {"Wasser", "7732-18-5"},    {"Kohlendioxyd", "124-38-9"},
        {"R-134a", "811-97-2"},        {"zyklohexan", "110-82-7"}, {"Äthanol", "64-17-5"},
        {"isobutane", "75-28-5"},      {"ammonia", "7664-41-7"},   {"Essigsaeure", "64-19-7"},
        {"methyl alcohol", "67-56-1"}, {"R744", "124-38-9"},       {"dichlormethan", "75-09-2"}};
    for (const auto& [name, casrn] : names)
        EXPECT_EQ(datafiles::search_synonyms(name).casrn, casrn) << name;
}

}  // namespace
