#include "platform/wide_registers.h"

#include <gtest/gtest.h>

#if defined(__x86_64__)
#include <cpuid.h>
#include <immintrin.h>
#endif

namespace orbisgrid {

namespace {

#if defined(__x86_64__)

/// Whether the processor says which of its registers are in use (the instruction XGETBV with 1).
bool saysWhatIsInUse() {
    constexpr unsigned stateLeaf = 0xD;
    constexpr unsigned xgetbvWithOne = 1U << 2U;
    unsigned a = 0, b = 0, c = 0, d = 0;
    return __get_cpuid_count(stateLeaf, 1, &a, &b, &c, &d) != 0 && (a & xgetbvWithOne) != 0 &&
           __builtin_cpu_supports("avx");
}

[[gnu::target("avx,xsave")]] bool areUpperHalvesInUse() {
    constexpr unsigned upperHalves = 1U << 2U;
    return (static_cast<unsigned>(_xgetbv(1)) & upperHalves) != 0;
}

/// As a toolkit's painting does.
void useUpperHalves() {
    asm volatile("vpcmpeqd %%xmm0, %%xmm0, %%xmm0\n\t"
                 "vinsertf128 $1, %%xmm0, %%ymm0, %%ymm0" ::
                     : "xmm0");
}

TEST(WideRegisters, AreLetGo) {
    if (!saysWhatIsInUse())
        GTEST_SKIP() << "this processor does not say which registers are in use";
    useUpperHalves();
    const bool before = areUpperHalvesInUse();
    letGoOfWideRegisters();
    const bool after = areUpperHalvesInUse();
    EXPECT_TRUE(before);
    EXPECT_FALSE(after);
}

#endif

} // namespace

} // namespace orbisgrid
