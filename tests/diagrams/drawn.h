#pragma once

#include <span>
#include <vector>

#include "diagrams/curve.h"
#include "legacy/declare.h"

using namespace quor;

/// A curve as a view would draw it, for tests.
struct Drawn {
    diagrams::DiagramRequest request;
    diagrams::CurvePointArray all;  ///< with the header
    diagrams::CurveResult result;

    std::span<const diagrams::CurvePoint> points() const& { return std::span(all).subspan(1); }
    /// A copy, so that a loop over the points of a temporary holds them.
    std::vector<diagrams::CurvePoint> points() && { return {all.begin() + 1, all.end()}; }
    std::size_t count() const { return all.size() - 1; }
    const diagrams::CurvePoint& first() const { return all.at(1); }
    const diagrams::CurvePoint& last() const { return all.back(); }
    float mark() const { return all.at(0).z; }
};

/// The state parameters of a curve.
struct Parameters {
    double T = 0, p = 0, v = 0;
};

/// The code of the diagram in which an added curve is drawn; its own code for all others.
std::int16_t DiagramOf(std::int16_t code);
/// Section kind of the diagram of a code as the menu sets it.
std::int16_t SectionKindOf(std::int16_t code);
/// Request with the default window of the diagram that shows the code.
diagrams::DiagramRequest RequestFor(std::int16_t code);

Drawn Draw(diagrams::DiagramRequest request, const Parameters& at);
Drawn Draw(std::int16_t code, const Parameters& at);

/// The header agrees with the points: their number, and y unused.
bool HeaderIsRight(const Drawn& curve);
