#include "gui/data/file_view.h"

#include <QLineEdit>
#include <QListWidget>
#include <fstream>

#include "gui/data/editor_views.h"
#include "gui/frame_test.h"
#include "session/project_session.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

namespace fs = std::filesystem;
using drive::click;
using drive::press;
using drive::read;
using drive::select;
using drive::type;
using drive::when;

constexpr auto kView = "frmCmnDlg";

class FileViewTest : public FrameTest {
  protected:
    FileViewTest() {
        databases::Write(folder() / "STUDENT.Q05",
                         {databases::Row("Propane"), databases::Row("Water")});
        start();
        openSubstance("Propane");
        data("propane.BAQ", "74-98-6     ", "measured by hand");
        data("strange.BAQ", "999-99-9    ", "of another world");
        fs::create_directory(folder() / "deeper");
        std::ofstream(folder() / "deeper" / "inside.BAQ") << "x";
        std::ofstream(folder() / "notes.txt") << "x";
    }

    void data(const char* name, const std::string& casrn, const std::string& comment) {
        std::ofstream(folder() / name, std::ios::binary)
            << "2026-11-15\r\n"
            << comment << "\r\n"
            << casrn << "\r\n1\r\n300,500,490,11,0,0\r\n";
    }
    dialogs::FileChoice choice(bool save = false) const {
        return {.save = save,
                .title = "Open a batch-file of experimental data (*.BAQ)",
                .filter = "QUOR-specific file (*.BAQ)|*.BAQ",
                .folder = folder().string(),
                .default_extension = ".BAQ"};
    }
    static QStringList files() {
        QStringList all;
        const auto* list = drive::get<QListWidget>("filOpenList");
        for (int i = 0; i < list->count(); ++i) all << list->item(i)->text();
        return all;
    }
    std::string path(const char* name) const { return (folder() / name).string(); }
};

TEST_F(FileViewTest, ShowsTheFilesOfItsKindAndWhatTheMarkedOneIsAbout) {
    when(kView, [this] {
        EXPECT_EQ(read(kView), "Standard Dialogs");
        EXPECT_EQ(read("lblOpenFile"), "Open a batch-file of experimental data (*.BAQ)");
        EXPECT_EQ(read("fraViewStoff"), " Substance of the marked batch file: ");
        EXPECT_EQ(read("cmdOpenOK").remove('&'), "Open");
        EXPECT_EQ(files(), (QStringList{"propane.BAQ", "strange.BAQ"}));
        EXPECT_EQ(read("Text1"), "") << "nothing is marked";
        select("filOpenList", "propane.BAQ");
        EXPECT_EQ(read("Text1"), "Propane");
        EXPECT_EQ(read("lblDataBase"), "STUDENT.Q05");
        EXPECT_EQ(read("lblComment"), "measured by hand");
        EXPECT_EQ(read("Text2"), "2026-11-15");
        select("filOpenList", "strange.BAQ");
        EXPECT_EQ(read("Text1"), "Substance not found in the actual data base");
        click("cmdOpenOK");
    });
    EXPECT_EQ(FileView::choose(desk, choice()), path("strange.BAQ"))
        << "it can be opened all the same";
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(FileViewTest, AProjectTellsItsSubstanceToo) {
    user.fileAnswers = {path("mine.QCF")};
    session::save_project(session);
    ASSERT_TRUE(fs::exists(folder() / "mine.QCF"));
    dialogs::FileChoice projects = choice();
    projects.filter = "Project (*.QCF)|*.QCF";
    when(kView, [] {
        EXPECT_EQ(files(), (QStringList{"mine.QCF"}));
        select("filOpenList", "mine.QCF");
        EXPECT_EQ(read("Text1"), "Propane");
        EXPECT_EQ(read("lblDataBase").toUpper(), "STUDENT.Q05");
        click("cmdOpenCancel");
    });
    EXPECT_EQ(FileView::choose(desk, projects), std::nullopt);
}

TEST_F(FileViewTest, ANameWithAStarFiltersTheList) {
    when(kView, [] {
        type("txtOpenFile", "not*.txt");
        click("cmdOpenOK");
        ASSERT_TRUE(drive::isVisible(kView));
        EXPECT_EQ(files(), (QStringList{"notes.txt"}));
        select("filOpenList", "notes.txt");
        EXPECT_EQ(read("Text1"), "") << "a text tells no substance";
        type("txtOpenFile", "s?range.BAQ");
        click("cmdOpenOK");
        EXPECT_EQ(files(), (QStringList{"strange.BAQ"}));
        click("cmdOpenCancel");
    });
    EXPECT_EQ(FileView::choose(desk, choice()), std::nullopt);
}

TEST_F(FileViewTest, AMissingFileIsToldAndTheListIsWholeAgain) {
    when(kView, [this] {
        type("txtOpenFile", "not*.txt");
        click("cmdOpenOK");
        type("txtOpenFile", "nothing.BAQ");
        click("cmdOpenOK");
        EXPECT_EQ(user.lastText(), "file not found in the QUOR directory");
        EXPECT_EQ(user.lastTitle(), "nothing.BAQ");
        EXPECT_EQ(files(), (QStringList{"propane.BAQ", "strange.BAQ"}));
        type("txtOpenFile", "propane");
        click("cmdOpenOK");
    });
    EXPECT_EQ(FileView::choose(desk, choice()), path("propane.BAQ"));
}

TEST_F(FileViewTest, ADoubleClickEnterAndTheReturnButtonTakeTheFile) {
    const auto twice = [] {
        auto* list = drive::get<QListWidget>("filOpenList");
        select("filOpenList", "propane.BAQ");
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                           list->visualItemRect(list->currentItem()).center());
    };
    const auto enter = [] {
        select("filOpenList", "propane.BAQ");
        press("filOpenList", Qt::Key_Return);
    };
    const auto button = [] {
        select("filOpenList", "propane.BAQ");
        click("cmdReturn");
    };
    for (const std::function<void()>& way : {std::function<void()>(twice), {enter}, {button}}) {
        when(kView, way);
        EXPECT_EQ(FileView::choose(desk, choice()), path("propane.BAQ"));
    }
}

TEST_F(FileViewTest, FoldersOpenByEnterAndByTheirNames) {
    when(kView, [] {
        select("dirOpenList", "deeper");
        press("dirOpenList", Qt::Key_Return);
        EXPECT_EQ(files(), (QStringList{"inside.BAQ"}));
        EXPECT_TRUE(read("lblOpenPath").endsWith("deeper"));
        select("dirOpenList", "..");
        press("dirOpenList", Qt::Key_Return);
        EXPECT_EQ(files().size(), 2);
        type("txtOpenFile", "deeper");
        click("cmdOpenOK");
        type("txtOpenFile", "inside.BAQ");
        click("cmdOpenOK");
    });
    EXPECT_EQ(FileView::choose(desk, choice()), path("deeper/inside.BAQ"));
}

TEST_F(FileViewTest, DeleteAsksAndRemovesTheFile) {
    when(kView, [this] {
        select("filOpenList", "strange.BAQ");
        user.answers = {dialogs::Answer::No, dialogs::Answer::Yes};
        press("filOpenList", Qt::Key_Delete);
        EXPECT_EQ(user.lastText(), "File strange.BAQ Really delete?");
        EXPECT_EQ(user.lastTitle(), "Confirm deleting files");
        EXPECT_EQ(files().size(), 2);
        press("filOpenList", Qt::Key_Delete);
        EXPECT_EQ(files(), (QStringList{"propane.BAQ"}));
        click("cmdOpenCancel");
    });
    EXPECT_EQ(FileView::choose(desk, choice()), std::nullopt);
    EXPECT_FALSE(fs::exists(folder() / "strange.BAQ"));
}

TEST_F(FileViewTest, SavingTakesANewNameAndItsExtension) {
    when(kView, [] {
        EXPECT_EQ(read("cmdOpenOK").remove('&'), "Save");
        type("txtOpenFile", "new data");
        click("cmdOpenOK");
    });
    EXPECT_EQ(FileView::choose(desk, choice(true)), path("new data.BAQ"));
    dialogs::FileChoice careful = choice(true);
    careful.overwrite_prompt = true;
    when(kView, [this] {
        user.answers = {dialogs::Answer::No, dialogs::Answer::Yes};
        select("filOpenList", "propane.BAQ");
        click("cmdOpenOK");
        EXPECT_EQ(user.lastText(), "such a file is already existing\nOverwright?");
        ASSERT_TRUE(drive::isVisible(kView));
        click("cmdOpenOK");
    });
    EXPECT_EQ(FileView::choose(desk, careful), path("propane.BAQ"));
}

TEST_F(FileViewTest, StandsInForTheDialogOfTheDesktopForItsKindsOnly) {
    editor_views::installFileView(desk);
    when(kView, [] {
        type("txtOpenFile", "propane.BAQ");
        click("cmdOpenOK");
    });
    EXPECT_EQ(dialogs::choose_file(choice()), path("propane.BAQ"));
    user.fileAnswers = {path("other.XY")};
    dialogs::FileChoice other = choice();
    other.filter = "x-y Data (*.XY)|*.XY";
    EXPECT_EQ(dialogs::choose_file(other), path("other.XY"));
}

}  // namespace
