#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quor::quorcalc {

/// The words of one call, as typed. What is not given stays empty; units are K, kPa, m^3/kmol,
/// kg/m^3, m^3, kg.
struct Arguments {
    std::string command;

    // Substance and models
    std::string db, substance, vp, units, priority;
    std::optional<int> eos, hlv, cp, refmode;
    std::optional<double> watson, href, sref, T0, p0, Tenv, penv;
    std::string in_units, out_units;  ///< of the numbers typed and told, see `models::read_choice`
    std::string refstate;             ///< a named reference state, see options.cpp
    std::string benson;               ///< T,p,rhoL,rhoV
    std::vector<std::string> set;     ///< FIELD=VALUE
    bool json = false;

    // What to calculate
    std::optional<double> T, p, v, rho, V, m, Tcr, pcr, Tb, fraction, from, to;
    std::optional<int> mode, page, nx, ny, points, model;
    std::string code, row, type, window, file, lst, start, fix, groups, liquid, png, svg, pdf,
        given, choice, kind, families;
    bool global = false, partial = false, uhs = false, scurve = false, tieline = false, log = false,
         lg = false, propose = false, points_out = false;
};

/// Reads calls. A parser is dear to make and may read any number of them.
class Parser {
  public:
    Parser();
    ~Parser();

    /// Reads the words of a call (without the program's name). A wrong call throws `WrongCall` with
    /// its message; a call for help throws `HelpAsked` with the text to print.
    Arguments parse(const std::vector<std::string>& words);

  private:
    class Reader;
    std::unique_ptr<Reader> reader_;
};

/// Substance, models, units and reference state of a call as one text: equal texts ask for the
/// very same.
std::string common_key(const Arguments& arguments);

/// The words of a line: separated by blanks, quoted where they hold blanks.
std::vector<std::string> split_line(const std::string& line);

struct WrongCall {
    std::string message;
};
struct HelpAsked {
    std::string text;
};

}  // namespace quor::quorcalc
