#pragma once

#include "core/text.h"

namespace orbisgrid {

/// The APRS compressed position of two coordinates in degrees, north and east positive: "=/", four
/// base-91 characters of the latitude, four of the longitude, and "-  B" (house symbol, no course
/// or speed, compression type "B"). 14 characters. Scales: APRS Protocol Reference 1.0, chapter 9.
///
/// The latitude value is kept in single precision, which moves its last character (in steps of up
/// to 8), and its first digit is cut from the unrounded value while the others come from the value
/// rounded half to even: both are deliberate.
///
/// Throws RuntimeError 5 where a character code leaves 0..255 (a position outside the world), and 6
/// where a value leaves 32 signed bits.
Text compressedText(double longitude, double latitude);

} // namespace orbisgrid
