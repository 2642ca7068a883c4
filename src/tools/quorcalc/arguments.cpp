#include "tools/quorcalc/arguments.h"

#include <CLI/CLI.hpp>

#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

namespace {

/// Adds the option of a name to a subcommand.
CLI::Option* add_option(CLI::App& app, const std::string& name, Arguments& a) {
    const std::string flag = "--" + name;
    struct NumberOption {
        const char* name;
        std::optional<double> Arguments::*field;
        const char* help;
    };
    static constexpr NumberOption kNumbers[] = {
        {"T", &Arguments::T, "temperature, K"},
        {"p", &Arguments::p, "pressure, kPa"},
        {"v", &Arguments::v, "molar volume, m^3/kmol"},
        {"rho", &Arguments::rho, "density, kg/m^3"},
        {"V", &Arguments::V, "volume of a tank, m^3"},
        {"m", &Arguments::m, "mass in a tank, kg"},
        {"Tcr", &Arguments::Tcr, "critical temperature of a fit, K"},
        {"pcr", &Arguments::pcr, "critical pressure of a fit, kPa"},
        {"Tb", &Arguments::Tb, "normal boiling temperature, K"},
        {"fraction", &Arguments::fraction, "vapour fraction"},
    };
    struct WholeOption {
        const char* name;
        std::optional<int> Arguments::*field;
        const char* help;
    };
    static constexpr WholeOption kWhole[] = {
        {"mode", &Arguments::mode, "kind of calculation"},
        {"page", &Arguments::page, "extended result page, 1 to 4"},
        {"kind", &Arguments::kind, "kind of surface"},
        {"nx", &Arguments::nx, "mesh lines in x"},
        {"ny", &Arguments::ny, "mesh lines in y"},
        {"points", &Arguments::points, "points per curve"},
        {"model", &Arguments::model, "fit model"},
    };
    struct TextOption {
        const char* name;
        std::string Arguments::*field;
        const char* help;
    };
    static constexpr TextOption kTexts[] = {
        {"code", &Arguments::code, "vapour pressure equation, three letters"},
        {"row", &Arguments::row, "phase of the volume, V or L"},
        {"type", &Arguments::type, "code of the curve"},
        {"window", &Arguments::window, "xmin,xmax,ymin,ymax"},
        {"file", &Arguments::file, "data file"},
        {"lst", &Arguments::lst, "result list to write"},
        {"start", &Arguments::start, "start values a,b,.."},
        {"fix", &Arguments::fix, "numbers of fixed parameters i,j"},
        {"groups", &Arguments::groups, "\"-CH3=2,>CH-=1\""},
        {"liquid", &Arguments::liquid, "benson or rhoT"},
        {"png", &Arguments::png, "picture to write"},
        {"svg", &Arguments::svg, "picture to write"},
        {"pdf", &Arguments::pdf, "picture to write"},
    };
    struct FlagOption {
        const char* name;
        bool Arguments::*field;
        const char* help;
    };
    static constexpr FlagOption kFlags[] = {
        {"global", &Arguments::global, "both phases from the cubic EOS"},
        {"partial", &Arguments::partial, "L phase by Benson's method or rho(T)"},
        {"uhs", &Arguments::uhs, "u, h, s, g ... for the equilibrium"},
        {"scurve", &Arguments::scurve, "metastable branch"},
        {"tieline", &Arguments::tieline, "tie-line"},
        {"log", &Arguments::log, "differences of logarithms"},
        {"lg", &Arguments::lg, "decadic form of the equation"},
    };
    for (const NumberOption& o : kNumbers)
        if (name == o.name) return app.add_option(flag, a.*o.field, o.help);
    for (const WholeOption& o : kWhole)
        if (name == o.name) return app.add_option(flag, a.*o.field, o.help);
    for (const TextOption& o : kTexts)
        if (name == o.name) return app.add_option(flag, a.*o.field, o.help);
    for (const FlagOption& o : kFlags)
        if (name == o.name) return app.add_flag(flag, a.*o.field, o.help);
    return nullptr;
}

void add_common_options(CLI::App& app, Arguments& a) {
    app.add_option("--db", a.db, "database file (default: STUDENT.Q05 in the program's folder)");
    app.add_option("--substance", a.substance, "name, CASRN, or #number in the database");
    app.add_option("--eos", a.eos, "equation of state, 0 to 16");
    app.add_option("--vp", a.vp, "vapour pressure equation, three letters");
    app.add_option("--hlv", a.hlv, "method of the enthalpy of vaporisation, 1 to 7");
    app.add_option("--cp", a.cp, "ideal-gas cp: 1 polynomial, 2 sinh/cosh");
    app.add_option("--watson", a.watson, "Watson exponent");
    app.add_option("--priority", a.priority, "p(LV), T(LV) from: ceos or vp")
        ->check(CLI::IsMember({"ceos", "vp"}));
    app.add_option("--units", a.units, "units of the results")
        ->check(CLI::IsMember({"molar", "specific", "reduced"}));
    app.add_option("--refmode", a.refmode, "reference state: 1, 2 or 10")
        ->check(CLI::IsMember({1, 2, 10}));
    app.add_option("--href", a.href, "h(ref), kJ/kmol");
    app.add_option("--sref", a.sref, "s(ref), kJ/(kmol K)");
    app.add_option("--T0", a.T0, "reference temperature, K");
    app.add_option("--p0", a.p0, "reference pressure, kPa");
    app.add_option("--Tenv", a.Tenv, "temperature of the surroundings, K");
    app.add_option("--penv", a.penv, "pressure of the surroundings, kPa");
    app.add_option("--benson", a.benson, "second reference point T,p,rhoL,rhoV");
    app.add_option("--set", a.set, "FIELD=VALUE of the substance record, any number of times")
        ->take_all()
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    app.add_flag("--json", a.json, "one JSON object on standard output");
}

}  // namespace

Arguments Parse(std::vector<std::string> words) {
    Arguments a;
    CLI::App app("quorcalc: thermodynamic calculations of pure substances", "quorcalc");
    app.fallthrough();
    app.require_subcommand(1);
    add_common_options(app, a);
    for (const Command& c : commands()) {
        CLI::App* sub = app.add_subcommand(std::string(c.name), std::string(c.help));
        sub->final_callback([&a, name = std::string(c.name)] { a.command = name; });
        for (std::string_view option : c.options) {
            const bool needed = option.back() == '!';
            if (needed) option.remove_suffix(1);
            if (option == "FILE") {
                sub->add_option("FILE", a.file, "file of calls, - for standard input")->required();
                continue;
            }
            CLI::Option* added = add_option(*sub, std::string(option), a);
            if (added != nullptr && needed) added->required();
        }
    }
    try {
        std::reverse(words.begin(), words.end());
        app.parse(words);
    } catch (const CLI::CallForHelp&) {
        throw HelpAsked{app.help()};
    } catch (const CLI::CallForAllHelp&) {
        throw HelpAsked{app.help("", CLI::AppFormatMode::All)};
    } catch (const CLI::ParseError& e) {
        throw WrongCall{e.what()};
    }
    return a;
}

std::vector<std::string> split_line(const std::string& line) {
    std::vector<std::string> words;
    std::string word;
    bool any = false;
    char quote = '\0';
    for (const char c : line) {
        if (quote != '\0') {
            if (c == quote) {
                quote = '\0';
            } else {
                word += c;
            }
        } else if (c == '"' || c == '\'') {
            quote = c;
            any = true;
        } else if (c == ' ' || c == '\t' || c == '\r') {
            if (any || !word.empty()) words.push_back(word);
            word.clear();
            any = false;
        } else {
            word += c;
        }
    }
    if (any || !word.empty()) words.push_back(word);
    return words;
}

}  // namespace quor::quorcalc
