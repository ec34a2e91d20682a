#pragma once

namespace orbisgrid {

/// Marks the upper halves of the processor's wide registers as unused, where it has such.
///
/// Some painting of a toolkit's leaves them in use. From then on each ordinary operation on a
/// floating-point number has to keep them, and thousands of sines take four times as long: call it
/// once before such work, after painting. Costs a few nanoseconds and changes no value.
void letGoOfWideRegisters();

} // namespace orbisgrid
