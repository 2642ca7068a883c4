#include "report/batch_list.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "calculation/calculate.h"
#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/progress.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "models/model_tables.h"
#include "report/function_values.h"
#include "report/quantity_text.h"
#include "report/reference_lines.h"

namespace quor::report {

using calculation::BatchDataSet;
using calculation::Task;
using constants::kPresent;

namespace {

using Values = std::array<double, kQuantities>;

/// A column of the list.
struct Column {
    const char* head;
    const char* unit;  ///< as long as no quantity has a unit of its own
    std::size_t width;
};

/// What the quantities of the columns are measured in.
constexpr std::array kDimensions = {Dimension::temperature, Dimension::pressure, Dimension::density,
                                    Dimension::density, Dimension::energy};
constexpr std::size_t kFirstMeasured = 1, kFirstCalculated = 7;

/// The quantity of a column with a unit; none of the others.
std::optional<std::size_t> quantity_of(std::size_t column) {
    for (const std::size_t first : {kFirstMeasured, kFirstCalculated})
        if (column >= first && column < first + kQuantities) return column - first;
    return std::nullopt;
}

constexpr std::array<Column, 17> kColumns = {{
    {"#", "", 5},
    {"T(exp)", "K", 11},
    {"p(exp)", "kPa", 13},
    {"rhoV(exp)", "kg/m^3", 13},
    {"rhoL(exp)", "kg/m^3", 13},
    {"delta(LV)h(exp)", "kJ/kmol", 17},
    {"phase", "", 7},
    {"T(calc)", "K", 11},
    {"p(calc)", "kPa", 13},
    {"rhoV(calc)", "kg/m^3", 13},
    {"rhoL(calc)", "kg/m^3", 13},
    {"delta(LV)h(calc)", "kJ/kmol", 18},
    {"delta T", "-", 15},
    {"delta p", "-", 15},
    {"delta rhoV", "-", 15},
    {"delta rhoL", "-", 15},
    {"delta(LV)h", "-", 15},
}};
constexpr std::size_t kFirstDeviation = kColumns.size() - kQuantities;

std::size_t width_of_columns(std::size_t count) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < count; ++i) width += kColumns[i].width;
    return width;
}

std::string rule() {
    return std::string(width_of_columns(kColumns.size()), '=');
}

using Cells = std::array<std::string, kColumns.size()>;

std::string row_of(const Cells& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
        line += text::pad_left(cells[i], kColumns[i].width);
    return text::trim_right(line);
}

/// A value that has come through 32 bits, or nothing for 0.
std::string number_or_blank(const models::Units& units, Dimension dimension, double value) {
    if (!(std::fabs(value) > 0)) return {};
    const auto single = static_cast<float>(value);
    return numbers::general_point(static_cast<float>(shown(units, dimension, digits_of(single))));
}

Values experimental_values(const BatchDataSet& set) {
    return {set.T, set.p, static_cast<double>(set.rhoV), static_cast<double>(set.rhoL),
            static_cast<double>(set.hLV)};
}

/// True for what the calculation kind takes as given: it is not compared with itself.
bool is_given(Task task, std::size_t quantity) {
    const unsigned asks = asks_of(task);
    switch (quantity) {
        case kT:
            return (asks & calculation::kAsksT) != 0;
        case kP:
            return (asks & calculation::kAsksP) != 0;
        case kRhoV:
            return (asks & calculation::kAsksRho) != 0 && task != Task::pressureOfLiquid;
        case kRhoL:
            return task == Task::pressureOfLiquid;
        default:
            return false;
    }
}

Values calculated_values(Task task, const ResultRecord& r) {
    Values values = {static_cast<double>(r.T), static_cast<double>(r.p),
                     static_cast<double>(r.rhoV), static_cast<double>(r.rhoL),
                     static_cast<double>(r.hLV)};
    for (std::size_t i = 0; i < kQuantities; ++i)
        if (is_given(task, i)) values[i] = 0.0;
    return values;
}

// ---- Head -------------------------------------------------------------------------------------

/// Texts of the head that differ between the forms.
struct HeadTexts {
    const char* title;
    const char* substance;
    const char* calculation;
    const char* by_eos;
    const char* model;
    const char* equation;
    const char* count;
    const char* file;
};

constexpr HeadTexts kFileTexts = {
    "QUOR Results of Calculation", "Substance            : ",
    "Calculation          : ",     "Enthalpy of Vaporization (using EOS)",
    "model                : ",     "Vapour Pressure Equation: ",
    "Number of Data Sets  : ",     "Name of Batchfile    : "};

constexpr HeadTexts kPrintTexts = {"QUOR: Results of Calculation",
                                   "Substance: ",
                                   "Calculation: ",
                                   "Enthalpy of Vaporization del(LV)h calc. using EOS",
                                   "Model: ",
                                   "Vapour Press. Equation: ",
                                   "Number of Data Sets: ",
                                   "Name Batchfile: "};

const HeadTexts& head_texts(ListForm form) {
    return form == ListForm::File ? kFileTexts : kPrintTexts;
}

std::string note_on_calculation(const HeadTexts& texts, const Comparison& c) {
    if (!is_equilibrium(c.task)) return {};
    if (c.method.global) return std::string(" ") + texts.by_eos;
    return c.method.liquid_by_benson ? " (BENSON's method)" : "";
}

bool shows_functions(const Comparison& c, bool extended) {
    return c.task == Task::functions || (extended && c.pages.tables());
}

void add_head(std::vector<std::string>& lines, const Comparison& c, const std::string& title,
              bool extended, ListForm form) {
    const HeadTexts& texts = head_texts(form);
    const models::ModelSelection& models = c.made.fluid.models();
    lines.emplace_back(texts.title);
    lines.emplace_back();
    lines.push_back(texts.substance + c.made.fluid.substance().name);
    lines.push_back(texts.calculation + text::trim(title) + note_on_calculation(texts, c));
    lines.push_back(texts.model + text::trim(models::eos_name(models.eos)));
    lines.push_back(texts.equation + text::trim(models::vp_name(models.vapour_pressure)));
    lines.push_back(texts.count + std::to_string(c.sets.size()));
    lines.push_back(texts.file + c.file);
    if (!shows_functions(c, extended)) return;
    for (std::string& line : reference_lines(c.made, true, Numbers::Point))
        lines.push_back(std::move(line));
}

void add_column_heads(std::vector<std::string>& lines, const models::Units& units) {
    Cells heads, names;
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        const auto quantity = quantity_of(i);
        heads[i] = kColumns[i].head;
        names[i] = quantity ? unit_name(units, kDimensions[*quantity]) : kColumns[i].unit;
    }
    lines.push_back(rule());
    lines.push_back(row_of(heads));
    lines.push_back(row_of(names));
    lines.push_back(rule());
}

// ---- Rows -------------------------------------------------------------------------------------

void add_row(ResultList& list, const models::Units& units, Task task, std::size_t index,
             const BatchDataSet& set, const ResultRecord& record) {
    constexpr float kLargest = 500.0F;
    const Values measured = experimental_values(set);
    const Values calculated = calculated_values(task, record);
    Cells cells;
    cells[0] = std::to_string(index);
    cells[6] = record.phases;
    for (std::size_t i = 0; i < kQuantities; ++i) {
        cells[kFirstMeasured + i] = number_or_blank(units, kDimensions[i], measured[i]);
        cells[kFirstCalculated + i] = number_or_blank(units, kDimensions[i], calculated[i]);
        const auto deviation = relative_deviation(calculated[i], measured[i]);
        if (!deviation) continue;
        cells[kFirstDeviation + i] = deviation_text(*deviation);
        if (!(std::fabs(*deviation) < kLargest)) continue;
        list.means[i].sum += static_cast<double>(std::fabs(*deviation));
        ++list.means[i].count;
    }
    list.lines.push_back(row_of(cells));
}

/// A line of mode 8 below the row of its data set.
struct FunctionLine {
    const char* label;
    calculation::Function function;
};
constexpr FunctionLine kFunctionLines[] = {
    {" Enthalpy        h/kJ/kmol     =", calculation::kH},
    {" Entropy         s/kJ/(kmol*K) =", calculation::kS},
    {" Gibbs Function   g/kJ/kmol     =", calculation::kG},
    {" Exergy of H     e/kJ/kmol     =", calculation::kExergyH},
    {" Exergy of U     e/kJ/kmol     =", calculation::kExergyU}};

/// A label with the unit that stands in it, "h/BTU/lb", in the width of the told one.
std::string function_label(const models::Units& units, const FunctionLine& line) {
    const std::string told = line.label;
    if (!has_own_units(units)) return told;
    const std::string symbol = told.substr(0, told.find('/') + 1);
    const std::string label = symbol + unit_name(units, dimension_of(line.function));
    return text::pad_right(label, std::max(label.size(), told.size() - 1)) + "=";
}

void add_functions(std::vector<std::string>& lines, const models::Units& units,
                   const ResultRecord& record) {
    constexpr std::size_t kLabel = 33, kNumber = 16;
    const auto value = [&](const PhaseRecord& phase, calculation::Function function,
                           const char* mark) {
        const std::optional<double>& z = phase.caloric[function];
        if (!z) return std::string();
        const auto single = static_cast<float>(shown(units, dimension_of(function), *z));
        return text::pad_left(numbers::general_point(single), kNumber) + mark;
    };
    for (const FunctionLine& line : kFunctionLines)
        lines.push_back(text::pad_right(function_label(units, line), kLabel) +
                        value(record.liquid, line.function, " (L)") +
                        value(record.vapour, line.function, " (V)"));
}

void add_means(ResultList& list) {
    const std::string title = "arithmet. mean of ABS(%-deviations):";
    std::string line = text::pad_right(title, width_of_columns(kFirstDeviation));
    for (std::size_t i = 0; i < kQuantities; ++i) {
        const auto mean = list.means[i].value();
        line += text::pad_left(mean ? numbers::format_point(*mean, "###0.00") + "%" : std::string(),
                               kColumns[kFirstDeviation + i].width);
    }
    list.lines.push_back(rule());
    list.lines.push_back(text::trim_right(line));
}

// ---- Extended part ----------------------------------------------------------------------------

/// Label of a function; files have no superscripts.
std::string function_label(int index, ListForm form) {
    if (form == ListForm::File) {
        switch (index) {
            case 9:
                return "       d2p/dV2";
            case 12:
                return "       d2V/dT2";
            case 13:
                return "       d2T/dV2";
            case 16:
                return "  d2ln phi/dT2";
            default:
                break;
        }
    }
    return std::string(models::function_label(index));
}

std::string phase_row(const std::string& label, const std::string& L, const std::string& V,
                      std::size_t width) {
    constexpr std::size_t kNumber = 20;
    return text::trim_right(text::pad_right(label, width) + text::pad_left(L, kNumber) +
                            text::pad_left(V, kNumber));
}

std::string volume_text(const models::Units& units, float M, float rho) {
    if (!(rho > 0)) return {};
    const double v = shown(units, Dimension::volume, static_cast<double>(M / rho));
    return numbers::general_point(static_cast<float>(v));
}

/// A row of the extended part: its label and what its values are multiplied with.
struct ExtendedRow {
    std::string label;
    double factor = 1;
};

ExtendedRow extended_row(const models::Units& units, int index, ListForm form) {
    constexpr int kCv = 22, kCp = 23;
    const std::string told = function_label(index, form);
    if (told.empty() || !has_own_units(units)) return {told, 1};
    std::string symbol = text::trim(told);
    if (index == kCv || index == kCp)
        return {symbol.substr(0, symbol.find('/')) + ", " + unit_name(units, Dimension::entropy),
                units.of(Dimension::entropy).factor};
    const DerivedUnit& derived = derived_unit(index);
    const std::string unit = name_of(units, derived);
    symbol.resize(std::min(symbol.find("/(1/"), symbol.size()));
    return {unit.empty() ? symbol : symbol + ", " + unit, factor_of(units, derived)};
}

void add_extended(std::vector<std::string>& lines, const models::Units& units, float M,
                  std::size_t index, const BatchDataSet& set, const ResultRecord& record,
                  ListForm form) {
    constexpr int kLabels = 24;
    const std::size_t label_width = has_own_units(units) ? 31 : 14;
    const bool file = form == ListForm::File;
    const double T = record.T > 0 ? static_cast<double>(record.T) : set.T;
    const auto row = [&](const std::string& label, const std::string& L, const std::string& V) {
        return phase_row(label, L, V, label_width + 3);
    };
    const auto value = [](float rho, const PhaseRecord& phase, int i, double factor) {
        return rho > 0 ? numbers::format_point(phase.extended[static_cast<std::size_t>(i)] * factor,
                                               " 0.0000E+00;-0.0000E+00")
                       : std::string();
    };
    lines.emplace_back();
    lines.emplace_back("T -, p -, v - derivatives and thermodynamic functions");
    lines.push_back("for data set " + std::to_string(index));
    lines.push_back("T/" + unit_name(units, Dimension::temperature) + " = " +
                    number_or_blank(units, Dimension::temperature, T));
    lines.push_back("p/" + unit_name(units, Dimension::pressure) + " = " +
                    number_or_blank(units, Dimension::pressure, static_cast<double>(record.p)));
    lines.push_back(row("", file ? "L-phase" : "L", file ? "V-phase" : "V"));
    lines.push_back(row("v/" + unit_name(units, Dimension::volume) + " =",
                        volume_text(units, M, record.rhoL), volume_text(units, M, record.rhoV)));
    for (int i = 0; i < kLabels; ++i) {
        const ExtendedRow extended = extended_row(units, i, form);
        if (extended.label.empty()) continue;
        lines.push_back(row(
            text::pad_right(extended.label, std::max(label_width, text::length(extended.label))) +
                " : ",
            value(record.rhoL, record.liquid, i, extended.factor),
            value(record.rhoV, record.vapour, i, extended.factor)));
    }
}

// ---- Running through the data -----------------------------------------------------------------

/// A message only once: thousands of data sets may all have the same trouble.
class EachMessageOnce {
  public:
    explicit EachMessageOnce(std::vector<dialogs::Message>& told) : told_(told) {}
    void operator()(std::vector<dialogs::Message> messages) {
        for (dialogs::Message& message : messages)
            if (seen_.insert(message.text).second) told_.push_back(std::move(message));
    }
    void fault(const char* reason) {
        (*this)({{.text = reason, .title = "WARNING", .icon = dialogs::Icon::Exclamation}});
    }

  private:
    std::vector<dialogs::Message>& told_;
    std::set<std::string> seen_;
};

ResultRecord calculate_set(const calculation::Calculator& calculator,
                           const calculation::Request& request, EachMessageOnce& tell) {
    const calculation::Answer answer = calculator(request);
    tell(messages(answer, calculator.fluid().substance(), Tell::necessary));
    try {
        return record_of(answer);
    } catch (const faults::Fault& fault) {
        tell.fault(fault.what());
        return {};
    }
}

template <class Visit>
void for_each_result(const Comparison& c, Visit visit) {
    const std::size_t count = std::min(c.sets.size(), c.results.size());
    for (std::size_t i = 0; i < count; ++i)
        if (c.results[i].phases != "   ") visit(i + 1, c.sets[i], c.results[i]);
}

}  // namespace

std::optional<float> relative_deviation(double calculated, double experimental) {
    if (!(calculated > kPresent) || !(experimental > kPresent)) return std::nullopt;
    const double deviation = (calculated / experimental - 1.0) * 100.0;
    constexpr double kLargest = 1e30;
    return static_cast<float>(std::min(deviation, kLargest));
}

std::string deviation_text(float deviation) {
    constexpr float kLargest = 500.0F;
    if (!(std::fabs(deviation) < kLargest)) return "(dev.> 500%!)";
    return std::string("(")
        .append(numbers::format_point(static_cast<double>(deviation), "####.##"))
        .append(" %)");
}

Comparison compare(const models::Fluid& fluid, const models::ReferenceState& reference,
                   const models::UnitChoice& units, const CalculationState& state,
                   std::span<const BatchDataSet> sets, const std::string& file) {
    Comparison c;
    c.task = state.task;
    c.method = state.method;
    c.pages = state.pages;
    c.file = file;
    c.sets.assign(sets.begin(), sets.end());
    c.results.resize(sets.size());
    EachMessageOnce tell(c.told);
    try {
        c.made = make_made(fluid, reference, units);
    } catch (const faults::Fault& fault) {
        tell.fault(fault.what());
        return c;
    }
    const calculation::Calculator calculator(fluid, c.made.reference);
    progress::Work work("Calculating");
    for (std::size_t i = 0; i < sets.size(); ++i) {
        work.at(static_cast<double>(i) / static_cast<double>(sets.size()));
        if (sets[i].skip == 0)
            c.results[i] = calculate_set(calculator, measured_request(state, sets[i]), tell);
    }
    return c;
}

ResultList make_result_list(const Comparison& c, const std::string& title, bool extended,
                            ListForm form) {
    ResultList list;
    add_head(list.lines, c, title, extended, form);
    // What has always been in K, kPa and kJ/kmol stays so without a unit of the user's choice.
    const models::Units units = listed_units(c.made.units);
    add_column_heads(list.lines, units);
    for_each_result(c, [&](std::size_t i, const BatchDataSet& set, const ResultRecord& record) {
        add_row(list, units, c.task, i, set, record);
        if (c.task == Task::functions) add_functions(list.lines, units, record);
    });
    add_means(list);
    if (extended && c.pages.tables())
        for_each_result(c, [&](std::size_t i, const BatchDataSet& set, const ResultRecord& record) {
            add_extended(list.lines, units, c.made.fluid.substance().M, i, set, record, form);
        });
    return list;
}

std::string printed_list(const Comparison& c, const std::string& title, bool extended) {
    std::string all;
    for (const std::string& line : make_result_list(c, title, extended, ListForm::Print).lines)
        all += line + '\n';
    return all;
}

std::string result_file_text(const Comparison& c, const std::string& title, bool extended) {
    return files::ansi_lines(make_result_list(c, title, extended, ListForm::File).lines);
}

std::string result_file_path(const std::string& name, const std::string& folder) {
    if (name.starts_with("LPT")) return name;
    return paths::target_path(name, folder, ".LST");
}

}  // namespace quor::report
