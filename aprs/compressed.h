#pragma once

#include "core/position.h"
#include "core/text.h"

namespace orbisgrid {

/// The APRS compressed position of a place: "=/", four base-91 characters of the latitude, four of
/// the longitude, and "-  B" (house symbol, no course or speed, compression type "B"). 14
/// characters. Scales: APRS Protocol Reference 1.0, chapter 9.
///
/// The latitude value is kept in single precision, which moves its last character (in steps of up
/// to 8), and its first digit is cut from the unrounded value while the others come from the value
/// rounded half to even. Both move the point by less than 3 metres, but for half a unit in front
/// of eleven borders of the first digit: there it lies 1.98 degrees too far north.
///
/// Throws RuntimeError 5 where a character code leaves 0..255 (a position outside the world), and 6
/// where a value leaves 32 signed bits.
[[nodiscard]] Text compressedText(Position position);

} // namespace orbisgrid
