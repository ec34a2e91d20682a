#include "fuzz/records_oracle.h"
#include "records/adif.h"

namespace {

/// Takes a field that was added, with its blank, from the beginning of `output`. Result: whether
/// there was one.
bool takeAdded(std::string_view& output, bool isBlankInFront) {
    std::string_view rest = output;
    if (isBlankInFront && !rest.starts_with(' '))
        return false;
    rest.remove_prefix(isBlankInFront ? 1 : 0);
    for (const std::string_view name :
         {"<DISTANCE:", "<APP_ORBISGRID_AZIMUTH:", "<APP_ORBISGRID_DISTANCE_WGS84:"}) {
        if (!rest.starts_with(name) || rest.size() < name.size() + 2)
            continue;
        // Its value has fewer than ten characters.
        const auto length = static_cast<std::size_t>(rest[name.size()] - '0');
        output = rest.substr(name.size() + 2 + length + (isBlankInFront ? 0 : 1));
        return true;
    }
    return false;
}

/// Each contact of `log` is in `output`, whole but for fields behind its content.
void requireOnlyAdditions(std::string_view log, std::string_view output) {
    using namespace orbisgrid;
    test::Pieces pieces(log, 65536);
    RecordWindow window(pieces);
    AdifReader reader(window);
    Record contact;
    while (reader.next(contact) == Reading::record) {
        const std::string_view content = contact.bytes.substr(0, contact.room());
        const std::string_view rest = contact.bytes.substr(contact.room());
        fuzz::require(output.starts_with(content), "a contact is there");
        output.remove_prefix(content.size());
        while (contact.isData && takeAdded(output, !isEnded(contact))) {
        }
        fuzz::require(output.starts_with(rest), "what ends it is behind what was added");
        output.remove_prefix(rest.size());
    }
    fuzz::require(output.empty(), "nothing else was added");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const std::string_view bytes = fuzz::bytesOf(data, size);
    const auto makeReader = [](RecordWindow& window) { return AdifReader(window); };
    fuzz::checkReader(bytes, makeReader);
    const std::string output = fuzz::checkProgram(bytes, "adif");
    requireOnlyAdditions(bytes, output);
    return 0;
}
