#include "app/menu_help.h"

#include <array>

#include "app/menu_catalogue.h"
#include "gui/widgets/help_topics.h"

namespace quor::help {

namespace {

constexpr auto kViews = std::to_array<NamedTopic>({
    {"mdiQUOR", kMainWindow},
    {"frmTip", kTips},
    {"frmOptions", kOptions},
    {"fraReference", kReferenceState},
    {"frmStoffWahl", kSubstanceChoice},
    {"frmQModell", kModels},
    {"fraPrior", kPriority},
    {"frmBParInput", kManualVirial},
    {"frmReferenz", kReferenceState},
    {"frmCalcIn", kGlobalPartial},
    {"frmCalcOut", kResult},
    {"frmParinput", kInput},
    {"frmKessel", kTank},
    {"frmCEOSDiagnose", kDiagnosis},
    {"frmIsoCalc", kIsoCalculator},
    {"frmTpvEdit", kExperimentalData},
    {"frmBankEdit", kSubstanceData},
    {"frmManuInput", kXYEditor},
    {"frmQFitting", kFitting},
    {"frmJOBACK", kGroupContributions},
    {"frmGraph2D", kDiagrams},
    {"frmStateChart", kStateCharts},
    {"mnuMark", kMarks},
    {"mnuAddProcessLine", kProcessLines},
    {"mnuDesign", kDiagramDesign},
    {"fraCoord", kDiagramDesign},
    {"frmTpVSInputBox", kCurveInput},
    {"frmInputProzessLinien", kProcessLines},
    {"frmGraph3D", kSurfaces},
    {"fraCoord3", kSurfaces},
    {"fraIXIY", kSurfaces},
});

// Rows, and menus whose rows share a page.
constexpr auto kRows = std::to_array<NamedTopic>({
    {"mnuData", kMainWindow},
    {"mnuData_OpenBank", kDatabases},
    {"mnuData_LoadLastSession", kProjects},
    {"mnuData_LoadProject", kProjects},
    {"mnuData_SaveProject", kProjects},
    {"mnuData_BatchInput", kExperimentalData},
    {"mnuData_BatchEdit", kExperimentalData},
    {"mnuData_EditStoffdaten", kSubstanceData},
    {"mnuData_EditXY", kXYEditor},
    {"mnuData_ParameterEOS", kEOSReport},
    {"mnuJOBACK", kGroupContributions},
    {"mnuStoff", kSubstanceChoice},
    {"mnuModel", kModels},
    {"mnu2D", kDiagrams},
    {"mnuStateChart", kStateCharts},
    {"mnuGraf_sub_cut", kSections},
    {"mnuGraf_sub_FuT", kFunctionsOfT},
    {"mnuGraf_sub_Fup", kFunctionsOfP},
    {"mnuGraf_sub_FuV", kFunctionsOfV},
    {"mnuGraf_sub_res_FuT", kResidualDiagrams},
    {"mnuGraf_sub_res_Fup", kResidualDiagrams},
    {"mnuGraf_sub_HS", kFunctionPairs},
    {"mnuGraf_sub_ES", kFunctionPairs},
    {"mnuGraf_sub_EH", kFunctionPairs},
    {"mnuGraf_sub_proj", kProjections},
    {"mnuGraf_sub_database", kDatabaseDiagrams},
    {"mnuGraf_sub_sub_database", kDatabaseDiagrams},
    {"mnu3D", kSurfaces},
    {"mnuCalcMain", kCalculation},
    {"mnuCalc_0", kDensityGiven},
    {"mnuCalc_1", kDensityGiven},
    {"mnuCalc_2", kPressureGiven},
    {"mnuCalc_3", kTemperatureWanted},
    {"mnuCalc_5", kSaturationPressure},
    {"mnuCalc_6", kBoilingTemperature},
    {"mnuCalc_8", kVaporisationMode},
    {"mnuCalc_9", kVaporisationMode},
    {"mnuCalc_11", kFunctions},
    {"mnuCalc_13", kPolytropicProcess},
    {"mnuCalc_15", kTank},
    {"mnuCalc_16", kTank},
    {"mnuCalc_18", kVirialComparison},
    {"mnuCalc_20", kDatabaseFunctions},
    {"mnuCalc_sub_database", kDatabaseFunctions},
    {"mnuCalc_sub_sub_database", kDatabaseFunctions},
    {"mnuEdit", kMainWindow},
    {"mnuFitting", kFitting},
    {"mnuOptions", kOptions},
    {"mnuWindow", kMainWindow},
    {"mnuHilfe", kContents},
    {"mnuHilfe_Tip", kTips},
    {"frmReferenz", kReferenceState},
    {"toolTank", kTank},
});

int find(std::span<const NamedTopic> table, std::string_view name) {
    for (const NamedTopic& entry : table)
        if (entry.name == name) return entry.topic;
    return -1;
}

// The menu that a submenu's row stands in; empty for a menu of the bar.
std::string_view menu_above(std::string_view menu_name) {
    for (const menu::Row& row : menu::rows())
        if (row.kind == menu::Kind::Submenu && row.submenu == menu_name) return row.parent;
    return {};
}

}  // namespace

std::span<const NamedTopic> view_topics() {
    return kViews;
}

int topic_of_view(std::string_view name) {
    return find(kViews, name);
}

int topic_of_row(std::string_view name) {
    for (const menu::ToolButton& button : menu::tool_buttons())
        if (name == "Toolbar1_" + std::to_string(button.index)) name = button.action;
    if (const int own = find(kRows, name); own >= 0) return own;
    const menu::Row* row = menu::find(name);
    if (row == nullptr) return -1;
    std::string_view above = row->kind == menu::Kind::Submenu ? row->submenu : row->parent;
    for (; !above.empty(); above = menu_above(above))
        if (const int topic = find(kRows, above); topic >= 0) return topic;
    return -1;
}

}  // namespace quor::help
