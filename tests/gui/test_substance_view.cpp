
#include "gui/data/substance_dialog.h"
#include "gui/frame_test.h"
#include "session/commands.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::click;
using drive::read;
using drive::type;

class SubstanceView : public FrameTest {
  protected:
    /// Opens the view over STUDENT.Q05 and does something in it.
    void inView(const std::function<void()>& what, bool chooses = false) {
        start();
        user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
        drive::when("frmStoffWahl", what);
        if (chooses) drive::when("frmQModell", [] { click("cmdEsc"); });
        click("Toolbar1_2");
    }
    static int rows() { return drive::get<QAbstractItemView>("StoffListe")->model()->rowCount(); }
    static QString selected() {
        return drive::get<QAbstractItemView>("StoffListe")->currentIndex().data().toString();
    }
};

TEST_F(SubstanceView, ListsTheDatabase) {
    inView([] {
        EXPECT_EQ(drive::find("frmStoffWahl")->windowTitle(), "Select a substance (totally 3)");
        EXPECT_EQ(rows(), 3);
        EXPECT_EQ(drive::get<QAbstractItemView>("StoffListe")
                      ->model()
                      ->headerData(0, Qt::Horizontal)
                      .toString(),
                  "Name");
        EXPECT_EQ(selected(), "Carbon dioxide");
        EXPECT_EQ(read("lblFormula"), "CO2 CASRN: 124-38-9");
        EXPECT_TRUE(drive::isEnabled("cmdDaten"));
        click("ESC");
    });
    EXPECT_EQ(session->substance_number, 0);
}

TEST_F(SubstanceView, AClickShowsFormulaAndCasrn) {
    inView(
        [] {
            drive::select("StoffListe", "Argon");
            EXPECT_EQ(read("lblFormula"), "Ar CASRN: 7440-37-1");
            EXPECT_EQ(read("Text1"), "Argon");
            EXPECT_EQ(drive::entries("NameCombo").first(), "Argon");
            click("StoffOK");
        },
        true);
    EXPECT_EQ(session->substance_number, 2);
}

// The scripts are added in the order in which the dialogs open.
class SubstanceSearch : public SubstanceView {
  protected:
    void find(const QString& typed, const QString& name) {
        start();
        user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
        drive::when("frmStoffWahl", [typed] {
            type("Text1", typed);
            drive::press("Text1", Qt::Key_Return);
        });
        drive::when("frmQModell", [] { click("OKModell"); });
        click("Toolbar1_2");
        EXPECT_EQ(QString::fromStdString(session->substance.name), name) << typed.toStdString();
        EXPECT_TRUE(user.messages.empty()) << user.lastText();
    }
};

TEST_F(SubstanceSearch, ByNameInAnyCase) {
    find("carbon dioxide", "Carbon dioxide");
}
TEST_F(SubstanceSearch, ByTheBeginningOfAName) {
    find("arg", "Argon");
}
TEST_F(SubstanceSearch, ByCasrn) {
    find("7440-37-1", "Argon");
}
TEST_F(SubstanceSearch, ByGermanSynonym) {
    find("Kohlendioxid", "Carbon dioxide");
}
TEST_F(SubstanceSearch, ByRefrigerantNumber) {
    find("R744", "Carbon dioxide");
}

/// The view over the database that is built with the program.
class SubstanceInFullDatabase : public SubstanceView {
  protected:
    SubstanceInFullDatabase() {
        std::filesystem::copy_file(QUOR_BINARY_FOLDER "/STUDENT.Q05", folder() / "STUDENT.Q05",
                                   std::filesystem::copy_options::overwrite_existing);
    }
    /// Types a text and Enter; what the list marks is what Enter takes.
    void expectTaken(const QString& typed, const QString& name, int lines) {
        QString marked;
        int shown = 0;
        drive::when("frmStoffWahl", [&] {
            type("Text1", typed);
            EXPECT_EQ(read("Text1"), typed) << "nothing is completed";
            marked = selected();
            shown = rows();
            drive::press("Text1", Qt::Key_Return);
        });
        drive::when("frmQModell", [] { click("OKModell"); });
        drive::choose("mnuStoff");
        EXPECT_EQ(QString::fromStdString(session->substance.name), name) << typed.toStdString();
        EXPECT_EQ(marked, name) << typed.toStdString();
        if (lines > 0) {
            EXPECT_EQ(shown, lines) << typed.toStdString();
        }
        EXPECT_TRUE(user.messages.empty()) << user.lastText();
    }
};

TEST_F(SubstanceInFullDatabase, AnRNumberIsNotCompletedToALongerOne) {
    start();
    openSubstance("Water");
    user.messages.clear();
    expectTaken("R-22", "Chlorodifluoromethane", 0);
    expectTaken("R-12", "Dichlorodifluoromethane", 0);
    expectTaken("R-123", "Dichlorotrifluoroethane", 0);
    expectTaken("R-23", "Trifluoromethane", 0);
    expectTaken("Tetra", "Carbon tetrachloride", 0);
    // What no name of the list holds narrows it to what Enter takes.
    expectTaken("R744", "Carbon dioxide", 1);
    expectTaken("r134a", "1,1,1,2-Tetrafluoroethane", 1);
    expectTaken("steam", "Water", 1);
    expectTaken("kohlendioxid", "Carbon dioxide", 1);
    expectTaken("7732-18-5", "Water", 1);
}

TEST_F(SubstanceInFullDatabase, ASpellingThatTheListHasNotStillNarrowsIt) {
    start();
    openSubstance("Water");
    drive::when("frmStoffWahl", [] {
        type("Text1", "r1270");
        EXPECT_EQ(selected(), "Propylene");
        type("Text1", "di chloro");
        EXPECT_GT(rows(), 2);
        EXPECT_LT(rows(), 20);
        click("ESC");
    });
    drive::choose("mnuStoff");
}

TEST_F(SubstanceView, AKnownSubstanceOfAnotherDatabaseIsNotCompletedToOneOfThis) {
    inView([this] {
        type("Text1", "R-740");  // argon is there
        EXPECT_EQ(selected(), "Argon");
        type("Text1", "R-22");
        EXPECT_EQ(read("lblNote"), "A known substance, but not in this database.");
        drive::press("Text1", Qt::Key_Return);
        EXPECT_TRUE(user.lastText().starts_with(" This substance is not involved in the database"));
        click("ESC");
    });
    EXPECT_EQ(session->substance_number, 0);
}

TEST_F(SubstanceView, NothingFoundIsToldAndTheSelectionReturns) {
    inView([this] {
        drive::select("StoffListe", "Argon");
        type("Text1", "Unobtainium");
        EXPECT_EQ(rows(), 0);
        EXPECT_EQ(read("lblNote"), "Not in the list; OK looks among the synonyms.");
        click("StoffOK");
        EXPECT_EQ(user.lastText(), "Nothing found.");
        EXPECT_EQ(user.lastTitle(), "ERROR: Selection of a substance");
        EXPECT_EQ(selected(), "Argon");
        EXPECT_EQ(rows(), 3);
        EXPECT_EQ(read("Text1"), "Unobtainium") << "to be corrected";
        click("ESC");
    });
    EXPECT_EQ(session->substance_number, 0);
}

TEST_F(SubstanceView, AKnownSubstanceThatIsNotInTheDatabaseIsNamed) {
    inView([this] {
        type("Text1", "74-98-6");
        click("StoffOK");
        EXPECT_TRUE(user.lastText().starts_with(" This substance is not involved in the database "))
            << user.lastText();
        EXPECT_NE(user.lastText().find("CASRN 74-98-6"), std::string::npos);
        click("ESC");
    });
}

TEST_F(SubstanceView, TypingShortensTheList) {
    inView([] {
        type("Text1", "ar");
        EXPECT_EQ(rows(), 2) << "Argon and Carbon dioxide";
        type("Text1", "7732");
        EXPECT_EQ(rows(), 1) << "part of a CASRN";
        type("Text1", "");
        EXPECT_EQ(rows(), 3);
        click("ESC");
    });
}

TEST_F(SubstanceView, ArrowKeysLeadFromTheFieldIntoTheList) {
    inView(
        [] {
            type("Text1", "ar");
            drive::press("Text1", Qt::Key_Down);
            EXPECT_TRUE(drive::find("StoffListe")->hasFocus());
            EXPECT_EQ(selected(), "Argon") << "the name that was completed";
            drive::press("StoffListe", Qt::Key_Up);
            EXPECT_EQ(read("Text1"), "Carbon dioxide");
            drive::press("StoffListe", Qt::Key_Down);
            EXPECT_EQ(read("Text1"), "Argon");
            click("StoffOK");
        },
        true);
    EXPECT_EQ(session->substance_number, 2);
}

TEST_F(SubstanceView, ASubstanceWithoutCriticalDataIsRefusedAndTheViewStays) {
    inView([this] {
        drive::select("StoffListe", "Water");
        click("StoffOK");
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
        EXPECT_TRUE(drive::isVisible("frmStoffWahl"));
        click("ESC");
    });
    EXPECT_FALSE(drive::action("mnuModel")->isEnabled());
    EXPECT_TRUE(drive::action("mnuStoff")->isEnabled());
}

TEST_F(SubstanceView, EscapeLeavesTheSubstanceAsItWas) {
    start();
    openSubstance("Carbon dioxide");
    drive::when("frmStoffWahl", [] {
        EXPECT_EQ(selected(), "Carbon dioxide");
        drive::select("StoffListe", "Argon");
        drive::press("StoffListe", Qt::Key_Escape);
    });
    drive::choose("mnuStoff");
    EXPECT_EQ(session->substance_number, 1);
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
    EXPECT_TRUE(drive::action("mnuCalcMain")->isEnabled());
}

TEST_F(SubstanceView, ALookAtOtherDataLeavesTheSubstanceAsItWas) {
    std::vector<std::string> shown;
    start();
    desk.doors.showSubstance = [&] { shown.push_back(session->substance.name); };
    openSubstance("Carbon dioxide");
    drive::when("frmStoffWahl", [] {
        drive::select("StoffListe", "Argon");
        click("cmdDaten");
        click("ESC");
    });
    drive::choose("mnuStoff");
    EXPECT_EQ(shown, std::vector<std::string>{"Argon"});
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
}

TEST_F(SubstanceView, KeysNarrowAListOfFiveThousandSubstances) {
    std::vector<datafiles::DatabaseEntry> entries;
    for (int i = 1; i <= 5000; ++i)
        entries.push_back({static_cast<std::int16_t>(i), "C" + std::to_string(i % 40) + "H10      ",
                           "Substance " + std::to_string(5000 - i) + ";Synonym",
                           std::to_string(100000 + i) + "-00-0"});
    change([&](auto& s) { s.database = {"BIG.Q05", std::move(entries)}; });
    SubstanceDialog view(desk);
    view.show();
    drive::settle();
    auto* field = view.findChild<QLineEdit*>("Text1");
    field->clear();
    QTest::keyClicks(field, "Substance 12");
    drive::settle();
    EXPECT_EQ(view.findChild<QAbstractItemView*>("StoffListe")->model()->rowCount(), 111)
        << "12, 120 to 129, 1200 to 1299";
}

TEST_F(SubstanceView, LoadedDataAreQuestioned) {
    start();
    openSubstance("Carbon dioxide");
    change([](auto& s) { s.measured.points.resize(2); });
    user.answers = {dialogs::Answer::Yes};
    drive::when("frmStoffWahl", [] {
        type("Text1", "Argon");
        click("StoffOK");
    });
    drive::when("frmQModell", [] { click("OKModell"); });
    drive::choose("mnuStoff");
    EXPECT_EQ(user.lastTitle(), "Batch data");
    EXPECT_TRUE(session->measured.points.empty());
}

}  // namespace
