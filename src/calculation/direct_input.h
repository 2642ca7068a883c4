#pragma once

#include <array>
#include <string>

namespace quor::calculation {

/// A field of `DirectInputView`.
struct InputField {
    bool visible = false;
    std::string label;
};

/// What `DirectInputView` shows in the present `InputSituation`.
struct DirectInput {
    std::string title;
    std::string command;               ///< caption of `cmdParameter_OK`
    std::array<InputField, 4> fields;  ///< `par` with its label `Bz`
    bool volumeFrameVisible = false;   ///< `fraRhoVInput`
    std::string volumeFrame;           ///< its text
    bool amountFrameVisible = false;   ///< `fram_n`
};

/// `amount` is true when the tank's content is typed in kmol.
DirectInput describe_direct_input(bool amount = false);

/// `optRhoV` click: 0 density, 1 volume.
void choose_volume_input(int index);

/// How an input ended.
enum class InputResult {
    Refused,          ///< a message says why; nothing has changed
    ReferenceStored,  ///< the view closes
    TankExit,         ///< the tank calculation was refused
    TankCalculated,   ///< the result view and the tank view open
    Calculated        ///< the result view comes to the front
};

/// `cmdParameter_OK` with the texts of the four fields. Checks, stores, and calculates.
InputResult accept_input(const std::array<std::string, 4>& texts, bool amount = false);

/// `CalcBatch` of the tank, with its results into the session. Returns the text that came back.
std::string CalculateTank();

/// `cancel`: closes the input and the result view.
void cancel_input();

}  // namespace quor::calculation
