#pragma once

#include <string>

#include "diagrams/diagram.h"

namespace quor::diagrams {

/// What a sheet shows: a diagram with its window and its texts.
struct DiagramRequest {
    const Diagram* diagram = nullptr;  ///< nullptr: a sheet in which nothing is computed
    CurveWindow proposed{};            ///< the window as it was first proposed, displayed units
    CurveWindow window{};              ///< the window in which curves are computed
    DiagramTexts texts{};
    Validity validity{};  ///< of a function of the database, K

    Section section() const { return diagram != nullptr ? diagram->section : Section::none; }
};

}  // namespace quor::diagrams
