#pragma once

#include "panels/system_info.h"

#include <QString>

namespace orbisgrid {

/// The registry of tools as this machine can answer it: the value that holds the path of the
/// system-information tool is the path of the desktop's own one, where one is installed. There is
/// no other key.
class DesktopToolRegistry : public ToolRegistry {
public:
    std::optional<Key> open(std::uint32_t root, TextView path, std::uint32_t access) override;
    std::optional<Value> query(Key key, TextView name, std::span<char16_t> buffer) override;
    void close(Key key) override;
};

} // namespace orbisgrid
