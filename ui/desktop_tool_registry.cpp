#include "ui/desktop_tool_registry.h"

#include "platform/system_information.h"

#include <algorithm>

namespace orbisgrid {

std::optional<ToolRegistry::Key> DesktopToolRegistry::open(std::uint32_t root, TextView path,
                                                           std::uint32_t /*access*/) {
    if (root != localMachine || path != u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO")
        return std::nullopt;
    return Key{1};
}

std::optional<ToolRegistry::Value> DesktopToolRegistry::query(Key /*key*/, TextView name,
                                                              std::span<char16_t> buffer) {
    if (name != u"PATH")
        return std::nullopt;
    const Text tool = fromUtf8(findSystemInformationTool());
    if (tool.empty() || tool.size() + 1 > buffer.size())
        return std::nullopt;
    std::ranges::copy(tool, buffer.begin());
    buffer[tool.size()] = u'\0';
    return Value{stringValue, tool.size() + 1};
}

void DesktopToolRegistry::close(Key /*key*/) {}

} // namespace orbisgrid
