#include <sys/stat.h>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>

#include <fstream>

#include "app/help_book.h"
#include "app/help_viewer.h"
#include "gui/frame_test.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/help_topics.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::when;

class Help : public FrameTest {
  protected:
    Help() {
        databases::Write(folder() / "STUDENT.Q05", {databases::Row("Propane")});
        start();
        std::filesystem::copy(std::filesystem::path(QUOR_SOURCE_DATA).parent_path() / "help",
                              folder() / "help", std::filesystem::copy_options::recursive);
    }
    static QString page() { return drive::get<QTextBrowser>("helpPage")->source().toString(); }
};

TEST_F(Help, TheMenuRowOpensTheContents) {
    choose("mnuHilfe_Index");
    ASSERT_TRUE(drive::isVisible("helpViewer"));
    EXPECT_EQ(page(), "0.html");
    EXPECT_TRUE(drive::get<QTextBrowser>("helpPage")->toPlainText().startsWith("QUOR-6"));
    auto* contents = drive::get<QTreeWidget>("helpContents");
    EXPECT_GE(contents->topLevelItemCount(), 6);
    EXPECT_EQ(contents->currentItem()->text(0), "First steps");
}

TEST_F(Help, EveryEntryOfTheContentsShowsItsPage) {
    choose("mnuHilfe_Index");
    auto* contents = drive::get<QTreeWidget>("helpContents");
    int entries = 0;
    for (QTreeWidgetItemIterator it(contents); *it != nullptr; ++it, ++entries) {
        contents->scrollToItem(*it);
        QTest::mouseClick(contents->viewport(), Qt::LeftButton, {},
                          contents->visualItemRect(*it).center());
        EXPECT_EQ(page(), (*it)->data(0, Qt::UserRole).toString()) << (*it)->text(0).toStdString();
        EXPECT_GT(drive::get<QTextBrowser>("helpPage")->toPlainText().size(), 80);
    }
    EXPECT_GT(entries, 40);
}

TEST_F(Help, APipeInThePlaceOfAPageOrOfTheStyleIsNotWaitedFor) {
    for (const char* name : {"help.css", "110.html"}) {
        std::filesystem::remove(folder() / "help" / name);
        ASSERT_EQ(mkfifo((folder() / "help" / name).c_str(), 0600), 0);
    }
    choose("mnuHilfe_Index");
    EXPECT_TRUE(drive::get<QTextBrowser>("helpPage")->toPlainText().startsWith("QUOR-6"));
    drive::get<QTextBrowser>("helpPage")->setSource(QUrl("110.html"));
    EXPECT_EQ(drive::get<QTextBrowser>("helpPage")->toPlainText(), "");
}

TEST_F(Help, BackForwardAndHomeFollowTheReader) {
    choose("mnuHilfe_Index");
    EXPECT_FALSE(drive::isEnabled("helpBack"));
    desk.showHelp(help::kTank);
    EXPECT_EQ(page(), "3500.html");
    click("helpBack");
    EXPECT_EQ(page(), "0.html");
    click("helpForward");
    EXPECT_EQ(page(), "3500.html");
    click("helpHome");
    EXPECT_EQ(page(), "0.html");
}

TEST_F(Help, TheSearchListsPagesAndOpensThem) {
    choose("mnuHilfe_Index");
    drive::press("helpPage", Qt::Key_F, Qt::ControlModifier);
    drive::type("helpSearch", "polytropic");
    auto* results = drive::get<QListWidget>("helpResults");
    ASSERT_TRUE(results->isVisible());
    EXPECT_FALSE(drive::isVisible("helpContents"));
    ASSERT_GE(results->count(), 2);
    QTest::mouseClick(results->viewport(), Qt::LeftButton, {},
                      results->visualItemRect(results->item(0)).center());
    EXPECT_TRUE(drive::get<QTextBrowser>("helpPage")
                    ->toPlainText()
                    .contains("polytropic", Qt::CaseInsensitive));
    drive::type("helpSearch", "xyzzyplugh");
    ASSERT_EQ(results->count(), 1);
    EXPECT_EQ(results->item(0)->text(), "no page found");
    drive::type("helpSearch", "");
    EXPECT_TRUE(drive::isVisible("helpContents"));
}

TEST_F(Help, HelpButtonsOfADialogOpenTheirPagesInFrontOfIt) {
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    when("frmStoffWahl", [] {
        drive::type("Text1", "Propane");
        click("Hilfe");
        EXPECT_EQ(page(), "1000.html");
        delete drive::find("helpViewer");
        drive::press("Text1", Qt::Key_F1);
        EXPECT_EQ(page(), "1000.html") << "F1 does what the button does";
        delete drive::find("helpViewer");
        click("StoffOK");
    });
    when("frmQModell", [] {
        click("EOSHilfe");
        EXPECT_EQ(page(), "2006.html");
        auto* search = drive::usable<QLineEdit>("helpSearch");
        search->setFocus();
        QTest::keyClicks(search, "Wagner");
        EXPECT_GE(drive::get<QListWidget>("helpResults")->count(), 1) << "usable over the dialog";
        delete drive::find("helpViewer");
        click("cpHilfe");
        EXPECT_EQ(page(), "2400.html");
        delete drive::find("helpViewer");
        click("OKModell");
    });
    click("Toolbar1_2");
}

TEST_F(Help, MissingPagesAreTold) {
    std::filesystem::remove_all(folder() / "help");
    choose("mnuHilfe_Index");
    EXPECT_FALSE(drive::isVisible("helpViewer"));
    EXPECT_EQ(user.lastText(),
              "The pages of the help are not there:\n" + help::folder(session.places()).string());
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

}  // namespace
