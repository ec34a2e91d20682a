#include "batch/convert.h"

#include "aprs/compressed.h"
#include "aprs/uiview.h"
#include "core/conversion.h"
#include "core/maidenhead.h"
#include "core/number_text.h"
#include "records/adif.h"
#include "records/lines.h"

#include <algorithm>

namespace orbisgrid {

namespace {

enum : std::size_t {
    locator,
    latitude,
    longitude,
    dmsLatitude,
    dmsLongitude,
    uiview,
    compressed,
    columnCount
};

/// The digits of a coordinate that was stored as single, or of one in double precision.
Text coordinateText(double coordinate, bool isSingle) {
    return isSingle ? plainTextOfSeven(coordinate) : plainText(coordinate);
}

Text dmsText(const WholeDms& dms, TextView letter) {
    Text text = plainText(dms.Deg);
    text += u'°';
    text += plainText(dms.Min);
    text += u'\'';
    text += plainText(dms.Sec);
    text += u'"';
    text += letter;
    return text;
}

} // namespace

ConvertTask::ConvertTask(ConvertOptions options)
    : m_options(options)
    , m_columns{{"locator", false},
                {"latitude"},
                {"longitude"},
                {"dms_latitude", false},
                {"dms_longitude", false},
                {"uiview", false},
                {"compressed", false}} {}

Answer ConvertTask::answer(const Question& question, Values& values) {
    PositionReading reading;
    if (question.place)
        reading.position = ReadPosition{*question.place, true, {}};
    else if (withoutBlanks(question.target).empty())
        return {"No position!", {}, {}};
    else
        reading = readPosition(question.target, m_options.from);
    if (!reading.position)
        return {reading.refusal, {}, question.target};

    const ReadPosition& read = *reading.position;
    const Text latitudeText = coordinateText(read.position.latitude, read.isSingle);
    const Text longitudeText = coordinateText(read.position.longitude, read.isSingle);
    const Position written{leadingNumber(latitudeText), leadingNumber(longitudeText)};
    // Within the world both are numbers.
    const WholeDms north = *WorldDMS(latitudeText);
    const WholeDms east = *WorldDMS(longitudeText);
    const TextView northSouth = north.isNegative ? u"S" : u"N";
    const TextView eastWest = east.isNegative ? u"W" : u"E";

    values[locator] = toUtf8(read.locator.empty() ? locatorOf(written, m_options.characters)
                                                  : read.locator.substr(0, m_options.characters));
    values[latitude] = toUtf8(latitudeText);
    values[longitude] = toUtf8(longitudeText);
    values[dmsLatitude] = toUtf8(dmsText(north, northSouth));
    values[dmsLongitude] = toUtf8(dmsText(east, eastWest));
    values[uiview] = toUtf8(uiViewText(north, northSouth, east, eastWest));
    values[compressed] = toUtf8(compressedText(written));
    m_contactLatitude.clear();
    m_contactLongitude.clear();
    appendCoordinate(m_contactLatitude, written.latitude, "NS");
    appendCoordinate(m_contactLongitude, written.longitude, "EW");
    return {};
}

void ConvertTask::putFields(const Question& /*question*/, const Values& values,
                            ContactFields& fields) {
    constexpr std::size_t extended = 8; // the most that the first of the two may have
    const std::string_view whole = values[locator];
    fields.emplace_back("GRIDSQUARE", whole.substr(0, extended));
    fields.emplace_back("GRIDSQUARE_EXT", whole.substr(std::min(extended, whole.size())));
    fields.emplace_back("LAT", m_contactLatitude);
    fields.emplace_back("LON", m_contactLongitude);
    fields.emplace_back("APP_ORBISGRID_UIVIEW", values[uiview]);
    fields.emplace_back("APP_ORBISGRID_COMPRESSED", values[compressed]);
}

std::vector<std::string_view> ConvertTask::targetColumns() const {
    return {"gridsquare", "target", "locator", "position"};
}

} // namespace orbisgrid
