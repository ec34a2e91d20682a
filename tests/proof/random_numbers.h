#pragma once

#include <cstdint>
#include <random>

namespace orbisgrid::test {

/// Numbers that are the same in every run and with every standard library: the engine is the
/// standard's, and no distribution of a library's own stands behind it.
class RandomNumbers {
public:
    explicit RandomNumbers(std::uint64_t seed)
        : m_engine(seed) {}

    /// 0 up to, not including, `count`.
    int below(int count) {
        return static_cast<int>(m_engine() % static_cast<std::uint64_t>(count));
    }

    double between(double low, double high) {
        return low + (high - low) * static_cast<double>(m_engine() >> 11U) * 0x1p-53;
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace orbisgrid::test
