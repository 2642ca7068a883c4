#include <fstream>

#include "gui/frame_test.h"
#include "gui/widgets/settings.h"
#include "session/commands.h"
#include "session/project_session.h"
#include "support/codes.h"
#include "support/machine_faults.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isVisible;
using drive::offers;
using drive::read;

class Frame : public FrameTest {};

const QStringList kSubstanceRows = {"mnuStoff"};
const QStringList kModelRows = {"mnu2D", "mnu3D", "mnuCalcMain"};

bool enabled(const QString& name) {
    return drive::action(name)->isEnabled();
}

TEST_F(Frame, StartsEmptyAndOffersADatabaseFirst) {
    start();
    EXPECT_EQ(frame->windowTitle(),
              "QUOR-6   Thermodynamic Calculations of States and Processes for Pure Substances");
    EXPECT_TRUE(offers("mnuData_OpenBank"));
    EXPECT_TRUE(offers("mnuData_Status"));
    EXPECT_TRUE(drive::isEnabled("Toolbar1_2"));
    for (const char* name : {"mnuStoff", "mnuModel", "mnu2D", "mnu3D", "mnuCalcMain", "mnuFitting",
                             "mnuOptions", "mnuData_SaveProject", "mnuData_BatchInput",
                             "mnuData_BatchEdit", "mnuData_EditStoffdaten", "mnuData_ParameterEOS"})
        EXPECT_FALSE(enabled(name)) << name;
    for (const char* name : {"Toolbar1_7", "Toolbar1_15"}) EXPECT_FALSE(drive::isEnabled(name));
    for (int panel = 1; panel <= 3; ++panel)
        EXPECT_EQ(read(QString("StatusBar1_%1").arg(panel)), "");
    EXPECT_EQ(read("StatusBar1_4"), "15.11.2026");
    EXPECT_NE(frame->findChild<QWidget*>("frmPhantom"), nullptr);
}

TEST_F(Frame, EveryRowOfTheCatalogueIsThere) {
    start();
    for (const menu::Row& row : menu::rows()) {
        if (row.kind == menu::Kind::Separator) continue;
        const QAction* action = drive::action(QString::fromStdString(menu::object_name(row)));
        EXPECT_EQ(action->text().toStdString(), menu::caption(session, row));
        EXPECT_EQ(action->isVisible(), menu::visible(session, row)) << menu::object_name(row);
    }
}

TEST_F(Frame, ToolButtonsBearTheirTips) {
    start();
    for (const menu::ToolButton& button : menu::tool_buttons()) {
        const auto* tool = drive::get<QToolButton>(QString("Toolbar1_%1").arg(button.index));
        EXPECT_EQ(tool->toolTip().toStdString(), button.tooltip);
        EXPECT_FALSE(tool->icon().isNull());
    }
}

TEST_F(Frame, CommandsOpenStepByStep) {
    start();
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    drive::when("frmStoffWahl", [] {
        EXPECT_TRUE(enabled("mnuStoff")) << "a database is open";
        EXPECT_FALSE(enabled("mnuModel"));
        drive::type("Text1", "Carbon dioxide");
        click("StoffOK");
    });
    drive::when("frmQModell", [] {
        EXPECT_TRUE(enabled("mnuModel")) << "a substance is chosen";
        for (const QString& name : kModelRows) EXPECT_FALSE(enabled(name));
        click("OKModell");
    });
    click("Toolbar1_2");
    for (const QString& name : kModelRows) EXPECT_TRUE(enabled(name)) << "models are confirmed";
    EXPECT_TRUE(enabled("mnuData_ParameterEOS"));
    EXPECT_EQ(read("StatusBar1_1"), "Carbon dioxide");
    EXPECT_EQ(read("StatusBar1_2"), "CEOS Peng / Robinson (Priority!)");
    EXPECT_EQ(read("StatusBar1_3"), "Vapour press. equ.: Wagner");
    EXPECT_TRUE(user.messages.empty());
}

// With a handler behind every row only the state of the work decides. The columns: after start,
// with a database, with a substance, with models, with another database.
struct Stage {
    const char* row;
    const char* enabled;  ///< five marks, '+' enabled, '-' disabled
};
constexpr Stage kStages[] = {
    {"mnuData_OpenBank", "+++++"},
    {"mnuData_Status", "+++++"},
    {"mnuData_LoadLastSession", "+++++"},
    {"mnuData_LoadProject", "+++++"},
    {"mnuData_SaveProject", "---++"},
    {"mnuData_BatchInput", "-++++"},
    {"mnuData_BatchEdit", "-----"},
    {"mnuData_EditStoffdaten", "-++++"},
    {"mnuData_EditXY", "+++++"},
    {"mnuData_ParameterEOS", "---+-"},
    {"mnuJOBACK", "+++++"},
    {"mnuData_JOBACK_CritData", "+++++"},
    {"mnuData_Exit", "+++++"},
    {"mnuStoff", "-++++"},
    {"mnuModel", "--++-"},
    {"mnu2D", "---+-"},
    {"mnu3D", "---+-"},
    {"mnuCalcMain", "---+-"},
    {"mnuFitting", "---+-"},
    {"mnuOptions", "---+-"},
    {"mnuWindow", "+++++"},
    {"mnuHilfe", "+++++"},
    {"mnuHilfe_About", "+++++"},
    {"mnuHilfe_Index", "+++++"},
    {"mnuHilfe_Tip", "+++++"},
    {"mnuInfo", "+++++"},
    {"Toolbar1_2", "+++++"},
    {"Toolbar1_4", "+++++"},
    {"Toolbar1_6", "+++++"},
    {"Toolbar1_7", "---++"},
    {"Toolbar1_11", "---++"},
    {"Toolbar1_15", "---+-"},
};

TEST_F(Frame, EveryCommandIsEnabledInItsTurn) {
    start();
    for (const menu::Row& row : menu::rows())
        if (!row.action.empty() && !commands.has(row.action)) commands.add(row.action, [] {});
    commands.add("frmReferenz", [] {});
    desk.refresh();
    const auto check = [](std::size_t stage) {
        for (const Stage& s : kStages)
            EXPECT_EQ(enabled(s.row), s.enabled[stage] == '+') << s.row << " at stage " << stage;
    };
    check(0);
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    drive::when("frmStoffWahl", [&] {
        check(1);
        drive::type("Text1", "Carbon dioxide");
        click("StoffOK");
    });
    drive::when("frmQModell", [&] {
        check(2);
        click("OKModell");
    });
    click("Toolbar1_2");
    check(3);
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    drive::when("frmStoffWahl", [] { click("ESC"); });
    click("Toolbar1_2");
    check(4);
}

TEST_F(Frame, ADatabaseThatIsNotChosenChangesNothing) {
    start();
    user.fileAnswers.push_back(std::nullopt);
    choose("mnuData_OpenBank");
    ASSERT_EQ(user.files.size(), 1U);
    EXPECT_EQ(user.files[0].title, "Select and load a database");
    EXPECT_FALSE(enabled("mnuStoff"));
}

TEST_F(Frame, AnotherDatabaseDisablesTheCalculationUntilANewChoice) {
    start();
    openSubstance("Carbon dioxide");
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    drive::when("frmStoffWahl", [] { click("ESC"); });
    choose("mnuData_OpenBank");
    for (const char* name : {"mnuModel", "mnu2D", "mnu3D", "mnuCalcMain"})
        EXPECT_FALSE(enabled(name)) << name;
    EXPECT_FALSE(drive::isEnabled("Toolbar1_15"));
    EXPECT_TRUE(enabled("mnuStoff"));
    choose("mnuData_Status");
    EXPECT_NE(user.lastText().find("\n... no substance\n"), std::string::npos) << user.lastText();
}

TEST_F(Frame, LeavingTheModelViewKeepsTheCalculationDisabled) {
    start();
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    drive::when("frmStoffWahl", [] {
        drive::type("Text1", "Carbon dioxide");
        click("StoffOK");
    });
    drive::when("frmQModell", [] { drive::press("EOSKombi", Qt::Key_Escape); });
    click("Toolbar1_2");
    EXPECT_TRUE(enabled("mnuModel"));
    EXPECT_FALSE(enabled("mnuCalcMain"));
    EXPECT_EQ(models::code_of(session->models.eos), -1);
    EXPECT_EQ(read("StatusBar1_2"), "");
}

TEST_F(Frame, ACalculationRowRunsTheHandlerOfItsMode) {
    int runs = 0;
    start();
    commands.add("CalcMode_3", [&] { ++runs; });
    openSubstance("Carbon dioxide");
    EXPECT_TRUE(offers("mnuCalc_2"));
    choose("mnuCalc_2");
    EXPECT_EQ(runs, 1);
}

TEST_F(Frame, TheTankButtonTakesTheMethodThatHasPriority) {
    std::vector<int> runs;
    start();
    commands.add("CalcMode_9", [&] { runs.push_back(9); });
    commands.add("CalcMode_10", [&] { runs.push_back(10); });
    openSubstance("Carbon dioxide");
    click("Toolbar1_15");
    session.change()->models.eos_has_priority = false;
    click("Toolbar1_15");
    EXPECT_EQ(runs, (std::vector<int>{9, 10}));
}

TEST_F(Frame, OpeningTheCalculationMenuClosesTheViewsOfTheLastOne) {
    start();
    openSubstance("Carbon dioxide");
    for (const char* name : {"frmCalcOut", "frmParinput", "frmGraph2D"}) {
        auto* view = new QWidget;
        view->setObjectName(name);
        desk.openChild(view);
    }
    EXPECT_NE(desk.findView("frmCalcOut"), nullptr);
    drive::open("mnuCalc_2");
    drive::settle();
    EXPECT_EQ(desk.findView("frmCalcOut"), nullptr);
    EXPECT_EQ(desk.findView("frmParinput"), nullptr);
    EXPECT_NE(desk.findView("frmGraph2D"), nullptr);
}

TEST_F(Frame, BatchOperationWithoutDataIsToldAndTheMenuOpens) {
    start();
    commands.add("CalcMode_3", [] {});
    openSubstance("Carbon dioxide");
    session.change()->batch_mode = true;
    drive::open("mnuCalc_2");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_TRUE(offers("mnuCalc_2"));
    EXPECT_EQ(drive::action("mnuCalc_2")->text(),
              "columns T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_TRUE(drive::action("mnuCalc_1")->isVisible());
}

TEST_F(Frame, ADiagramRowPreparesItsDiagram) {
    start();
    int runs = 0;
    commands.add("Diagram2D", [&] { ++runs; });
    openSubstance("Carbon dioxide");
    choose("mnuGraf_sub_proj_8");
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(session->diagram->code, 90);
    EXPECT_EQ(session->diagram->axis_pair, "yT");
}

TEST_F(Frame, StatusAndParametersAreReported) {
    start();
    choose("mnuData_Status");
    EXPECT_EQ(user.lastText(), "... not yet a database");
    EXPECT_EQ(user.lastTitle(), " loaded ...");
    openSubstance("Carbon dioxide");
    choose("mnuData_Status");
    EXPECT_EQ(user.lastText(),
              "... database STUDENT.Q05\n  with 3 substance(s)\n"
              "... substance: CO2  124-38-9  Carbon dioxide (#1)\n"
              "    CEOS Peng / Robinson (Priority!),  Vapour press. equ.: Wagner\n"
              "... exper. T-p-rho-HLV-cp data: none\n"
              "(for more parameters loaded see \"Options\")");
    choose("mnuData_ParameterEOS");
    EXPECT_EQ(user.lastTitle(), " Parameters of the EOS ");
    EXPECT_TRUE(user.lastText().starts_with("Parameter for CEOS Peng / Robinson\n"));
}

TEST_F(Frame, MeasuredDataCanBeEditedOnceThereAreSome) {
    start();
    int edits = 0;
    commands.add("mnuData_BatchEdit", [&] { ++edits; });
    drive::open("mnuData_BatchEdit");
    EXPECT_FALSE(offers("mnuData_BatchEdit"));
    session.change()->measured.points.resize(3);
    choose("mnuData_BatchEdit");
    EXPECT_EQ(edits, 1);
}

TEST_F(Frame, OpeningTheDataMenuClosesInputViews) {
    start();
    for (const char* name : {"frmCalcOut", "frmParinput"}) {
        auto* view = new QWidget;
        view->setObjectName(name);
        desk.openChild(view);
    }
    drive::open("mnuData_Status");
    drive::settle();
    EXPECT_EQ(desk.findView("frmParinput"), nullptr);
    EXPECT_NE(desk.findView("frmCalcOut"), nullptr);
}

TEST_F(Frame, FirstStepsDoNotCoverAViewThatOpensUnderThem) {
    start();
    frame->inviteFirstUser();
    QWidget* panel = drive::find("Picture1");
    ASSERT_TRUE(panel->isVisible());
    auto* view = new QWidget;
    view->setObjectName("Opened");
    view->resize(400, 300);
    desk.openChild(view);
    drive::settle();
    EXPECT_FALSE(panel->isVisible());
    const QPoint middle = view->mapTo(frame.get(), view->rect().center());
    const QWidget* seen = frame->childAt(middle);
    ASSERT_NE(seen, nullptr);
    EXPECT_TRUE(seen == view || view->parentWidget()->isAncestorOf(seen))
        << seen->metaObject()->className() << " " << seen->objectName().toStdString();
}

TEST_F(Frame, FirstStepsComeAndGo) {
    start();
    EXPECT_FALSE(isVisible("Picture1"));
    click("cmdErstnutzer");
    EXPECT_TRUE(isVisible("Picture1"));
    EXPECT_EQ(read("lblFirstSteps_0"), "In case you are not yet familiar with QUOR:");
    EXPECT_EQ(read("lblFirstSteps_1"), "(1)  Begin with a new project (Click at the left icon)");
    EXPECT_EQ(read("cmdErstnutzer"), "First Steps    (on/off)  ");
    click("cmdErstnutzer");
    EXPECT_FALSE(isVisible("Picture1"));
    click("cmdErstnutzer");
    QWidget* panel = drive::find("Picture1");
    const QPoint onLabel = drive::find("lblFirstSteps_2")->geometry().center();
    QTest::mouseClick(frame->windowHandle(), Qt::LeftButton, {},
                      panel->mapTo(frame.get(), onLabel));
    EXPECT_FALSE(isVisible("Picture1"));
}

TEST_F(Frame, FirstStepsInviteANewUserOnce) {
    start();
    frame->inviteFirstUser();
    EXPECT_TRUE(isVisible("Picture1"));
    click("cmdErstnutzer");
    frame->inviteFirstUser();
    EXPECT_FALSE(isVisible("Picture1"));
}

TEST_F(Frame, TipsShowAtStartUntilSwitchedOff) {
    frame = std::make_unique<MainWindow>(desk, commands);
    frame->show();
    frame->startUp();
    ASSERT_TRUE(isVisible("frmTip"));
    EXPECT_FALSE(session->tips_hidden);
    const QString first = read("lblTipText");
    EXPECT_FALSE(first.isEmpty());
    click("cmdNextTip");
    EXPECT_NE(read("lblTipText"), first);
    EXPECT_TRUE(drive::isChecked("chkLoadTipsAtStartup"));
    click("chkLoadTipsAtStartup");
    EXPECT_FALSE(settings::showTipsAtStartup()) << "written at once";
    click("cmdOK");
    EXPECT_FALSE(isVisible("frmTip"));

    frame->startUp();
    EXPECT_FALSE(isVisible("frmTip"));
    EXPECT_TRUE(session->tips_hidden);
    choose("mnuHilfe_Tip");
    EXPECT_TRUE(isVisible("frmTip"));
    EXPECT_FALSE(drive::isChecked("chkLoadTipsAtStartup"));
}

TEST_F(Frame, TheTipsSettingIsANumberInSectionOptions) {
    settings::setShowTipsAtStartup(false);
    EXPECT_EQ(QSettings("QUOR", "QUOR-6").value("Options/Show Tips at Startup").toString(), "0");
    settings::setShowTipsAtStartup(true);
    EXPECT_EQ(QSettings("QUOR", "QUOR-6").value("Options/Show Tips at Startup").toString(), "1");
}

TEST_F(Frame, AMissingTipsFileIsToldOnceAndTheViewStaysEmpty) {
    std::filesystem::remove(folder() / "QUORTIPS_E.TXT");
    frame = std::make_unique<MainWindow>(desk, commands);
    frame->show();
    frame->startUp();
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(read("lblTipText"), "");
    EXPECT_FALSE(drive::isEnabled("cmdNextTip"));
}

TEST_F(Frame, AFolderThatTakesNoFilesIsToldAtTheStart) {
    const FaultyDisk disk = FaultyDisk::read_only(folder());
    if (!disk.is_made()) GTEST_SKIP() << "no disks can be made here";
    start();
    ASSERT_FALSE(user.messages.empty());
    EXPECT_EQ(user.messages[0].text, "No files can be written to the folder " + folder().string() +
                                         " (Read-only file system).\n\n"
                                         "Whatever is saved can go to other places; the session "
                                         "itself is not kept for the next start.");
}

class FrameWithProjects : public FrameTest {
  protected:
    /// The program with a last session of carbon dioxide.
    void start_after_a_session() {
        start();
        openSubstance("Carbon dioxide");
        ASSERT_TRUE(session::save_last_session(session));
        session::reset_everything(session);
        user.messages.clear();
    }
};

TEST_F(FrameWithProjects, TheLastSessionEnablesEverything) {
    start_after_a_session();
    for (const char* name : {"mnuStoff", "mnuModel", "mnu2D", "mnu3D", "mnuCalcMain"})
        EXPECT_FALSE(enabled(name)) << name;
    click("Toolbar1_4");
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
    for (const char* name : {"mnuStoff", "mnuModel", "mnu2D", "mnu3D", "mnuCalcMain"})
        EXPECT_TRUE(enabled(name)) << name;
    EXPECT_TRUE(drive::isEnabled("Toolbar1_7"));
    EXPECT_EQ(read("StatusBar1_2"), "CEOS Peng / Robinson (Priority!)");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(FrameWithProjects, WithoutALastSessionTheSessionStaysAsItIs) {
    start();
    session.change()->substance_number = 5;
    click("Toolbar1_4");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(session->substance_number, 5);
}

TEST_F(FrameWithProjects, AProjectThatFailsEnablesNothing) {
    start();
    std::ofstream(folder() / "mine.QCF") << "no project";
    user.fileAnswers.push_back((folder() / "mine.QCF").string());
    click("Toolbar1_6");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_FALSE(enabled("mnuCalcMain"));
    EXPECT_FALSE(enabled("mnuStoff"));
}

TEST_F(FrameWithProjects, CancellingTheChoiceOfAProjectChangesNothing) {
    start();
    session.change()->substance_number = 5;
    user.fileAnswers.push_back(std::nullopt);
    click("Toolbar1_6");
    EXPECT_EQ(user.files.size(), 1U);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(session->substance_number, 5);
}

TEST_F(FrameWithProjects, SavingAProjectNotesOnceWhatMustBeComplete) {
    start();
    openSubstance("Carbon dioxide");
    user.fileAnswers = {std::nullopt, std::nullopt};
    const std::size_t before = user.files.size();
    click("Toolbar1_7");
    EXPECT_EQ(user.lastTitle(), "Single Note");
    choose("mnuData_SaveProject");
    EXPECT_EQ(user.files.size(), before + 2);
    EXPECT_EQ(user.messages.size(), 1U);
}

TEST_F(Frame, ExitAndTheCloseButtonEndTheSessionAlike) {
    for (const bool byMenu : {true, false}) {
        start();
        openSubstance("Carbon dioxide");
        {
            const auto now = session.change();
            ASSERT_TRUE(now->protocol.add({}, {}));
            now->protocol.pending = true;
        }
        std::filesystem::remove(session->last_session_file);
        const std::filesystem::path protocol = folder() / session->protocol.file;
        if (byMenu)
            choose("mnuData_Exit");
        else
            frame->close();
        EXPECT_FALSE(frame->isVisible());
        EXPECT_FALSE(session->protocol.pending);
        EXPECT_TRUE(std::filesystem::exists(protocol));
        EXPECT_TRUE(std::filesystem::exists(session->last_session_file));
        std::filesystem::remove(protocol);
    }
}

class Stubborn : public QWidget {
  public:
    bool refuses = true;

  protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!refuses); }
};

TEST_F(Frame, AViewThatRefusesToCloseKeepsTheProgramOpen) {
    start();
    const std::filesystem::path empty = folder() / session->protocol.file;
    std::ofstream(empty) << "";
    auto* view = new Stubborn;
    view->setObjectName("frmTpvEdit");
    desk.openChild(view);
    EXPECT_FALSE(frame->close());
    EXPECT_TRUE(frame->isVisible());
    EXPECT_TRUE(std::filesystem::exists(empty)) << "the session goes on";
    view->refuses = false;
    EXPECT_TRUE(frame->close());
    EXPECT_FALSE(std::filesystem::exists(empty));
}

TEST_F(Frame, ViewsReopenWhereTheyWere) {
    start();
    const auto open = [this] {
        auto* view = new QWidget;
        view->setObjectName("frmGraph2D");
        view->setMinimumSize(200, 100);
        desk.openChild(view);
        return view->parentWidget();
    };
    QWidget* window = open();
    const QRect place(120, 90, 420, 330);
    window->setGeometry(place);
    desk.closeViews({"frmGraph2D"});
    drive::settle();
    EXPECT_EQ(open()->geometry(), place);
}

TEST_F(Frame, TheWindowMenuListsTheOpenViews) {
    start();
    for (const char* title : {"First", "Second"}) {
        auto* view = new QWidget;
        view->setObjectName(title);
        view->setWindowTitle(title);
        desk.openChild(view);
    }
    auto* menu = frame->findChild<QMenu*>("mnuWindow");
    Q_EMIT menu->aboutToShow();
    QStringList titles;
    for (const QAction* action : menu->actions())
        if (action->isCheckable()) titles << action->text();
    EXPECT_EQ(titles, (QStringList{"First", "Second"}));
    menu->actions().at(4)->trigger();
    EXPECT_EQ(desk.findView("First")->window(), frame.get());
    drive::action("mnuWindow_CloseAll")->trigger();
    drive::settle();
    EXPECT_EQ(desk.findView("First"), nullptr);
}

TEST_F(Frame, IdentityTellsWhetherAViewIsOpen) {
    start();
    auto* view = new QWidget;
    view->setObjectName("frmGraph2D");
    EXPECT_FALSE(desk.isOpen(view));
    desk.openChild(view);
    EXPECT_TRUE(desk.isOpen(view));
    EXPECT_TRUE(desk.activate("frmGraph2D"));
    desk.closeViews({"frmGraph2D"});
    drive::settle();
    EXPECT_FALSE(desk.isOpen(view)) << "the pointer is dead by now";
    EXPECT_FALSE(desk.isOpen(nullptr));
    EXPECT_FALSE(desk.activate("frmGraph2D"));
}

/// A view whose one change can be taken back.
class Undo : public QWidget, public Undoable {
  public:
    QString undoName() const override { return done ? "Delete & close" : ""; }
    QString redoName() const override { return done ? "" : "Delete & close"; }
    void undo() override { done = false; }
    void redo() override { done = true; }

    bool done = true;
};

TEST_F(Frame, TheEditMenuNamesTheStepsOfTheViewInFront) {
    start();
    drive::open("mnuEdit_Undo");
    EXPECT_FALSE(offers("mnuEdit_Undo"));
    EXPECT_FALSE(offers("mnuEdit_Redo"));
    auto* view = new Undo;
    view->setObjectName("frmUndo");
    desk.openChild(view);
    drive::open("mnuEdit_Undo");
    EXPECT_EQ(drive::action("mnuEdit_Undo")->text(), "&Undo Delete && close\tCtrl+Z");
    EXPECT_FALSE(offers("mnuEdit_Redo"));
    choose("mnuEdit_Undo");
    EXPECT_FALSE(view->done);
    drive::open("mnuEdit_Redo");
    EXPECT_EQ(drive::action("mnuEdit_Redo")->text(), "&Redo Delete && close\tCtrl+Shift+Z");
    choose("mnuEdit_Redo");
    EXPECT_TRUE(view->done);
}

TEST_F(Frame, HelpMenuRowsSpeakOfTheProgram) {
    start();
    choose("mnuHilfe_About");
    EXPECT_NE(user.lastText().find("GNU General Public License"), std::string::npos);
    choose("mnuInfo");
    EXPECT_NE(user.lastText().find(folder().string()), std::string::npos);
}

}  // namespace
