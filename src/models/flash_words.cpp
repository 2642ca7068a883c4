#include "common/numbers.h"
#include "models/flash.h"

/// What `flash` tells in words.
namespace quor::models {

std::string_view name_of(FlashPhase phase) {
    switch (phase) {
        case FlashPhase::liquid:
            return "liquid";
        case FlashPhase::vapour:
            return "vapour";
        case FlashPhase::supercritical:
            return "supercritical";
        case FlashPhase::twoPhases:
            return "two phases";
    }
    return {};
}

namespace {

std::string_view text_of(NoFlashReason reason) {
    using enum NoFlashReason;
    switch (reason) {
        case notANumber:
            return "A given value is not a finite number.";
        case sameProperty:
            return "Two different properties have to be given.";
        case notPositive:
            return "T, p and v have to be above 0.";
        case outsideFraction:
            return "The vapour fraction x has to be from 0 to 1.";
        case noEquation:
            return "There is no equation of state with usable constants.";
        case noHeatCapacity:
            return "There is no heat capacity of the ideal gas, which h, s and u need.";
        case noLiquid:
            return "The equation of state describes the vapour alone: there is no vapour fraction.";
        case aboveCritical:
            return "There is no saturation above the critical point.";
        case noSaturation:
            return "The equation of state has no saturated state there.";
        case belowCovolume:
            return "v is not above the smallest volume of the equation of state.";
        case onlyOfT:
            return "Of the ideal gas h and u depend on T alone: any p would do.";
        case noState:
            return "The equation of state has no state there.";
        case unstable:
            return "Beyond the range of the equation of state: its state there is not stable.";
        case noSolution:
            return "The equation of state has no state with both values";
        case noSuchAnswer:
            return "There is no further state with both values.";
    }
    return {};
}

}  // namespace

std::string words_of(const NoFlash& failure) {
    std::string text(text_of(failure.reason));
    if (failure.reason != NoFlashReason::noSolution) return text;
    if (failure.T_high > 0)
        text += " from " + numbers::format_point(failure.T_low, "###0.#") + " to " +
                numbers::format_point(failure.T_high, "###0.#") + " K";
    return text + ".";
}

}  // namespace quor::models
