#include "calculation/batch_list.h"

#include <cmath>
#include <filesystem>
#include <set>
#include <span>
#include <utility>

#include "calculation/calc_batch.h"
#include "calculation/calc_modes.h"
#include "calculation/calculation_snapshot.h"
#include "calculation/phase_functions.h"
#include "calculation/reference_lines.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "models/model_tables.h"
#include "session/module2.h"

namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

constexpr std::int16_t kFunctionsMode = 8, kLiquidMode = 2;

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

Values experimental_values(const calculation::BatchDataSet& set) {
    return {set.T, set.p, static_cast<double>(set.rhoV), static_cast<double>(set.rhoL),
            static_cast<double>(set.hLV)};
}

/// True for what the calculation kind takes as given: it is not compared with itself.
bool is_given(std::int16_t mode, std::size_t quantity) {
    const unsigned asks = calculation::mode_of(mode).asks;
    switch (quantity) {
        case kT:
            return (asks & calculation::kAsksT) != 0;
        case kP:
            return (asks & calculation::kAsksP) != 0;
        case kRhoV:
            return (asks & calculation::kAsksRho) != 0 && mode != kLiquidMode;
        case kRhoL:
            return mode == kLiquidMode;
        default:
            return false;
    }
}

Values calculated_values(std::int16_t mode, const calculation::ResultRecord& r) {
    Values values = {static_cast<double>(r.T), static_cast<double>(r.p),
                     static_cast<double>(r.rhoV), static_cast<double>(r.rhoL),
                     static_cast<double>(r.hLV)};
    for (std::size_t i = 0; i < kQuantities; ++i)
        if (is_given(mode, i)) values[i] = 0.0;
    return values;
}

// ---- Head -------------------------------------------------------------------------------------

/// Texts of the head that differ between the forms.
struct HeadTexts {
    const char* title;
    const char* substance;
    const char* calculation;
    const char* byEos;
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

std::string note_on_calculation(const HeadTexts& texts, bool global) {
    if (!calculation::is_equilibrium(the_session.CalcMode)) return {};
    if (global) return std::string(" ") + texts.byEos;
    return the_session.LiquidByBenson ? " (BENSON's method)" : "";
}

bool shows_functions(bool extended) {
    return the_session.CalcMode == kFunctionsMode || (extended && the_session.OutputPage > 1);
}

void add_head(std::vector<std::string>& lines, const std::string& title, bool global, bool extended,
              ListForm form) {
    const HeadTexts& texts = head_texts(form);
    lines.emplace_back(texts.title);
    lines.emplace_back();
    lines.push_back(texts.substance + legacy::the_substance.Name);
    lines.push_back(texts.calculation + text::trim(title) + note_on_calculation(texts, global));
    lines.push_back(texts.model + text::trim(models::EOSName(legacy::the_models.EOSModel)));
    lines.push_back(texts.equation + text::trim(models::vp_name(legacy::the_models.VPModel)));
    lines.push_back(texts.count + std::to_string(the_session.BatchCount));
    lines.push_back(texts.file + the_session.BatchFile);
    if (!shows_functions(extended)) return;
    for (std::string& line : calculation::reference_lines(true, calculation::Numbers::Point))
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

void add_row(ResultList& list, std::size_t index, const calculation::BatchDataSet& set,
             const calculation::ResultRecord& record) {
    constexpr float kLargest = 500.0F;
    const Values measured = experimental_values(set);
    const Values calculated = calculated_values(the_session.CalcMode, record);
    Cells cells;
    cells[0] = std::to_string(index);
    cells[6] = record.State;
    for (std::size_t i = 0; i < kQuantities; ++i) {
        cells[1 + i] = number_or_blank(measured[i]);
        cells[7 + i] = number_or_blank(calculated[i]);
        const auto deviation = Deviation(calculated[i], measured[i]);
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

void add_functions(std::vector<std::string>& lines, const calculation::ResultRecord& record) {
    constexpr std::size_t kLabel = 33, kNumber = 16;
    const auto value = [](const calculation::PhaseFunctions& phase, std::size_t i,
                          const char* mark) {
        const bool exists = phase.caloric[calculation::kVolume] > 0;
        return exists ? text::pad_left(numbers::general_point(static_cast<float>(phase.caloric[i])),
                                       kNumber) +
                            mark
                      : std::string();
    };
    for (const FunctionLine& line : kFunctionLines)
        lines.push_back(text::pad_right(line.label, kLabel) +
                        value(record.FuL, line.function, " (L)") +
                        value(record.FuV, line.function, " (V)"));
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
    return std::string(models::FunctionLabel(index));
}

std::string phase_row(const std::string& label, const std::string& L, const std::string& V) {
    constexpr std::size_t kLabel = 17, kNumber = 20;
    return text::trim_right(text::pad_right(label, kLabel) + text::pad_left(L, kNumber) +
                            text::pad_left(V, kNumber));
}

std::string volume_text(float rho) {
    return rho > 0 ? numbers::general_point(legacy::the_substance.M / rho) : std::string();
}

void add_extended(std::vector<std::string>& lines, std::size_t index,
                  const calculation::BatchDataSet& set, const calculation::ResultRecord& record,
                  ListForm form) {
    constexpr int kLabels = 24;
    constexpr std::size_t kLabelWidth = 14;
    const bool file = form == ListForm::File;
    const double T = record.T > 0 ? static_cast<double>(record.T) : set.T;
    const auto value = [](float rho, const calculation::PhaseFunctions& phase, int i) {
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
    lines.push_back(phase_row("v/m^3/kmol =", volume_text(record.rhoL), volume_text(record.rhoV)));
    for (int i = 0; i < kLabels; ++i) {
        const std::string label = function_label(i, form);
        if (label.empty()) continue;
        lines.push_back(phase_row(text::pad_right(label, kLabelWidth) + " : ",
                                  value(record.rhoL, record.FuL, i),
                                  value(record.rhoV, record.FuV, i)));
    }
}

// ---- Running through the data -----------------------------------------------------------------

/// Shows a message only once: thousands of data sets may all have the same trouble.
class EachMessageOnce {
  public:
    EachMessageOnce() : shown_(dialogs::current().message) {
        dialogs::current().message = [this](const dialogs::Message& message) {
            const bool first = seen_.insert(message.text).second;
            return first ? shown_(message) : message.defaultAnswer;
        };
    }
    ~EachMessageOnce() { dialogs::current().message = shown_; }
    EachMessageOnce(const EachMessageOnce&) = delete;
    EachMessageOnce& operator=(const EachMessageOnce&) = delete;

  private:
    std::function<dialogs::Answer(const dialogs::Message&)> shown_;
    std::set<std::string> seen_;
};

std::size_t set_count() {
    return static_cast<std::size_t>(std::max<int>(the_session.BatchCount, 0));
}

template <class Visit>
void for_each_result(Visit visit) {
    const std::size_t count =
        std::min({set_count() + 1, legacy::the_BatchData.size(), legacy::the_ResultRecords.size()});
    for (std::size_t i = 1; i < count; ++i)
        if (legacy::the_ResultRecords[i].State != "   ")
            visit(i, legacy::the_BatchData[i], legacy::the_ResultRecords[i]);
}

std::string file_name(const std::string& name) {
    if (name.starts_with("LPT")) return name;
    return datafiles::target_path(name, session::write_folder().string(), ".LST");
}

}  // namespace

std::optional<float> Deviation(double calculated, double experimental) {
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

void calculate_all_sets() {
    const session::BusyPointer busy;
    const EachMessageOnce once;
    const calculation::CalculationSnapshot before;
    legacy::the_ResultRecords.resize(set_count() + 1);
    for (calculation::ResultRecord& record : legacy::the_ResultRecords) record.State = "   ";
    const std::string title = calculation::mode_title(the_session.CalcMode);
    for (std::size_t i = 1; i <= set_count() && i < legacy::the_BatchData.size(); ++i) {
        if (legacy::the_BatchData[i].skip != 0) continue;
        calculation::CalcCall call{.Mode = the_session.CalcMode,
                                   .Index = static_cast<std::int16_t>(i),
                                   .Quiet = true,
                                   .Interactive = false,
                                   .Text = title};
        calculation::CalcBatch(call);
    }
    before.restore();
}

ResultList make_result_list(const std::string& title, bool global, bool extended, ListForm form) {
    ResultList list;
    add_head(list.lines, title, global, extended, form);
    add_column_heads(list.lines);
    for_each_result([&](std::size_t i, const calculation::BatchDataSet& set,
                        const calculation::ResultRecord& record) {
        add_row(list, i, set, record);
        if (the_session.CalcMode == kFunctionsMode) add_functions(list.lines, record);
    });
    add_means(list);
    if (extended && the_session.OutputPage > 1)
        for_each_result([&](std::size_t i, const calculation::BatchDataSet& set,
                            const calculation::ResultRecord& record) {
            add_extended(list.lines, i, set, record, form);
        });
    return list;
}

void print_result(const std::string& title, bool global, bool extended) {
    calculate_all_sets();
    std::string text;
    for (const std::string& line : make_result_list(title, global, extended, ListForm::Print).lines)
        text += line + '\n';
    dialogs::Print({.title = title, .font = "COURIER", .text = text});
}

bool result_file(const std::string& name, const std::string& title, bool global, bool extended) {
    calculate_all_sets();
    const ResultList list = make_result_list(title, global, extended, ListForm::File);
    const std::string error =
        datafiles::write_whole(file_name(name), datafiles::ansi_lines(list.lines));
    if (!error.empty()) dialogs::tell(error, "WARNING");
    return error.empty();
}

}  // namespace quor::calculation
