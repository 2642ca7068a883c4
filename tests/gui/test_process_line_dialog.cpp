#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <fstream>

#include "common/numbers.h"
#include "diagrams/polytropic_exchange.h"
#include "gui/diagrams/process_line_dialog.h"
#include "gui/graph_test.h"
#include "gui/widgets/qt_dialogs.h"
#include "models/saturation.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isEnabled;
using drive::isVisible;
using drive::offers;
using drive::read;
using drive::type;
using drive::when;

constexpr auto kView = "frmInputProzessLinien";

/// The menu row that opens a line of a kind.
QString row(int kind) {
    return QString("mnuAddProcessLine_%1").arg(kind);
}

class ProcessInput : public GraphTest {
  protected:
    /// p-v with an isotherm and room for all lines of these tests.
    void openWide() {
        openIsotherm();
        when("fraCoord", [] {
            const char* const limits[] = {"-0.1", "20", "0", "2000"};
            for (int i = 0; i < 4; ++i) type(QString("coord_%1").arg(i), limits[i]);
            click("cmdCoord_OK");
        });
        click("mnuCoord");
    }

    void fill(std::initializer_list<std::pair<int, const char*>> fields) {
        for (const auto& [index, text] : fields) type(QString("par_%1").arg(index), text);
    }
    /// Draws a line with the fields as typed.
    void draw(int kind, std::initializer_list<std::pair<int, const char*>> fields,
              std::initializer_list<const char*> options = {}) {
        const std::vector<std::pair<int, const char*>> typed(fields);
        const std::vector<const char*> chosen(options);
        when(kView, [this, typed, chosen] {
            for (const char* option : chosen) click(option);
            for (const auto& [index, text] : typed) type(QString("par_%1").arg(index), text);
            const std::size_t before = user.messages.size();
            click("cmdDraw");
            if (user.messages.size() == before) return;
            ADD_FAILURE() << user.lastText();
            if (isVisible("cmdClose")) click("cmdClose");
        });
        choose(row(kind));
    }
    /// A refusal leaves the view open and the session as it was.
    void refused(int kind, std::initializer_list<std::pair<int, const char*>> fields,
                 std::initializer_list<const char*> options, const std::string& text) {
        const std::vector<std::pair<int, const char*>> typed(fields);
        const std::vector<const char*> chosen(options);
        const int curves = diagrams::curve_count(sheet());
        when(kView, [this, typed, chosen, text] {
            for (const char* option : chosen) click(option);
            for (const auto& [index, value] : typed) type(QString("par_%1").arg(index), value);
            const double before = session->process_line.range_start;
            click("cmdDraw");
            EXPECT_EQ(user.lastText(), text);
            EXPECT_EQ(user.lastTitle(), "Execution not possible");
            EXPECT_EQ(session->process_line.range_start, before);
            click("cmdClose");
        });
        choose(row(kind));
        EXPECT_EQ(diagrams::curve_count(sheet()), curves);
    }

    void bringProgram() { std::ofstream(folder() / diagrams::kPolytropicProgram) << "a program"; }
    /// A stand-in that writes its answer and its end mark.
    void answerWith(const std::string& text) {
        program.start = [text](const std::string&, const std::string& where, auto&) {
            std::ofstream(where + "/FROM_DAL.DAT", std::ios::binary) << text;
            std::ofstream(where + "/WRITEEND.END");
            return true;
        };
    }
    static std::string answer(const std::vector<std::string>& points) {
        std::string text = "1.0 2.0 " + std::to_string(points.size()) + "\r\n";
        for (int i = 1; i <= 22; ++i) text += "0.5\r\n";
        for (const std::string& point : points) text += point + "\r\n";
        return text;
    }

    /// The view that is open starts the stand-in.
    void standIn() const { drive::get<ProcessLineDialog>(kView)->setPolytropicRunner(program); }

    diagrams::PolytropicRunner program = diagrams::real_runner();  ///< or a stand-in for it
};

TEST_F(ProcessInput, EveryKindHasItsTitleFieldsAndCommand) {
    openIsotherm();
    struct Expected {
        const char *title, *command;
        std::vector<bool> fields;  // T1, p1, T2, p2
        bool region, range, phase;
    };
    session.change()->process_line.range_is_T = true;
    const Expected all[] = {
        {"Adding a Straight Line (x1, y1)-(x2, y2)",
         "",
         {true, true, true, true},
         false,
         false,
         false},
        {"Adding an Isotherm", "estim. phase", {true, true, false, true}, false, false, true},
        {"Adding an Isobar", "estim. phase", {true, true, true, false}, false, false, true},
        {"Adding an Isochore", "calc. v", {true, true, true, false}, true, true, true},
        {"Adding an Isentropic (= adiabatic reversible)",
         "calc. s",
         {true, true, true, false},
         true,
         true,
         true},
        {"Adding an Isenthalpic", "calc. h", {true, true, true, false}, true, true, true},
        {"Adding a Polytropic Line (for additional inform. => \"Calculation\")",
         "",
         {true, true, true, false},
         false,
         true,
         true},
    };
    for (int kind = 0; kind < 7; ++kind) {
        SCOPED_TRACE(kind);
        const Expected& e = all[kind];
        when(kView, [&] {
            EXPECT_EQ(read(kView), "Input Parameters fpr Processlines");
            EXPECT_EQ(read("lblTitel"), e.title);
            EXPECT_EQ(isVisible("cmdVScalc"), *e.command != 0);
            EXPECT_EQ(drive::get<QPushButton>("cmdVScalc")->text(), e.command);
            for (int i = 0; i < 4; ++i)
                EXPECT_EQ(isVisible(QString("par_%1").arg(i)),
                          e.fields[static_cast<std::size_t>(i)])
                    << i;
            EXPECT_EQ(isVisible("fraHomoHetero"), e.region);
            EXPECT_EQ(isVisible("fraTp"), e.range);
            EXPECT_EQ(isVisible("fraPhase"), e.phase);
            EXPECT_EQ(isVisible("cmbKappa"), kind == 6);
            EXPECT_EQ(isVisible("fraIdealEOS"), kind == 6);
            EXPECT_EQ(read("cmdDraw"), "&Draw");
            click("cmdClose");
        });
        choose(row(kind));
    }
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
}

TEST_F(ProcessInput, TheHeterogeneousFormHasItsOwnTitlesAndFields) {
    openIsotherm();
    const char* const titles[] = {"Adding an Isochore in the Heterogeneous Region V- L",
                                  "Adding an Isentropic in the Heterogeneous Region V - L",
                                  "Adding an Isenthalpic in the Heterogeneous Region V - L"};
    for (int kind = 3; kind <= 5; ++kind) {
        when(kView, [&] {
            click("optHomoHetero_1");
            EXPECT_EQ(read("lblTitel"), titles[kind - 3]);
            EXPECT_EQ(read("optPhase_0"), "L saturation");
            EXPECT_EQ(read("optPhase_1"), "V saturation");
            click("optTp_1");
            EXPECT_TRUE(isVisible("par_0") && !isVisible("par_1") && isVisible("par_2"));
            click("optTp_0");
            EXPECT_TRUE(!isVisible("par_0") && isVisible("par_1") && isVisible("par_3"));
            EXPECT_FALSE(isEnabled("cmdVScalc"));
            click("cmdClose");
        });
        choose(row(kind));
    }
}

TEST_F(ProcessInput, TellsPhaseVolumeAndEntropyOfTheStart) {
    openIsotherm();
    when(kView, [this] {
        fill({{0, "300"}, {1, "500"}});
        click("cmdVScalc");
        const QString text = read("txtVSCalc");
        EXPECT_TRUE(text.startsWith(" v = 4.")) << text.toStdString();
        EXPECT_TRUE(text.contains(" m^3/kmol V-Phase\n s = ")) << text.toStdString();
        EXPECT_TRUE(text.endsWith(" kJ/(kmol K)")) << text.toStdString();
        type("par_0", "0");
        EXPECT_EQ(read("txtVSCalc"), "");
        click("cmdVScalc");
        EXPECT_EQ(user.lastText(), "Input incomplete or not valid");
        click("cmdClose");
    });
    choose(row(4));
}

TEST_F(ProcessInput, RefusesWhatCannotBeDrawn) {
    openIsotherm();
    refused(1, {{0, "300"}, {1, ""}, {3, "900"}}, {}, "Input incomplete or not valid");
    refused(1, {{0, "300"}, {1, "-5"}, {3, "900"}}, {}, "Input incomplete or not valid");
    refused(1, {{0, "300"}, {1, "500"}, {3, "500"}}, {},
            "specification of the range is not valid ");
    refused(0, {{0, "1"}, {1, "2"}, {2, "1"}, {3, "2"}}, {},
            "specification of the range is not valid ");
    refused(5, {{1, "500"}, {3, "9000"}}, {"optHomoHetero_1", "optTp_0"},
            "pressure for the final tie-line has to be p <= p(cr) = " +
                numbers::general(session->substance.pcrit) + " kPa");
    refused(5, {{0, "300"}, {2, "900"}}, {"optHomoHetero_1", "optTp_1"},
            "temperature for the final tie-line has to be <= T(cr) = " +
                numbers::general(session->substance.Tcrit) + " K");
    refused(5, {{0, "900"}, {2, "300"}}, {"optHomoHetero_1", "optTp_1"},
            "temperature for the initial tie-line has to be <= T(cr) = " +
                numbers::general(session->substance.Tcrit));
}

TEST_F(ProcessInput, RefusesAPolytropicThatContradictsItself) {
    openIsotherm();
    when(kView, [this] {
        fill({{0, "400"}, {1, "500"}, {2, "450"}});
        click("optTp_1");
        type("txtExponent", "1");
        click("cmdDraw");
        EXPECT_EQ(user.lastText(),
                  "The condition polytropic exp. n = 1 (=> isotherm) is in\n"
                  "contradiction to your specification of \"T range\" ");
        type("txtExponent", "1.2");
        click("cmdDraw");
        EXPECT_EQ(user.lastText(),
                  "not yet a valid kappa available\n"
                  "Input your value or click on the\n"
                  "ComboBox to apply one of the offered values");
        type("txtExponent", "");
        click("cmdDraw");
        EXPECT_EQ(user.lastText(), "Input incomplete or not valid");
        const QStringList offers = drive::entries("cmbKappa");
        ASSERT_EQ(offers.size(), 2);
        EXPECT_TRUE(offers[0].startsWith("aus T1 = 1."));
        EXPECT_TRUE(offers[0].endsWith(" calculated"));
        EXPECT_TRUE(offers[1].startsWith("aus T(ref) = 1."));
        // They follow what is typed for T1.
        type("par_0", "298.15");
        const QStringList cold = drive::entries("cmbKappa");
        EXPECT_EQ(cold[0].section('=', 1), cold[1].section('=', 1));
        type("par_0", "500");
        const QStringList hot = drive::entries("cmbKappa");
        EXPECT_EQ(hot[1], cold[1]);
        const auto kappa = [](const QString& offer) {
            return offer.section('=', 1).section(' ', 1, 1).toDouble();
        };
        EXPECT_GT(kappa(cold[0]), kappa(hot[0]) + 0.02) << "cp grows with T";
        click("cmdClose");
    });
    choose(row(6));
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
}

TEST_F(ProcessInput, ALineContinuesTheLastOne) {
    openWide();
    when(kView, [] {
        EXPECT_FALSE(isEnabled("chkEndToBegin")) << "there is no last line";
        click("cmdClose");
    });
    choose(row(2));
    draw(2, {{0, "300"}, {1, "500"}, {2, "350"}}, {"optPhase_1"});
    EXPECT_EQ(curve(1).legend, "(Isobar 500.0 kPa ) ");
    EXPECT_DOUBLE_EQ(session->process_line.last.T, 350);
    EXPECT_DOUBLE_EQ(session->process_line.last.p, 500);
    when(kView, [this] {
        click("chkEndToBegin");
        EXPECT_EQ(read("par_0"), "350");
        EXPECT_EQ(read("par_1"), "500");
        type("par_3", "900");
        click("cmdDraw");
        EXPECT_TRUE(user.messages.empty());
    });
    choose(row(1));
    ASSERT_EQ(diagrams::curve_count(sheet()), 3);
    EXPECT_FLOAT_EQ(curve(2).x.front(), curve(1).x.back());
    EXPECT_FLOAT_EQ(curve(2).y.back(), 900);
}

/// The isobar of a boiler followed superheated liquid without a word.
TEST_F(ProcessInput, AnIsobarBoilsUnlessItsMetastableContinuationIsChosen) {
    openWide();
    draw(2, {{0, "260"}, {1, "500"}, {2, "290"}}, {"optPhase_0"});
    ASSERT_EQ(diagrams::curve_count(sheet()), 2);
    EXPECT_GT(curve(1).x.back(), 3.0F) << "vapour";
    EXPECT_EQ(curve(1).legend, "(Isobar 500.0 kPa ) ");
    draw(2, {{0, "260"}, {1, "500"}, {2, "290"}}, {"optPhase_0", "chkMetastable"});
    ASSERT_EQ(diagrams::curve_count(sheet()), 3);
    EXPECT_LT(curve(2).x.back(), 0.2F) << "superheated liquid";
    EXPECT_EQ(curve(2).legend, "(Isobar 500.0 kPa metastable ) ");
}

TEST_F(ProcessInput, AStraightLineIsDrawnBetweenItsEnds) {
    openIsotherm();
    draw(0, {{0, "1"}, {1, "500"}, {2, "1"}, {3, "900"}});
    ASSERT_EQ(diagrams::curve_count(sheet()), 2);
    EXPECT_EQ(curve(1).x.size(), 51U);
    EXPECT_EQ(curve(1).legend, "(free straight line) ");
    EXPECT_FLOAT_EQ(curve(1).y.front(), 500);
    EXPECT_FLOAT_EQ(curve(1).y.back(), 900);
}

TEST_F(ProcessInput, AnIsentropicWithoutAStateIsToldByItsStatus) {
    openWide();
    when(kView, [this] {
        click("optTp_1");
        click("optPhase_1");
        fill({{0, "300"}, {1, "500"}, {2, "2"}});
        click("cmdDraw");
    });
    choose(row(4));
    EXPECT_FALSE(user.messages.empty());
    user.messages.clear();
    // Heated at constant volume, saturated vapour leaves the dome at once.
    when(kView, [this] {
        click("optHomoHetero_1");
        click("optTp_1");
        click("optPhase_1");
        fill({{0, "240"}, {2, "300"}});
        click("cmdDraw");
    });
    choose(row(3));
    EXPECT_EQ(user.lastText(), "no result with these input data");
}

TEST_F(ProcessInput, ProcessLinesBelongToDiagramsOfStates) {
    openIsotherm();
    EXPECT_TRUE(offers(row(1)));
    choose("mnuHaupt");
    constexpr std::int16_t kIdealGasCp = 302;  // a function of the database
    for (const menu::Row& each : menu::rows())
        if (each.action == "Diagram2D" && each.code == kIdealGasCp)
            choose(QString::fromStdString(menu::object_name(each)));
    ASSERT_NE(window(), nullptr);
    EXPECT_EQ(sheet().request.diagram->code, kIdealGasCp);
    EXPECT_FALSE(offers(row(1)));
}

// ---- the polytropic program

TEST_F(ProcessInput, APolytropicWithoutTheProgramIsDrawnByTheEquationOfState) {
    openWide();
    when(kView, [this] {
        click("optTp_0");
        fill({{0, "400"}, {1, "500"}, {3, "900"}});
        type("txtExponent", "1.3");
        drive::get<QComboBox>("cmbKappa")->setEditText("1.13");
        click("cmdDraw");
    });
    choose(row(6));
    ASSERT_EQ(diagrams::curve_count(sheet()), 2);
    const std::string note =
        "The program for polytropic processes is not there:\n"
        "the line p v^n = const of the real gas is drawn\nby the equation of state instead.";
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), note);
    EXPECT_EQ(user.lastTitle(), "Note");
    const chart::Series& line = curve(1);
    const double first =
        static_cast<double>(line.y[0]) * std::pow(static_cast<double>(line.x[0]), 1.3);
    for (std::size_t i = 0; i < line.x.size(); ++i)
        EXPECT_NEAR(
            static_cast<double>(line.y[i]) * std::pow(static_cast<double>(line.x[i]), 1.3) / first,
            1, 1e-5);
}

TEST_F(ProcessInput, TheAnswerOfTheProgramIsDrawn) {
    openWide();
    bringProgram();
    answerWith(answer({"400;500", "410;550", "420;600"}));
    when(kView, [this] {
        standIn();
        click("optTp_0");
        fill({{0, "400"}, {1, "500"}, {3, "600"}});
        type("txtExponent", "1.3");
        drive::get<QComboBox>("cmbKappa")->setEditText("1.13");
        click("cmdDraw");
        EXPECT_TRUE(user.messages.empty()) << user.lastText();
    });
    choose(row(6));
    ASSERT_EQ(diagrams::curve_count(sheet()), 2);
    EXPECT_EQ(curve(1).y, (std::vector<float>{500, 550, 600}));
    EXPECT_EQ(curve(1).legend, "(Polytropic) ");
}

TEST_F(ProcessInput, TheWaitIsShownAndCanBeGivenUp) {
    dialogs::current().patience = dialogs::desktop().patience;
    openIsotherm();
    bringProgram();
    program.start = [](const std::string&, const std::string&, auto&) { return true; };
    bool seen = false;
    when(kView, [&] {
        standIn();
        click("optTp_0");
        fill({{0, "400"}, {1, "500"}, {3, "900"}});
        drive::get<QComboBox>("cmbKappa")->setEditText("1.13");
        type("txtExponent", "1.3");
        QTimer::singleShot(100, [&] {
            auto* box = drive::get<QProgressDialog>("programWait");
            seen = box->isVisible();
            EXPECT_EQ(box->labelText(), "Waiting for POLYTROPEN_1.EXE, at most 50 s ...");
            box->cancel();
        });
        click("cmdDraw");
        EXPECT_EQ(read("txtVSCalc"), "given up");
        EXPECT_TRUE(user.messages.empty());
        click("cmdClose");
    });
    choose(row(6));
    EXPECT_TRUE(seen);
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
}

TEST_F(ProcessInput, NoAnswerInTimeAndAGarbledOneAreTold) {
    openIsotherm();
    bringProgram();
    program.patience.limit = std::chrono::milliseconds(30);
    program.start = [](const std::string&, const std::string&, auto&) { return true; };
    const auto fails = [this] {
        when(kView, [this] {
            standIn();
            click("optTp_0");
            fill({{0, "400"}, {1, "500"}, {3, "900"}});
            drive::get<QComboBox>("cmbKappa")->setEditText("1.13");
            type("txtExponent", "1.3");
            click("cmdDraw");
            EXPECT_EQ(user.lastText(), "Error while the polytropic calculation\nT = 400\np = 500");
            user.messages.clear();
            click("cmdClose");
        });
        choose(row(6));
    };
    fails();
    answerWith("no numbers at all");
    fails();
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
}

TEST_F(ProcessInput, TheCalculationOfAProcessListsItsStates) {
    bringProgram();
    answerWith(answer({"400;500", "410;550", "1E+38;600"}));
    session.change()->batch_mode = false;
    when(kView, [this] {
        standIn();
        EXPECT_EQ(read("lblTitel"), "Calculation of a Polytropic Process");
        EXPECT_EQ(read("cmdDraw").remove('&'), "Calculate");
        click("optTp_0");
        fill({{0, "400"}, {1, "500"}, {3, "600"}});
        drive::get<QComboBox>("cmbKappa")->setEditText("1.13");
        type("txtExponent", "1.3");
        click("cmdDraw");
    });
    choose("mnuCalc_13");
    std::vector<std::string> list;
    for (const report::ListLine& line : session->results.current.report.lines)
        list.push_back(line.text);
    ASSERT_GE(list.size(), 5U);
    EXPECT_EQ(list.front(), "Polytropic process, n = 1.3, kappa = 1.13");
    const auto last = list.end() - 3;
    EXPECT_TRUE(last[0].starts_with("              400              500")) << last[0];
    EXPECT_TRUE(last[1].starts_with("              410              550")) << last[1];
    EXPECT_EQ(last[2], "                               600") << "T is missing";
    EXPECT_TRUE(session->process_line.polytropic_points.empty()) << "the answer is used once";
}

}  // namespace
