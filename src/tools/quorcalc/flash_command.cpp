#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "models/flash.h"
#include "models/reference_state.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

using models::Property;

constexpr std::string_view kWanted =
    "--given is two of T, p, v, rho, h, s, u, x with their values, as h=-2000,s=-90";

/// "rho" is v by the molar mass.
models::GivenValue given_value(std::string_view name, double value, double M) {
    constexpr std::pair<std::string_view, Property> kNames[] = {
        {"T", Property::T}, {"p", Property::p}, {"v", Property::v}, {"h", Property::h},
        {"s", Property::s}, {"u", Property::u}, {"x", Property::x}};
    for (const auto& [known, property] : kNames)
        if (name == known) return {property, value};
    if (name != "rho") throw WrongCall{std::string(kWanted)};
    if (!(value > 0)) throw WrongCall{"--given: rho has to be > 0"};
    if (!(M > 0)) throw CannotBeDone{"rho needs a molar mass"};
    return {Property::v, M / value};
}

std::pair<models::GivenValue, models::GivenValue> given(const Call& call, const Arguments& a) {
    const auto M = static_cast<double>(call.session->substance.M);
    const std::vector<std::string> parts = text::split(a.given, ',');
    if (parts.size() != 2) throw WrongCall{std::string(kWanted)};
    const auto read = [&](const std::string& part) {
        const std::size_t mark = part.find('=');
        if (mark == std::string::npos) throw WrongCall{std::string(kWanted)};
        const std::string name = text::trim(part.substr(0, mark));
        const auto value = numbers::number(part.substr(mark + 1));
        if (!value) throw WrongCall{"--given: not a number: " + part};
        return given_value(name, *value, M);
    };
    return {read(parts[0]), read(parts[1])};
}

Json phase(const models::FlashPart& part, double M) {
    Json result = {{"v", number(part.v)}, {"rho", number(M / part.v)}};
    const auto& z = part.values;
    const auto add = [&](const char* key, double models::StateValues::*value) {
        result[key] = z ? number((*z).*value) : Json();
    };
    add("h", &models::StateValues::h);
    add("u", &models::StateValues::u);
    add("s", &models::StateValues::s);
    add("g", &models::StateValues::g);
    add("a", &models::StateValues::a);
    add("cp", &models::StateValues::cp);
    add("cv", &models::StateValues::cv);
    add("w", &models::StateValues::w);
    return result;
}

Json flash(Call& call, const Arguments& a) {
    set_up(call, a);
    const auto [first, second] = given(call, a);
    const auto M = static_cast<double>(call.session->substance.M);
    models::ReferenceState reference = session::present_reference(call.session);
    models::settle_reference(reference);
    const models::Fluid& fluid = call.session.fluid();
    const models::Flash find(fluid, reference, models::surroundings_state(fluid, reference));
    const auto choice = a.choice == "third"    ? models::FlashChoice::third
                        : a.choice == "second" ? models::FlashChoice::second
                                               : models::FlashChoice::first;
    const auto found = find(first, second, choice);
    if (!found) {
        using enum models::NoFlashReason;
        const models::NoFlashReason why = found.failure().reason;
        const std::string words = models::words_of(found.failure());
        if (why == notANumber || why == sameProperty || why == notPositive ||
            why == outsideFraction)
            throw WrongCall{"--given: " + words};
        throw CannotBeDone{words};
    }
    const models::FlashState& z = *found;
    Json result = {{"status", 0},
                   {"T", number(z.T)},
                   {"p", number(z.p)},
                   {"v", number(z.v)},
                   {"rho", number(M / z.v)},
                   {"phase", models::name_of(z.phase)},
                   {"x", z.x ? number(*z.x) : Json()}};
    const auto add = [&](const char* key, const auto& values, auto member) {
        result[key] = values ? number((*values).*member) : Json();
    };
    add("h", z.values, &models::FlashValues::h);
    add("u", z.values, &models::FlashValues::u);
    add("s", z.values, &models::FlashValues::s);
    add("g", z.values, &models::FlashValues::g);
    add("a", z.values, &models::FlashValues::a);
    add("cp", z.single, &models::StateValues::cp);
    add("cv", z.single, &models::StateValues::cv);
    add("w", z.single, &models::StateValues::w);
    result["L"] = z.L ? phase(*z.L, M) : Json();
    result["V"] = z.V ? phase(*z.V, M) : Json();
    result["answers"] = z.answers;
    result["answer"] = z.answer + 1;
    result["belowTriple"] = z.below_triple;
    result["deviation"] = z.cp_deviation;
    return result;
}

}  // namespace

std::vector<Command> flash_commands() {
    return {{"flash",
             "the stable state with any two of T, p, v, rho, h, s, u and the vapour fraction x",
             {"given!", "choice"},
             flash,
             nullptr,
             false,
             true}};
}

}  // namespace quor::quorcalc
