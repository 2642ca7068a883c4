#pragma once

#include <string>

#include "diagrams/active_fluid.h"
#include "diagrams/diagram_sheet.h"
#include "diagrams/prepare_2d.h"

using namespace quor;

/// A diagram sheet of propane by Peng and Robinson, as the menu opens it.
class Sheet : public ActiveFluid {
  protected:
    Sheet() { activate("Propane"); }

    /// Opens the diagram of a code, with the parameters that the sheet has now.
    void open(int code) { sheet = diagrams::open_sheet(RequestFor(code), basis(), sheet.at); }

    /// A curve with points on the line y = 2 x.
    static diagrams::NewCurve points_on_line(
        int points, float z = 0, diagrams::Parameter parameter = diagrams::Parameter::none) {
        diagrams::NewCurve curve;
        curve.parameter = parameter;
        for (int i = 1; i <= points; ++i)
            curve.points.push_back({static_cast<float>(i), 2.0F * static_cast<float>(i), z});
        return curve;
    }
    int store(diagrams::NewCurve curve) {
        return diagrams::store_curve(sheet, std::move(curve), sheet.request.window.x_max);
    }

    const chart::Series& curve(int place) const {
        return sheet.chart.curves.at(static_cast<std::size_t>(place));
    }
    const diagrams::SheetCurve& sheet_curve(int place) const {
        return sheet.curves.at(static_cast<std::size_t>(place));
    }
    chart::CurveLabel& label_of(int place) {
        return sheet.chart.curves.at(static_cast<std::size_t>(place)).label;
    }
    bool is_free(int place) const { return !diagrams::is_drawn(sheet, place); }
    /// Parameter of a point of a curve, counted from 1; 0 where none is kept.
    float parameter(int place, std::size_t point) const {
        const std::vector<float>& z = sheet_curve(place).z;
        return point >= 1 && point <= z.size() ? z[point - 1] : 0;
    }
    bool hasMessage(const std::string& text) const {
        for (const dialogs::Message& m : user.messages)
            if (m.text == text) return true;
        return false;
    }

    diagrams::DiagramSheet sheet;
};
