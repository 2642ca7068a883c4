#include <QDir>
#include <algorithm>
#include <cmath>

#include "gui/graph_test.h"
#include "models/saturation.h"
#include "models/state_solver.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::type;
using drive::when;

constexpr std::int16_t kPv = 1, kTv = 3, kHs = 107, kHp = 150;
constexpr int kStraight = 0, kIsobar = 2, kIsentropic = 4, kIsenthalpic = 5;

/// Cycles drawn line by line, as a user draws them.
class Cycles : public GraphTest {
  protected:
    explicit Cycles(const char* fluid) : GraphTest(fluid) {}

    struct Limits {
        double low, high;
    };
    /// Ranges of volume, pressure, temperature, enthalpy and entropy that hold the cycle.
    struct Room {
        Limits v, p, T, h, s;
    };

    void openDiagram(std::int16_t code, const Room& room) {
        for (const menu::Row& row : menu::rows()) {
            if (row.action != "Diagram2D" || row.code != code) continue;
            if (diagrams::input_of(diagrams::diagram_of(row.code)) == diagrams::DiagramInput::range)
                when("frmInputProzessLinien", [] { click("cmdDraw"); });
            else
                when("frmTpVSInputBox", [] { click("cmdOKAndDraw"); });
            choose(QString::fromStdString(menu::object_name(row)));
            break;
        }
        ASSERT_NE(window(), nullptr);
        const Limits x = code == kHs ? room.s : code == kHp ? room.p : room.v;
        const Limits y = code == kPv ? room.p : code == kTv ? room.T : room.h;
        when("fraCoord", [x, y] {
            const double limits[] = {x.low, x.high, y.low, y.high};
            for (int i = 0; i < 4; ++i)
                type(QString("coord_%1").arg(i), QString::number(limits[i]));
            click("cmdCoord_OK");
        });
        click("mnuCoord");
        legs.clear();
    }

    struct Field {
        int index;
        double value;
    };
    /// Draws a line; the fields are T1, p1, T2, p2. A line without a start goes on from the last.
    void line(int kind, std::vector<Field> fields, std::vector<const char*> options) {
        const int before = diagrams::curve_count(sheet());
        when("frmInputProzessLinien", [this, fields, options] {
            for (const char* option : options) click(option);
            for (const Field& f : fields)
                type(QString("par_%1").arg(f.index), QString::number(f.value, 'g', 15));
            click("cmdDraw");
            if (!user.messages.empty() && drive::isVisible("cmdClose")) click("cmdClose");
        });
        choose(QString("mnuAddProcessLine_%1").arg(kind));
        EXPECT_TRUE(user.messages.empty()) << user.lastText();
        ASSERT_EQ(diagrams::curve_count(sheet()), before + 1);
        legs.push_back(before);
    }
    /// From the end of the last line to the start of the line in a slot, or to a place.
    void straight(QPointF to) {
        const QPointF from = last(legs.back());
        line(kStraight, {{0, from.x()}, {1, from.y()}, {2, to.x()}, {3, to.y()}}, {});
    }

    QPointF first(int slot) const { return at(curve(slot), 0); }
    QPointF last(int slot) const { return at(curve(slot), curve(slot).x.size() - 1); }

    /// Every line begins where the one before ends, and the last ends where the first begins.
    void expectClosed(const std::string& what) {
        const double xSpan = std::fabs(
            static_cast<double>(sheet().request.window.x_max - sheet().request.window.x_min));
        const double ySpan = std::fabs(
            static_cast<double>(sheet().request.window.y_max - sheet().request.window.y_min));
        constexpr double kResolution = 1.0 / 300;  // a point of a curve
        for (std::size_t i = 0; i < legs.size(); ++i) {
            const QPointF end = last(legs[i]), start = first(legs[(i + 1) % legs.size()]);
            EXPECT_LT(std::fabs(end.x() - start.x()), kResolution * xSpan) << what << " leg " << i;
            EXPECT_LT(std::fabs(end.y() - start.y()), kResolution * ySpan) << what << " leg " << i;
        }
    }
    void picture(const char* name, std::int16_t code) {
        if (code != kPv) click("cmdFit");  // an isotherm of p-v rises beyond all bounds
        const QString folder = QStringLiteral(QUOR_SCREENS);
        QDir().mkpath(folder);
        EXPECT_TRUE(
            window()->grab().save(QString("%1/cycle_%2_%3.png").arg(folder, name).arg(code)));
    }

    std::vector<int> legs;  ///< slots of the lines in their order

  private:
    static QPointF at(const chart::Series& s, std::size_t i) {
        return {static_cast<double>(s.x.at(i)), static_cast<double>(s.y.at(i))};
    }
};

class Rankine : public Cycles {
  protected:
    Rankine() : Cycles("Water") {}
};
class Joule : public Cycles {
  protected:
    Joule() : Cycles("Nitrogen") {}
};
class Refrigeration : public Cycles {
  protected:
    Refrigeration() : Cycles("1,1,1,2-Tetrafluoroethane") {}
};

TEST_F(Rankine, ClosesInEveryDiagram) {
    constexpr double kLow = 100, kHigh = 3000, kSteam = 900;
    const double boiling = models::saturation_temperature(session.fluid(), kHigh)->T;
    const double condensing = models::saturation_temperature(session.fluid(), kLow)->T;
    for (const std::int16_t code : {kPv, kTv, kHs, kHp}) {
        openDiagram(code, {{-1, 50}, {-100, 4000}, {250, 1000}, {-60000, 40000}, {-250, 100}});
        const std::string what = "code " + std::to_string(code);
        // Pump, heating, boiling, superheating, turbine, cooling of the steam, condensing.
        line(kIsentropic, {{0, condensing - 0.2}, {1, kLow}, {3, kHigh}},
             {"optTp_0", "optPhase_0"});
        line(kIsobar, {{2, boiling - 1e-6}}, {"chkEndToBegin", "optPhase_0"});
        const int water = legs.back();
        line(kIsobar, {{0, boiling + 1e-6}, {1, kHigh}, {2, kSteam}}, {"optPhase_1"});
        const int steam = legs.back();
        legs.pop_back();
        straight(first(steam));
        legs.push_back(steam);
        line(kIsentropic, {{3, kLow}}, {"chkEndToBegin", "optTp_0", "optPhase_1"});
        line(kIsobar, {{2, condensing + 1e-6}}, {"chkEndToBegin", "optPhase_1"});
        straight(first(legs.front()));
        EXPECT_EQ(legs.size(), 7U);
        EXPECT_GT(water, 0);
        expectClosed(what);
        picture("rankine", code);
        choose("mnuHaupt");
        drive::settle();
    }
}

TEST_F(Joule, ClosesInEveryDiagram) {
    constexpr double kLow = 100, kHigh = 1000;
    for (const std::int16_t code : {kPv, kTv, kHs, kHp}) {
        openDiagram(code, {{-1, 80}, {-100, 1200}, {200, 1300}, {-10000, 60000}, {-100, 100}});
        line(kIsentropic, {{0, 300}, {1, kLow}, {3, kHigh}}, {"optTp_0", "optPhase_1"});
        line(kIsobar, {{2, 1200}}, {"chkEndToBegin", "optPhase_1"});
        line(kIsentropic, {{3, kLow}}, {"chkEndToBegin", "optTp_0", "optPhase_1"});
        line(kIsobar, {{2, 300}}, {"chkEndToBegin", "optPhase_1"});
        EXPECT_EQ(legs.size(), 4U);
        expectClosed("code " + std::to_string(code));
        picture("joule", code);
        choose("mnuHaupt");
        drive::settle();
    }
}

TEST_F(Refrigeration, ClosesInEveryDiagram) {
    const double kLow = models::saturation_pressure(session.fluid(), 265)->p,
                 kHigh = models::saturation_pressure(session.fluid(), 310)->p;
    for (const std::int16_t code : {kPv, kTv, kHs, kHp}) {
        openDiagram(code, {{-1, 20}, {-100, 2000}, {200, 400}, {-40000, 20000}, {-200, 100}});
        // Compressor from a little superheat, cooling, condensing, throttle, evaporator.
        line(kIsentropic, {{0, 266}, {1, kLow}, {3, kHigh}}, {"optTp_0", "optPhase_1"});
        line(kIsobar, {{2, 310}}, {"chkEndToBegin", "optPhase_1"});
        const std::vector<int> upper = legs;
        line(kIsenthalpic, {{1, kHigh}, {3, kLow}}, {"optHomoHetero_1", "optTp_0", "optPhase_0"});
        const int throttle = legs.back();
        legs = upper;
        straight(first(throttle));
        legs.push_back(throttle);
        straight(first(legs.front()));
        EXPECT_EQ(legs.size(), 5U);
        expectClosed("code " + std::to_string(code));
        picture("refrigeration", code);
        choose("mnuHaupt");
        drive::settle();
    }
}

}  // namespace
