#include "tests/support/world_outlines.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orbisgrid::test {

const std::string& worldOutlineBytes() {
    static const std::string bytes = [] {
        std::ifstream file(ORBISGRID_MAP_DATA, std::ios::binary);
        if (!file)
            throw std::runtime_error("no " ORBISGRID_MAP_DATA);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
    return bytes;
}

const Outlines& worldOutlines() {
    static const Outlines outlines = [] {
        auto decoded = Outlines::decode(worldOutlineBytes());
        if (!decoded)
            throw std::runtime_error(ORBISGRID_MAP_DATA " is damaged");
        return *std::move(decoded);
    }();
    return outlines;
}

} // namespace orbisgrid::test
