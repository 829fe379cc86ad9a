#include "engine/compartment_kernels.h"

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
