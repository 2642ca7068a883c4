#pragma once

#include <string>
#include <vector>

#include "gui/data/editor_views.h"
#include "gui/editor_drive.h"
#include "gui/estimation/estimation_views.h"
#include "gui/estimation/fit_view.h"
#include "gui/frame_test.h"
#include "session/xy_session.h"
#include "support/fluids.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

/// Name of a control in an array, and its number.
inline QString indexed(const char* name, int i) {
    return QString("%1_%2").arg(name).arg(i);
}

inline double number(const QString& name) {
    return drive::read(name).toDouble();
}

/// The view of fits on benzene, with the editors that it takes its points from.
class Fitting : public ViewTest {
  protected:
    Fitting() {
        setSubstance(fluids::Row("Benzene"));
        editor_views::install(desk);
        estimation_views::install(desk);
        desk.doors.editMeasuredData = {};
    }

    /// The fit of the open view.
    static const estimation::FitState& state() {
        return drive::get<FitView>("frmQFitting")->state();
    }
    void setSubstance(const models::SubstanceRecord& substance) {
        session.change()->substance = substance;
    }
    const models::SubstanceRecord& substance() const { return session->substance; }
    /// The points of the XY editor.
    const std::vector<datafiles::FitPoint>& points() const { return session->xy.points; }
    void sample(const std::string& name) {
        ASSERT_TRUE(session::load_xy(session, std::string(QUOR_SOURCE_DATA) + "/samples/" + name));
    }
    void open() {
        change([](auto& s) { s.fit_source = session::FitSource::xyList; });
        desk.doors.fit();
        drive::settle();
    }
    static void choose(const QString& page, int model) {
        drive::tab("SSTab1", page);
        drive::click(indexed("optFit", model));
    }
    /// Points of a function at equal distances.
    template <class Function>
    void usePoints(int n, double from, double to, Function f) {
        std::vector<datafiles::FitPoint> all;
        for (int i = 0; i < n; ++i) {
            const double x = from + (to - from) * i / (n - 1);
            all.push_back({static_cast<float>(x), static_cast<float>(f(x)), 0});
        }
        session.change()->xy.points = std::move(all);
    }
};
