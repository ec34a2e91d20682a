#pragma once

#include "core/position.h"
#include "records/record_window.h"

#include <optional>
#include <string>
#include <string_view>

namespace orbisgrid {

/// Contacts of a log in ADI, the text form of ADIF 3.1: fields "<NAME:LENGTH:TYPE>VALUE", and <EOR>
/// behind each contact. What stands before <EOH> is the header, whatever the file begins with; it
/// passes through, and so does what holds no field. A contact's content ends before its <EOR>, or,
/// where the file ends without one, with its last field; the line end behind <EOR> belongs to the
/// contact.
///
/// Lengths are bytes in most programs and characters in some, and others count an end of line as it
/// is not in the file. So a value has as many bytes as its length says where "<", white space or
/// the end of the file follows; else as many characters, under the same condition; else it ends
/// where the next field or <EOR> begins, less the white space before that.
class AdifReader : public RecordReader {
public:
    explicit AdifReader(RecordWindow& window)
        : m_window(window) {}

    Reading next(Record& record) override;

private:
    RecordWindow& m_window;
};

/// Whether a field specifier, <EOH> or <EOR> stands anywhere in `bytes`.
[[nodiscard]] bool holdsAdif(std::string_view bytes);

/// Whether a field has this name, which is given in capitals: names are compared in any case.
[[nodiscard]] bool isNamed(const Field& field, std::string_view capitals);

/// The name of a field with its letters of ASCII in capitals.
[[nodiscard]] std::string inCapitals(std::string_view name);

/// The first field of this name, given in capitals. Nothing where there is none.
[[nodiscard]] const Field* fieldOf(const Record& record, std::string_view name);

/// Whether <EOR> stands behind a contact's content.
[[nodiscard]] bool isEnded(const Record& contact);

/// `text` without the blanks, tabs and line ends around it.
[[nodiscard]] std::string_view withoutWhiteSpace(std::string_view text);

/// Puts a field behind `bytes`: "<NAME:4>5637".
void appendField(std::string& bytes, std::string_view name, std::string_view value);

/// The place of the fields LAT and LON: "N050 56.250", "W004 02.500" (degrees and decimal minutes).
/// Nothing where one is not of this form or names no place of the world.
[[nodiscard]] std::optional<Position> placeOf(std::string_view latitude,
                                              std::string_view longitude);

/// A coordinate in that form: `letters` are "NS" or "EW". Minutes are rounded to thousandths,
/// halves away from zero. `degrees` is a coordinate of the world.
void appendCoordinate(std::string& bytes, double degrees, std::string_view letters);

} // namespace orbisgrid
