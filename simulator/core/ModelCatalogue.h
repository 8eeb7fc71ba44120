// The cores that a camera can have: a row for each part number that hosts know, in all its forms, and one that none
// does.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "simulator/Scene.h"
#include "simulator/core/CoreIdentity.h"

namespace simulator {

struct CoreModel {
  std::string_view id;    ///< short, for options
  std::string_view name;  ///< for people
  std::string_view part_number;
  ImageSize sensor;  ///< what the core really has, whatever a host makes of the part number
};

namespace models {

constexpr ImageSize k640{640, 512};
constexpr ImageSize k336{336, 256};
constexpr ImageSize k320{320, 256};
constexpr ImageSize k160{160, 128};

}  // namespace models

/// Speed, radiometry and the video standards follow from the part number, as they do on the wire. Of the cores with one
/// sensor the first is the usual one. Fast radiometric cores have the letter R, slow ones the letter I: both mean the
/// same. The alternative forms have no resolution but a model code in letters 7 and 8 and their speed in letter 15.
// clang-format off
inline constexpr std::array kCoreModels{
    CoreModel{"640r-fast",   "Fast 640, radiometric", "46640001X-FRNLX", models::k640},
    CoreModel{"640r-slow",   "Slow 640, radiometric", "46640019H-SINLX", models::k640},
    CoreModel{"640-fast",    "Fast 640",              "46640001X-FPNLX", models::k640},
    CoreModel{"640-slow",    "Slow 640",              "46640019H-SPNLX", models::k640},
    CoreModel{"336r-fast",   "Fast 336, radiometric", "46336001H-FRNLX", models::k336},
    CoreModel{"336r-slow",   "Slow 336, radiometric", "46336007X-SINLX", models::k336},
    CoreModel{"336-fast",    "Fast 336",              "46336001H-FPNLX", models::k336},
    CoreModel{"336-slow",    "Slow 336",              "46336007X-SPNLX", models::k336},
    CoreModel{"324r-fast",   "Fast 324, radiometric", "46324007H-FRNLX", models::k320},
    CoreModel{"324r-slow",   "Slow 324, radiometric", "46324001H-SINLX", models::k320},
    CoreModel{"324-fast",    "Fast 324",              "46324007H-FPNLX", models::k320},
    CoreModel{"324-slow",    "Slow 324",              "46324001H-SPNLX", models::k320},
    CoreModel{"160r-fast",   "Fast 160, radiometric", "46160007H-FRNLX", models::k160},
    CoreModel{"160r-slow",   "Slow 160, radiometric", "46160025H-SINLX", models::k160},
    CoreModel{"160-fast",    "Fast 160",              "46160007H-FPNLX", models::k160},
    CoreModel{"160-slow",    "Slow 160",              "46160025H-SPNLX", models::k160},
    CoreModel{"162r-fast",   "Fast 162, radiometric", "46162025H-FRNLX", models::k160},
    CoreModel{"162r-slow",   "Slow 162, radiometric", "46162019H-SINLX", models::k160},
    CoreModel{"162-fast",    "Fast 162",              "46162025H-FPNLX", models::k160},
    CoreModel{"162-slow",    "Slow 162",              "46162019H-SPNLX", models::k160},
    CoreModel{"168r-fast",   "Fast 168, radiometric", "46168060H-FRNLX", models::k160},
    CoreModel{"168r-slow",   "Slow 168, radiometric", "46168060H-SINLX", models::k160},
    CoreModel{"168-fast",    "Fast 168",              "46168060H-FPNLX", models::k160},
    CoreModel{"168-slow",    "Slow 168",              "46168060H-SPNLX", models::k160},
    CoreModel{"alt-73-fast", "Fast 324, form 73",     "46000073H-XPNLF", models::k320},
    CoreModel{"alt-73-slow", "Slow 324, form 73",     "46000073H-XPNLS", models::k320},
    CoreModel{"alt-85-fast", "Fast 324, form 85",     "46000085H-XPNLF", models::k320},
    CoreModel{"alt-85-slow", "Slow 324, form 85",     "46000085H-XPNLS", models::k320},
    CoreModel{"alt-77-fast", "Fast 336, form 77",     "46000077H-XPNLF", models::k336},
    CoreModel{"alt-77-slow", "Slow 336, form 77",     "46000077H-XPNLS", models::k336},
    CoreModel{"alt-81-fast", "Fast 640, form 81",     "46000081H-XPNLF", models::k640},
    CoreModel{"alt-81-slow", "Slow 640, form 81",     "46000081H-XPNLS", models::k640},
    CoreModel{"alt-87-fast", "Fast 640, form 87",     "46000087H-XPNLF", models::k640},
    CoreModel{"alt-87-slow", "Slow 640, form 87",     "46000087H-XPNLS", models::k640},
    CoreModel{"unknown",     "Unknown to hosts",      "46999001H-FPNLX", models::k640},
};
// clang-format on

/// Null where there is no such model.
const CoreModel* findModel(std::string_view id);

/// The usual core for a sensor; null for an unusual sensor.
const CoreModel* usualModel(ImageSize sensor);

CoreIdentity identityOf(const CoreModel& model);

/// The first serial number of a camera with this core. Its fourth letter tells hosts with a calibration the speed
/// class: C slow, D fast.
std::string usualSerial(const CoreModel& model);

/// All models with their properties as a table of at most 80 columns, and as an array of JSON.
std::string modelTable();
std::string modelJson();

}  // namespace simulator
