#pragma once

#include <string>

#include "app/menu_graph_rows.h"
#include "diagrams/active_fluid.h"
#include "diagrams/catalogue.h"
#include "diagrams/coordinates.h"
#include "diagrams/diagram_sheet.h"

using namespace quor;

/// A diagram sheet of propane by Peng and Robinson, as the menu opens it.
class Sheet : public ActiveFluid {
  protected:
    Sheet() { activate("Propane"); }

    /// Opens the row of a code.
    void open(std::int16_t code) {
        for (const menu::Row& row : menu::graph_rows()) {
            if (row.action != "Diagram2D" || row.code != code) continue;
            diagrams::DiagramRequest request;
            request.DiagramType = code;
            request.sectionKind = row.sectionKind;
            request.axisPair = row.axisPair;
            Module9::fill_diagram_window(legacy::the_coordinates, request);
            Module9::FillTexts(request);
            Module9::open_sheet(sheet, request);
            return;
        }
        FAIL() << "no row of code " << code;
    }

    /// A curve with points on the line y = 2 x.
    static diagrams::CurvePointArray line(int points, float z = 0, float mark = 0) {
        diagrams::CurvePointArray all(1);
        for (int i = 1; i <= points; ++i)
            all.push_back({static_cast<float>(i), 2.0F * static_cast<float>(i), z});
        all[0] = {static_cast<float>(points), 0, mark};
        return all;
    }

    const chart::Series& curve(int slot) const {
        return sheet.chart.curves.at(static_cast<std::size_t>(slot));
    }
    bool hasMessage(const std::string& text) const {
        for (const dialogs::Message& m : user.messages)
            if (m.text == text) return true;
        return false;
    }

    Module9::DiagramSheet sheet;
};
