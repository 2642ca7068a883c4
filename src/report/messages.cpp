#include "report/messages.h"

#include "common/numbers.h"

namespace quor::report {

using calculation::Note;
using calculation::Reason;

namespace {

constexpr auto kTriplePoint = "T < T(TP) (Triple Point)";

dialogs::Message box(std::string text, std::string title) {
    return {.text = std::move(text), .title = std::move(title), .icon = dialogs::Icon::Exclamation};
}

std::string limits(const calculation::Range& range) {
    return std::to_string(range.T_low) + "..." + std::to_string(range.T_high);
}

dialogs::Message pressure_range(const char* beginning, std::int16_t deviation) {
    return box(beginning + numbers::format(deviation, "0") +
                   " K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)",
               "Warning concerning vapour pressure equation");
}

dialogs::Message box_of(const Note& note) {
    switch (note.kind) {
        case Note::Kind::belowTriplePoint:
            return box(kTriplePoint, "Remark");
        case Note::Kind::tankBelowTriplePoint:
            return box(kTriplePoint, "WARNING");
        case Note::Kind::pressureRange:
            return pressure_range(" temperature", note.deviation);
        case Note::Kind::temperatureRange:
            return pressure_range("Temperature ", note.deviation);
        case Note::Kind::densityRange:
            return box(" temperature" + std::to_string(note.deviation) +
                           " K outside parameter validity\n"
                           "(for temperature range cf. window \"Models\")",
                       "Warning concerning the equation rho_L = Fu(T)");
        case Note::Kind::vaporisationRange:
            return box("Temperature " + std::to_string(note.deviation) +
                           " K outside parameter validity\n"
                           "(cf. Data/Parameters delta(LV)h = Fu(T))",
                       "Warning concerning equation delta(LV)h = Fu(T)");
        case Note::Kind::solidRange:
            return box(" Temperature" + std::to_string(note.deviation) +
                           " K outside T-range of the parameters\n(range of validity: " +
                           std::to_string(note.range.T_low) + " ... " +
                           std::to_string(note.range.T_high) + ")",
                       "Warning concerning the function rho(S) = Fu(T)");
        case Note::Kind::databaseRange:
            break;
    }
    return box(
        "T more than 10 K outside the T-limits of the equation\n(T/K = " + limits(note.range) + ")",
        "WARNING");
}

bool is_told(const Note& note, Tell tell) {
    switch (note.kind) {
        case Note::Kind::databaseRange:
        case Note::Kind::solidRange:
            return true;
        case Note::Kind::tankBelowTriplePoint:
            return tell != Tell::remarks;
        default:
            return tell != Tell::necessary;
    }
}

}  // namespace

std::vector<dialogs::Message> messages(const calculation::Answer& answer,
                                       const models::SubstanceRecord& substance, Tell tell) {
    std::vector<dialogs::Message> all;
    for (const Note& note : answer.notes)
        if (is_told(note, tell)) all.push_back(box_of(note));
    if (answer.reason == Reason::noDatabaseValue)
        all.push_back(box("calculation error occured", dialogs::kNotPossible));
    if (answer.reason == Reason::beyondEquation)
        all.push_back(box("T > T(cr) of the equation delta(LV)h = Fu(T)\n(T(cr)/K = " +
                              numbers::general(substance.hLV_Tc) + ")",
                          dialogs::kNotPossible));
    if (answer.reason == Reason::tankAboveCritical)
        all.push_back(
            box("\"Partial Calculation\" - usable only for phase equilibria (T < T(cr))\n"
                "(T(cr)/K =" +
                    numbers::general(substance.Tcrit) + ")",
                dialogs::kNotPossible));
    if (answer.reason == Reason::arithmetic) all.push_back(box(answer.fault, "WARNING"));
    return all;
}

void show(const std::vector<dialogs::Message>& messages) {
    for (const dialogs::Message& message : messages) dialogs::show(message);
}

}  // namespace quor::report
