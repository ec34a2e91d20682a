#include "fuzz/records_oracle.h"
#include "records/csv.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const std::string_view bytes = fuzz::bytesOf(data, size);
    for (const char separator : {',', '\t'})
        fuzz::checkReader(bytes,
                          [&](RecordWindow& window) { return CsvReader(window, separator); });
    fuzz::checkProgram(bytes, "csv");
    // With a header that names the target each row gets its results.
    const std::string table = "locator,b\n" + std::string(bytes);
    const std::string output = fuzz::checkProgram(table, "csv");
    fuzz::require(output.size() >= table.size(), "nothing is lost");
    // Results that are there stay.
    fuzz::require(fuzz::checkProgram(output, "csv") == output, "a second run changes nothing");
    return 0;
}
