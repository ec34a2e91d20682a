#pragma once

namespace orbisgrid {

/// Waits for nothing, without using the processor, until a signal ends the process.
[[noreturn]] void waitEndlessly();

} // namespace orbisgrid
