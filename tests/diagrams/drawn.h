#pragma once

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "diagrams/curve.h"
#include "diagrams/diagram_request.h"

using namespace quor;

/// Status and message of a curve, by the numbers of JSON.
struct Outcome {
    int status = 0;
    std::string message;
};

/// A curve as a view would draw it, for tests.
struct Drawn {
    diagrams::DiagramRequest request;
    diagrams::CurvePoints all;
    Outcome result;
    diagrams::Parameter parameter = diagrams::Parameter::none;
    std::optional<diagrams::TieLine> tie_line;
    std::optional<diagrams::ProcessState> last_state;
    std::optional<double> T_of_maximum;

    void take(diagrams::Curve curve) {
        all = std::move(curve.points);
        result = {static_cast<int>(curve.status), curve.message};
        parameter = curve.parameter;
        tie_line = curve.tie_line;
        last_state = curve.last;
        T_of_maximum = curve.T_of_maximum;
    }

    std::span<const diagrams::CurvePoint> points() const& { return all; }
    /// A copy, so that a loop over the points of a temporary holds them.
    std::vector<diagrams::CurvePoint> points() && { return std::move(all); }
    std::size_t count() const { return all.size(); }
    /// The n-th point, counted from 1.
    const diagrams::CurvePoint& nth(std::size_t n) const { return all.at(n - 1); }
    const diagrams::CurvePoint& first() const { return all.at(0); }
    const diagrams::CurvePoint& last() const { return all.back(); }
    int mark() const { return diagrams::mark_of(parameter); }
};
