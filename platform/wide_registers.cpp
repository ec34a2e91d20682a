#include "platform/wide_registers.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace orbisgrid {

#if defined(__x86_64__)

namespace {

[[gnu::target("avx")]] void zeroUpperHalves() {
    _mm256_zeroupper();
}

} // namespace

void letGoOfWideRegisters() {
    if (__builtin_cpu_supports("avx"))
        zeroUpperHalves();
}

#else

void letGoOfWideRegisters() {}

#endif

} // namespace orbisgrid
