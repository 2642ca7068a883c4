#include <algorithm>
#include <array>

#include "diagrams/state_chart.h"

namespace quor::diagrams {

namespace {

using enum ChartQuantity;

constexpr std::array kOfLogph = {T, s, v};
constexpr std::array kOfTs = {p, v, h};
constexpr std::array kPAndT = {p, T};
constexpr std::array kOfPv = {T, h, s};
constexpr std::array kOnlyT = {T};
constexpr std::array kOfTv = {p, h, s};
constexpr std::array kOfPt = {v, h, s};
constexpr std::array kOnlyP = {p};

constexpr std::array<StateChartKind, 10> kKinds = {{
    {ChartKind::logph, "logph", "log p, h", {h, false}, {p, true}, kOfLogph},
    {ChartKind::ts, "ts", "T, s", {s, false}, {T, false}, kOfTs},
    {ChartKind::hs, "hs", "h, s", {s, false}, {h, false}, kPAndT},
    {ChartKind::pv, "pv", "p, v", {v, false}, {p, false}, kOfPv},
    {ChartKind::logpv, "logpv", "log p, log v", {v, true}, {p, true}, kOnlyT},
    {ChartKind::tv, "tv", "T, log v", {v, true}, {T, false}, kOfTv},
    {ChartKind::pt, "pt", "p, T", {T, false}, {p, false}, kOfPt},
    {ChartKind::th, "th", "T, h", {h, false}, {T, false}, kOnlyP},
    {ChartKind::zp, "zp", "Z, p", {p, false}, {Z, false}, kOnlyT},
    {ChartKind::eh, "eh", "Exergy, h", {h, false}, {e, false}, kPAndT},
}};

}  // namespace

std::string_view name_of(ChartQuantity quantity) {
    constexpr std::array<std::string_view, 7> kNames = {"T", "p", "v", "h", "s", "Z", "e"};
    return kNames[static_cast<std::size_t>(quantity)];
}

std::optional<models::Dimension> dimension_of(ChartQuantity quantity) {
    switch (quantity) {
        case T:
            return models::Dimension::temperature;
        case p:
            return models::Dimension::pressure;
        case v:
            return models::Dimension::volume;
        case s:
            return models::Dimension::entropy;
        case h:
        case e:
            return models::Dimension::energy;
        case Z:
            break;
    }
    return std::nullopt;
}

std::span<const StateChartKind> state_chart_kinds() {
    return kKinds;
}

const StateChartKind& row_of(ChartKind kind) {
    return kKinds[static_cast<std::size_t>(kind)];
}

const StateChartKind* find_state_chart(std::string_view key) {
    const auto* const found = std::ranges::find(kKinds, key, &StateChartKind::key);
    return found == kKinds.end() ? nullptr : found;
}

}  // namespace quor::diagrams
