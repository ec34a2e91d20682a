#include "fuzz/records_oracle.h"
#include "records/lines.h"

namespace {

/// The lines without what stands behind the first tab of each.
std::string withoutResults(const std::string& output) {
    std::string left;
    bool isResult = false;
    for (const char byte : output) {
        isResult = byte == '\t' || (isResult && byte != '\n');
        if (!isResult)
            left += byte;
    }
    return left;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const std::string_view bytes = fuzz::bytesOf(data, size);
    fuzz::checkReader(bytes, [](RecordWindow& window) { return LineReader(window); });
    const std::string output = fuzz::checkProgram(bytes, "lines");
    // A CR would stand behind the results.
    if (bytes.find_first_of("\t\r") == std::string_view::npos)
        fuzz::require(withoutResults(output) == bytes, "nothing but results was added");
    fuzz::checkProgram(bytes, "");
    return 0;
}
