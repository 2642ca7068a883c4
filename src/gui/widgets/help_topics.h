#pragma once

/// Numbers of the help pages. A view opens its page by number; the pages of the models are found by
/// adding the model's code. The page of a number is the file of that name, such as 2006.html.
namespace quor::help {

inline constexpr int kContents = 0;
inline constexpr int kMainWindow = 110;
inline constexpr int kTips = 500;
inline constexpr int kOptions = 600;
inline constexpr int kSubstanceChoice = 1000;
inline constexpr int kDatabases = 1100;
inline constexpr int kProjects = 1110;
inline constexpr int kExperimentalData = 1300;
inline constexpr int kEquationsOfState = 2000;  ///< + `eos`
inline constexpr int kVapourPressure = 2100;    ///< + `vapour_pressure`
inline constexpr int kVaporisation = 2200;      ///< + `vaporisation`
inline constexpr int kLiquidDensity = 2300;
inline constexpr int kIdealGasCp = 2400;
inline constexpr int kPriority = 2500;
inline constexpr int kManualVirial = 2600;
inline constexpr int kModels = 2700;
inline constexpr int kEOSReport = 2710;
inline constexpr int kCalculation = 3000;
inline constexpr int kDensityGiven = 3001;
inline constexpr int kPressureGiven = 3003;
inline constexpr int kSaturationPressure = 3004;
inline constexpr int kBoilingTemperature = 3005;
inline constexpr int kVaporisationMode = 3006;
inline constexpr int kFunctions = 3008;
inline constexpr int kVirialComparison = 3011;
inline constexpr int kPolytropicProcess = 3012;
inline constexpr int kTemperatureWanted = 3013;
inline constexpr int kDatabaseFunctions = 3014;
inline constexpr int kInput = 3020;
inline constexpr int kResult = 3030;
inline constexpr int kGlobalPartial = 3060;
inline constexpr int kReferencePoint = 3100;
inline constexpr int kTank = 3500;
inline constexpr int kDiagnosis = 3600;
inline constexpr int kIsoCalculator = 3700;
inline constexpr int kSubstanceData = 4000;
inline constexpr int kTriplePoint = 4010;
inline constexpr int kCorrelatedAntoine = 4020;
inline constexpr int kWatsonPoint = 4030;
inline constexpr int kXYEditor = 4100;
inline constexpr int kFitting = 4200;
inline constexpr int kGroupContributions = 4300;
inline constexpr int kDiagrams = 5000;
inline constexpr int kStateCharts = 5005;
inline constexpr int kCurveInput = 5010;
inline constexpr int kMarks = 5020;
inline constexpr int kProcessLines = 5030;
inline constexpr int kDiagramDesign = 5040;
inline constexpr int kSections = 5100;
inline constexpr int kFunctionsOfT = 5110;
inline constexpr int kFunctionsOfP = 5120;
inline constexpr int kFunctionsOfV = 5130;
inline constexpr int kResidualDiagrams = 5140;
inline constexpr int kFunctionPairs = 5150;
inline constexpr int kProjections = 5160;
inline constexpr int kDatabaseDiagrams = 5170;
inline constexpr int kSurfaces = 5500;
inline constexpr int kRealRange = 8555;
inline constexpr int kReferenceState = 12000;

}  // namespace quor::help
