#include "common/text.h"
#include "datafiles/search.h"
#include "datafiles/synonyms.h"

using namespace quor;

namespace {

using datafiles::comparing_form;
using datafiles::Database;
using datafiles::normalise_name;
using datafiles::Synonyms;

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

Database small_database() {
    return {"SMALL.Q05",
            {{5, "C6H12       ", "Cyclohexane;R-C610   ", "110-82-7    "},
             {417, "C2H4O2      ", "Acetic acid   ", "64-19-7     "},
             {5, "C4H10O      ", "Ethyl äther ", "60-29-7     "}}};
}

/// The place of a text (from 1), or 0 for none.
int place_of(const std::string& search, const Synonyms& synonyms = Synonyms(kSynonyms)) {
    const auto place = datafiles::find_substance(small_database(), synonyms, search);
    return place ? static_cast<int>(*place) + 1 : 0;
}

std::string reason_of(const std::string& search) {
    return datafiles::find_substance(small_database(), Synonyms(kSynonyms), search).reason();
}

TEST(Search, AnExactNameOrCasrnIsFoundWithoutTheSynonyms) {
    const Synonyms none;
    EXPECT_EQ(place_of("Acetic acid", none), 2);
    EXPECT_EQ(place_of("Acetic acid   ", none), 2);
    EXPECT_EQ(place_of("Ethyl äther", none), 3);
    EXPECT_EQ(place_of("110-82-7", none), 1);
    // The whole field is compared.
    EXPECT_EQ(place_of("Cyclohexane;R-C610", none), 1);
    EXPECT_EQ(place_of("zyklohexan", none), 0);
}

TEST(Search, ASynonymIsFoundInAnySpelling) {
    for (const char* name : {"Cyclohexane", "zyklohexane", "CYKLO-Hexane", "zyclo hexane",
                             "(cyclo)hexane", "hexahydrobenzol"})
        EXPECT_EQ(place_of(name), 1) << name;
    for (const char* name :
         {"acetic acid", "Azetic Acid", "essigsaeure", "Essigsäure", "ESSIG-SÄURE"})
        EXPECT_EQ(place_of(name), 2) << name;
}

TEST(Search, ANumberIsFoundBehindItsSign) {
    EXPECT_EQ(place_of("#417"), 2);
    EXPECT_EQ(place_of("#5"), 1) << "the first one";
    EXPECT_EQ(place_of("#6"), 0);
    EXPECT_EQ(reason_of("#6"), "Nothing found.");
    EXPECT_EQ(place_of("#417x"), 0);
}

TEST(Search, AMissHasItsReason) {
    EXPECT_EQ(reason_of("unobtainium"), "Nothing found.");
}

TEST(Search, TheEndOfTheFileIsItsEndBlock) {
    EXPECT_EQ(reason_of("behind"), "Nothing found.");
    EXPECT_EQ(reason_of("END"), "Nothing found.");
}

TEST(Search, AKnownSubstanceThatTheDatabaseLacksIsNamed) {
    constexpr const char* reason =
        " This substance is not involved in the database \nFormaldehyde\nCASRN 50-00-0";
    EXPECT_EQ(reason_of("formaldehyde"), reason);
    EXPECT_EQ(reason_of("50-00-0"), reason);
}

TEST(Search, AnEmptySearchFindsNothing) {
    const Database blank("B.Q05", {{1, "", "      ", "      "}});
    EXPECT_FALSE(datafiles::find_substance(blank, {}, ""));
    EXPECT_FALSE(datafiles::find_substance(blank, {}, "   "));
    EXPECT_EQ(datafiles::find_by_casrn(blank, "  "), std::nullopt);
}

TEST(Search, NumbersAndCasrnsGiveTheirFirstPlace) {
    const Database d = small_database();
    EXPECT_EQ(datafiles::find_by_number(d, 417), 1U);
    EXPECT_EQ(datafiles::find_by_number(d, 5), 0U);
    EXPECT_EQ(datafiles::find_by_number(d, 6), std::nullopt);
    EXPECT_EQ(datafiles::find_by_number(d, 0), std::nullopt);
    EXPECT_EQ(datafiles::find_by_casrn(d, "60-29-7"), 2U);
    EXPECT_EQ(datafiles::find_by_casrn(d, "60-29-7     "), 2U);
    EXPECT_EQ(datafiles::find_by_casrn(d, "60-29"), std::nullopt);
}

TEST(Search, WithoutADatabaseNothingIsFound) {
    EXPECT_EQ(datafiles::find_by_number({}, 1), std::nullopt);
    EXPECT_EQ(datafiles::find_by_casrn({}, "60-29-7"), std::nullopt);
    EXPECT_FALSE(datafiles::find_substance({}, Synonyms(kSynonyms), "Acetic acid"));
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
    const Synonyms file("1\nA_a\nX\n\n2\nB_b\nX\n\nEND\n");
    EXPECT_EQ(file.find("x")->casrn, "1");
    EXPECT_EQ(file.find("2")->line, "B_b");
    EXPECT_FALSE(file.find("y"));
}

TEST(Synonyms, AFileWithoutAnEndIsReadToItsEnd) {
    EXPECT_EQ(Synonyms("1\nA_a\nX").find("x")->casrn, "1");
    EXPECT_FALSE(Synonyms("1\nA_a\nX").find("z"));
    EXPECT_FALSE(Synonyms("").find("z"));
    EXPECT_FALSE(Synonyms("\n\n\n1\n").find("z"));
    EXPECT_EQ(Synonyms("\n\n1\nA\nX\n\n\n\n2\nB\nY\n").find("y")->casrn, "2");
}

TEST(Synonyms, OnlyPunctuationIsNoHitForOnlyPunctuation) {
    EXPECT_FALSE(Synonyms("1\nA\n-\n\nEND\n").find("-"));
}

TEST(Synonyms, AMissingFileIsRefused) {
    EXPECT_FALSE(Synonyms::read("no such folder/SYNOM.TXT"));
}

TEST(Synonyms, UsualNamesLeadToTheirSubstance) {
    const auto shipped = Synonyms::read(std::string(QUOR_SOURCE_DATA) + "/SYNOM.TXT");
    ASSERT_TRUE(shipped);
    const std::pair<const char*, const char*> names[] = {
        {"water", "7732-18-5"},        {"Wasser", "7732-18-5"},    {"Kohlendioxyd", "124-38-9"},
        {"R-134a", "811-97-2"},        {"zyklohexan", "110-82-7"}, {"Äthanol", "64-17-5"},
        {"isobutane", "75-28-5"},      {"ammonia", "7664-41-7"},   {"Essigsaeure", "64-19-7"},
        {"methyl alcohol", "67-56-1"}, {"R744", "124-38-9"},       {"dichlormethan", "75-09-2"}};
    for (const auto& [name, casrn] : names) {
        const auto hit = shipped->find(name);
        ASSERT_TRUE(hit) << name;
        EXPECT_EQ(hit->casrn, casrn) << name;
    }
}

}  // namespace
