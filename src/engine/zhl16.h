#pragma once

#include <array>

#include "model/profile.h"

/// The constants of ZH-L16.
///
/// Source: A. A. Buhlmann, "Tauchmedizin", ZH-L16A with the B (table) and C (computer) variants of the nitrogen
/// coefficients. Compartment 1 is the 5 minute one. Coefficients a are in metres of sea water, b has no unit.
namespace tav::zhl16 {

constexpr Compartments kHeHalfTimes = {1.88, 3.02,  4.72,  6.99,  10.21,  14.48,  20.53,  29.11,
                                       41.2, 55.19, 70.69, 90.34, 115.29, 147.42, 188.24, 240.03};
constexpr Compartments kN2HalfTimes = {5, 8, 12.5, 18.5, 27, 38.3, 54.3, 77, 109, 146, 187, 239, 305, 390, 498, 635};

constexpr Compartments kHeA = {16.189, 13.83, 11.919, 10.458, 9.22,  8.205, 7.305, 6.502,
                               5.95,   5.545, 5.333,  5.189,  5.181, 5.176, 5.172, 5.119};
constexpr Compartments kHeB = {0.477,  0.5747, 0.6527, 0.7223, 0.7582, 0.7957, 0.8279, 0.8553,
                               0.8757, 0.8903, 0.8997, 0.9073, 0.9122, 0.9171, 0.9217, 0.9267};
constexpr Compartments kN2B = {0.5578, 0.6514, 0.7222, 0.7825, 0.8126, 0.8434, 0.8693, 0.891,
                               0.9092, 0.9222, 0.9319, 0.9403, 0.9477, 0.9544, 0.9602, 0.9653};
constexpr Compartments kN2A_B = {11.696, 10.0,  8.618, 7.562, 6.667, 5.6,   4.947, 4.5,
                                 4.187,  3.798, 3.497, 3.223, 2.85,  2.737, 2.523, 2.327};
constexpr Compartments kN2A_C = {11.696, 10.0, 8.618, 7.562, 6.2,   5.043, 4.41, 4.0,
                                 3.75,   3.5,  3.295, 3.065, 2.835, 2.61,  2.48, 2.327};

/// Feet of sea water per metre of sea water, 33 / 10.1325, as the coefficients a are scaled for imperial templates.
constexpr Single kFeetPerMetreOfSeaWater = 3.25684678;

/// Water vapour pressure in the lung, depth units.
constexpr double kVapourMetres = 0.527;
constexpr double kVapourFeet = 1.848;

/// Share of nitrogen in the air that a saturated diver has breathed.
constexpr double kNitrogenOfAir = 0.79;

}  // namespace tav::zhl16
