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
    const char* unit;
    std::size_t width;
};

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

std::string number_or_blank(double value) {
    return std::fabs(value) > 0 ? numbers::general_point(static_cast<float>(value)) : std::string();
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

void add_column_heads(std::vector<std::string>& lines) {
    Cells heads, units;
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        heads[i] = kColumns[i].head;
        units[i] = kColumns[i].unit;
    }
    lines.push_back(rule());
    lines.push_back(row_of(heads));
    lines.push_back(row_of(units));
    lines.push_back(rule());
}

// ---- Rows -------------------------------------------------------------------------------------

void add_row(ResultList& list, Task task, std::size_t index, const BatchDataSet& set,
             const ResultRecord& record) {
    constexpr float kLargest = 500.0F;
    const Values measured = experimental_values(set);
    const Values calculated = calculated_values(task, record);
    Cells cells;
    cells[0] = std::to_string(index);
    cells[6] = record.phases;
    for (std::size_t i = 0; i < kQuantities; ++i) {
        cells[1 + i] = number_or_blank(measured[i]);
        cells[7 + i] = number_or_blank(calculated[i]);
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

void add_functions(std::vector<std::string>& lines, const ResultRecord& record) {
    constexpr std::size_t kLabel = 33, kNumber = 16;
    const auto value = [](const PhaseRecord& phase, std::size_t i, const char* mark) {
        const std::optional<double>& z = phase.caloric[i];
        return z ? text::pad_left(numbers::general_point(static_cast<float>(*z)), kNumber) + mark
                 : std::string();
    };
    for (const FunctionLine& line : kFunctionLines)
        lines.push_back(text::pad_right(line.label, kLabel) +
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

std::string phase_row(const std::string& label, const std::string& L, const std::string& V) {
    constexpr std::size_t kLabel = 17, kNumber = 20;
    return text::trim_right(text::pad_right(label, kLabel) + text::pad_left(L, kNumber) +
                            text::pad_left(V, kNumber));
}

std::string volume_text(float M, float rho) {
    return rho > 0 ? numbers::general_point(M / rho) : std::string();
}

void add_extended(std::vector<std::string>& lines, float M, std::size_t index,
                  const BatchDataSet& set, const ResultRecord& record, ListForm form) {
    constexpr int kLabels = 24;
    constexpr std::size_t kLabelWidth = 14;
    const bool file = form == ListForm::File;
    const double T = record.T > 0 ? static_cast<double>(record.T) : set.T;
    const auto value = [](float rho, const PhaseRecord& phase, int i) {
        return rho > 0 ? numbers::format_point(phase.extended[static_cast<std::size_t>(i)],
                                               " 0.0000E+00;-0.0000E+00")
                       : std::string();
    };
    lines.emplace_back();
    lines.emplace_back("T -, p -, v - derivatives and thermodynamic functions");
    lines.push_back("for data set " + std::to_string(index));
    lines.push_back("T/K = " + number_or_blank(T));
    lines.push_back("p/kPa = " + number_or_blank(static_cast<double>(record.p)));
    lines.push_back(phase_row("", file ? "L-phase" : "L", file ? "V-phase" : "V"));
    lines.push_back(
        phase_row("v/m^3/kmol =", volume_text(M, record.rhoL), volume_text(M, record.rhoV)));
    for (int i = 0; i < kLabels; ++i) {
        const std::string label = function_label(i, form);
        if (label.empty()) continue;
        lines.push_back(phase_row(text::pad_right(label, kLabelWidth) + " : ",
                                  value(record.rhoL, record.liquid, i),
                                  value(record.rhoV, record.vapour, i)));
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
    add_column_heads(list.lines);
    for_each_result(c, [&](std::size_t i, const BatchDataSet& set, const ResultRecord& record) {
        add_row(list, c.task, i, set, record);
        if (c.task == Task::functions) add_functions(list.lines, record);
    });
    add_means(list);
    if (extended && c.pages.tables())
        for_each_result(c, [&](std::size_t i, const BatchDataSet& set, const ResultRecord& record) {
            add_extended(list.lines, c.made.fluid.substance().M, i, set, record, form);
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
