#pragma once

#include <string>

namespace quor::calculation {

/// What `PartialChoiceDialog` shows and allows: the choice of a global or a partial calculation, of
/// the source of the L density, and of the second reference point of Benson's method.
struct PartialChoice {
    std::string title;
    std::string GlobalSit;  ///< the situation in words

    bool choicesVisible = true;    ///< all choice controls; without them only the text is shown
    bool cancelEnabled = true;     ///< `ESC`
    bool modeFrameVisible = true;  ///< frame "Mode of Calculation"
    int globalIndex = 0;           ///< `opt_glob`: 0 global, 1 partial
    bool globalEnabled = true;     ///< `opt_glob`(0)

    bool densityFrameVisible = false;  ///< frame of `optPartialBenson`
    int densityIndex = 0;              ///< 0 Benson's method, 1 database equation
    bool databaseEnabled = false;      ///< `optPartialBenson`(1)
    std::string databaseRange;         ///< where the database equation is valid
    std::string lblRhoLimits;

    bool referenceFrameVisible = false;
    int referenceIndex = 0;     ///< `Ref_opt`
    bool inputEnabled = false;  ///< `RefInput`
    std::string RefVorschlag;   ///< the reference point in words

    bool forDiagram = false;  ///< a diagram asked for the choice, not a calculation
};

/// The view as it opens. Resets the reference point and takes the proposed one. `forDiagram` when
/// the current diagram waits for the choice.
PartialChoice open_partial_choice(bool forDiagram = false);

/// `opt_glob` click; a V-only EOS refuses the global calculation.
void choose_global(PartialChoice& choice, int index);
/// `optPartialBenson` click.
void choose_density(PartialChoice& choice, int index);
/// `Ref_opt` click.
void ChooseReference(PartialChoice& choice, int index);

/// True when the four values of the second reference point are given.
bool is_benson_reference_given();

/// `OK`, after the view has closed itself: goes on to the diagram, or to the result and the input
/// view.
void confirm_partial_choice(const PartialChoice& choice);

}  // namespace quor::calculation
