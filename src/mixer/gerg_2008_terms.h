#pragma once

#include <span>

/// The terms of GERG-2008 for nitrogen, oxygen and helium: tables 1, 2 and 8 of its article (see gerg_2008.h), with the
/// exponents of density and temperature. Private to the equation.
namespace tav::gerg {

/// n delta^d tau^t, times exp(-delta^c) when c is not 0.
struct Term {
  double n;
  int d;
  double t;
  int c = 0;
};

struct PureGas {
  double criticalTemperature;  ///< K
  double criticalDensity;      ///< mol/l
  std::span<const Term> terms;
};

/// How the critical values of two gases combine.
struct Pair {
  double betaV;
  double gammaV;
  double betaT;
  double gammaT;
};

inline constexpr Term kNitrogenTerms[] = {
    {0.59889711801201, 1, 0.125},    {-1.6941557480731, 1, 1.125},     {0.24579736191718, 2, 0.375},
    {-0.23722456755175, 2, 1.125},   {0.017954918715141, 4, 0.625},    {0.014592875720215, 4, 1.5},
    {0.10008065936206, 1, 0.625, 1}, {0.73157115385532, 1, 2.625, 1},  {-0.88372272336366, 1, 2.75, 1},
    {0.31887660246708, 2, 2.125, 1}, {0.20766491728799, 3, 2, 1},      {-0.019379315454158, 6, 1.75, 1},
    {-0.16936641554983, 2, 4.5, 2},  {0.13546846041701, 3, 4.75, 2},   {-0.033066712095307, 3, 5, 2},
    {-0.060690817018557, 4, 4, 2},   {0.012797548292871, 4, 4.5, 2},   {0.0058743664107299, 2, 7.5, 3},
    {-0.018451951971969, 3, 14, 3},  {0.0047226622042472, 4, 11.5, 3}, {-0.0052024079680599, 5, 26, 6},
    {0.043563505956635, 6, 28, 6},   {-0.036251690750939, 6, 30, 6},   {-0.0028974026866543, 7, 16, 6},
};

inline constexpr Term kOxygenTerms[] = {
    {0.88878286369701, 1, 0.25},       {-2.4879433312148, 1, 1.125},     {0.59750190775886, 1, 1.5},
    {0.0096501817061881, 2, 1.375},    {0.07197042871277, 3, 0.25},      {0.00022337443000195, 7, 0.875},
    {0.18558686391474, 2, 0.625, 1},   {-0.03812936803576, 5, 1.75, 1},  {-0.15352245383006, 1, 3.625, 2},
    {-0.026726814910919, 4, 3.625, 2}, {-0.025675298677127, 3, 14.5, 3}, {0.0095714302123668, 4, 12, 3},
};

inline constexpr Term kHeliumTerms[] = {
    {-0.45579024006737, 1, 0},        {1.2516390754925, 1, 0.125},      {-1.5438231650621, 1, 0.75},
    {0.020467489707221, 4, 1},        {-0.34476212380781, 1, 0.75, 1},  {-0.020858459512787, 3, 2.625, 1},
    {0.016227414711778, 5, 0.125, 1}, {-0.057471818200892, 5, 1.25, 1}, {0.019462416430715, 5, 2, 1},
    {-0.03329568012302, 2, 1, 2},     {-0.010863577372367, 1, 4.5, 3},  {-0.022173365245954, 2, 5, 3},
};

inline constexpr PureGas kOxygen{154.595, 13.63, kOxygenTerms};
inline constexpr PureGas kHelium{5.1953, 17.399, kHeliumTerms};
inline constexpr PureGas kNitrogen{126.192, 11.1839, kNitrogenTerms};

inline constexpr Pair kNitrogenOxygen{0.99952177, 0.997082328, 0.997190589, 0.995157044};
inline constexpr Pair kNitrogenHelium{0.969501055, 0.932629867, 0.692868765, 1.47183158};
inline constexpr Pair kOxygenHelium{1, 1, 1, 1};

}  // namespace tav::gerg
