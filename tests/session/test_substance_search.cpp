#include "common/text.h"
#include "session/substance_session.h"
#include "support/database_builder.h"
#include "support/session_test.h"

using namespace quor;

namespace {

class SubstanceSearch : public SessionTest {
  protected:
    SubstanceSearch() {
        session.change()->database = {"SMALL.Q05",
                                      {{5, "C6H12       ", "Cyclohexane;R-C610   ", "110-82-7    "},
                                       {417, "C2H4O2      ", "Acetic acid   ", "64-19-7     "}}};
    }
    void write_synonyms() {
        builder::WriteFile(folder() / "SYNOM.TXT",
                           text::to_oem("110-82-7\r\nCyclohexane_x\r\nHEXAHYDROBENZOL\r\n\r\n"
                                        "50-00-0\r\nFormaldehyde_Methanal\r\nFORMALDEHYDE\r\n"
                                        "\r\nEND\r\n"));
    }
};

TEST_F(SubstanceSearch, AHitIsAPlaceFromOneWithoutAWord) {
    write_synonyms();
    EXPECT_EQ(session::find_substance(session, "Acetic acid"), 2);
    EXPECT_EQ(session::find_substance(session, "hexahydrobenzol"), 1);
    EXPECT_EQ(session::find_substance(session, "#417"), 2);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(SubstanceSearch, AMissIsTold) {
    write_synonyms();
    EXPECT_EQ(session::find_substance(session, "unobtainium"), 0);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Nothing found.");
    EXPECT_EQ(user.lastTitle(), "ERROR: Selection of a substance");
    EXPECT_EQ(user.messages[0].icon, dialogs::Icon::Exclamation);
    EXPECT_EQ(session::find_substance(session, "formaldehyde"), 0);
    EXPECT_EQ(user.lastText(),
              " This substance is not involved in the database \nFormaldehyde\nCASRN 50-00-0");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Exclamation);
}

TEST_F(SubstanceSearch, AMissingSynonymFileIsNotedOnce) {
    EXPECT_EQ(session::find_substance(session, "zyklohexan"), 0);
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.messages[0].text,
              "The file SYNOM.TXT was not found in the QUOR directory.\n"
              "Substances are found by their exact name or CASRN only.");
    EXPECT_EQ(user.messages[1].text, "Nothing found.");
    EXPECT_EQ(session::find_substance(session, "zyklohexan"), 0);
    EXPECT_EQ(user.messages.size(), 3U);
}

}  // namespace
