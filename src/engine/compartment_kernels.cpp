#include "engine/compartment_kernels.h"

#include "engine/zhl16.h"

#if defined(__x86_64__) && defined(__GNUC__)
#define TAV_HAS_WIDE_KERNELS 1
#endif

namespace tav {
namespace {

namespace portable {
#define TAV_TARGET
#include "engine/compartment_kernels_body.inc"
#undef TAV_TARGET
}  // namespace portable

#ifdef TAV_HAS_WIDE_KERNELS
namespace wide {
#define TAV_TARGET __attribute__((target("avx2")))
#include "engine/compartment_kernels_body.inc"
#undef TAV_TARGET
}  // namespace wide
#endif

}  // namespace

MValueCoefficients MValuesOf(bool metric, bool useC) {
  const Single unit = metric ? Single(1.0) : zhl16::kFeetPerMetreOfSeaWater;
  const Compartments& n2A = useC ? zhl16::kN2A_C : zhl16::kN2A_B;
  MValueCoefficients m;
  for (std::size_t i = 0; i < kCompartments; ++i) {
    m.HeA[i] = unit * zhl16::kHeA[i];
    m.N2A[i] = unit * n2A[i];
    m.HeB[i] = zhl16::kHeB[i];
    m.N2B[i] = zhl16::kN2B[i];
  }
  return m;
}

const CompartmentKernels& PortableKernels() { return portable::kKernels; }

const CompartmentKernels* WideKernels() {
#ifdef TAV_HAS_WIDE_KERNELS
  if (__builtin_cpu_supports("avx2")) return &wide::kKernels;
#endif
  return nullptr;
}

const CompartmentKernels& BestKernels() {
  static const CompartmentKernels* const wide = WideKernels();
  return wide != nullptr ? *wide : PortableKernels();
}

}  // namespace tav
