#pragma once

#include "chart/chart_file.h"
#include "gui/chart/chart2d_plot.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/frame_test.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

/// A frame with a fluid, in which 2D diagrams are opened by the menu.
class GraphTest : public FrameTest {
  protected:
    explicit GraphTest(const char* fluid = "Propane") {
        user.standing["Data not yet saved.\nSave now?"] = dialogs::Answer::No;
        databases::Write(folder() / "STUDENT.Q05", {databases::Row(fluid)});
        start();
        openSubstance(fluid);
    }

    DiagramWindow* window() const { return desk.lastUsed<DiagramWindow>(); }
    diagrams::DiagramSheet& sheet() const { return window()->sheet(); }
    const chart::Series& curve(int slot) const {
        return sheet().chart.curves.at(static_cast<std::size_t>(slot));
    }
    chart::Chart2DWidget* canvas() const { return window()->findChild<chart::Chart2DWidget*>(); }
    /// The widget that takes the mouse.
    QWidget* surface() const { return canvas()->findChild<chart::Chart2DPlot*>(); }

    /// Opens p-v with an isotherm drawn.
    void openIsotherm(const QString& T = "300") {
        drive::when("frmTpVSInputBox", [T] {
            drive::type("rText", T);
            drive::click("cmdOKAndDraw");
        });
        drive::choose("mnuGraf_sub_cut_1");
    }
    void drawAt(const QString& T) {
        drive::when("frmTpVSInputBox", [T] {
            drive::type("rText", T);
            drive::click("cmdOKAndDraw");
        });
        drive::click("cmdParameter");
    }
};
