#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "report/calculation_state.h"

namespace quor::legacy {

/// All that more than one view or calculation must see of a run of the program.
struct Session {
    // Calculation control
    report::CalculationState calculation;
    bool BatchMode = false;

    // Units
    std::int16_t UnitMode = 0;     ///< 0 molar, 1 specific, 2 reduced
    std::int16_t CaloricUnit = 0;  ///< 0 kJ/kmol, 1 K, 2 R T, 3 kJ/kg
    double CaloricFactor = 1.0;
    double VolumeFactor = 1.0;
    float PressureFactor = 1.0F, TemperatureFactor = 1.0F;
    std::string TemperatureLabel = "K", PressureLabel = "kPa", VolumeLabel = "m^3/kmol";
    bool UnitsChanged = false;

    // Diagrams
    double DiagramT = 298.15;  ///< K; also the divisor of CaloricUnit 2
    double DiagramP = 0;       ///< kPa
    double DiagramV = 0;       ///< m^3/kmol
    std::int16_t PointsPerCurve = 300;
    bool CurveRealRangeOnly = true;
    bool CurveSWithoutTieLine = false;
    bool PartialGasCurve = false;
    bool NewSubstanceDiagram = true;
    std::int16_t Diagram3DKind = 0;
    bool SCurve3D = false;

    // Files and folders
    std::string FolderBatch, FolderDiagram2D, FolderDiagram3D, FolderXY, FolderProject;
    std::string LastSessionFile;
    std::string ProjectFile;
    std::string ProjectComment;
    bool ProjectLoaded = false;
    char CsvSeparator = ';';
    std::string DatabaseFile;  ///< title of the open database
    std::int16_t CurrentSubstance = 0;
    bool SubstanceSet = false;
    std::int16_t BatchCount = 0;
    std::string BatchFile;
    std::string BatchComment;
    std::string BatchCasrn;          ///< CASRN of the data's substance
    double BatchMolarMass = 0;       ///< of that substance, kg/kmol
    std::int16_t FitDataSource = 0;  ///< 1: the data editor, else the XY editor
    std::int16_t FitColumn = 1;      ///< 1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp
    bool ResultsOutdated = false;

    // Environment and one-time flags
    bool DecimalComma = false;
    bool EnglishUi = true;
    bool TipsHidden = false;
    bool TipsRequested = false;
    bool Diagram2DNotePending = true;
    bool ProjectNotePending = true;
    bool SynonymNotePending = true;  ///< the note of a missing synonym file is still to come
    std::int16_t BusyDepth = 0;
    std::int16_t SavedPointer = 0;

    calculation::Tank tank;
};

}  // namespace quor::legacy
