#pragma once

#include "fuzz/oracle.h"
#include "records/record_window.h"
#include "tests/support/in_process.h"
#include "tests/support/pieces.h"

#include <string>
#include <string_view>

namespace orbisgrid::fuzz {

/// The bytes of all records one behind the other, and where each begins and what it holds.
struct ReadList {
    std::string bytes;
    std::string shape;
};

template <typename MakeReader>
ReadList readInPieces(std::string_view bytes, std::size_t size, MakeReader makeReader) {
    test::Pieces pieces(bytes, size);
    RecordWindow window(pieces);
    auto reader = makeReader(window);
    Record record;
    ReadList list;
    while (reader.next(record) == Reading::record) {
        require(!record.bytes.empty(), "a record has bytes");
        require(record.room() <= record.bytes.size(), "new things go into the record");
        list.bytes += record.bytes;
        list.shape += std::to_string(record.room()) + (record.isData ? "+" : "-");
        for (const Field& field : record.fields) {
            require(field.bytes.data() >= record.bytes.data() &&
                        field.bytes.data() + field.bytes.size() <=
                            record.bytes.data() + record.room(),
                    "fields lie in their record, in front of what is new");
            list.shape.append("[").append(field.value).append("]");
        }
    }
    return list;
}

/// Bytes in are bytes out, and no split of the input makes a difference.
template <typename MakeReader>
void checkReader(std::string_view bytes, MakeReader makeReader) {
    const ReadList whole = readInPieces(bytes, 65536, makeReader);
    require(whole.bytes == bytes, "bytes in are bytes out");
    for (const std::size_t size : {1U, 3U}) {
        const ReadList split = readInPieces(bytes, size, makeReader);
        require(split.bytes == bytes, "bytes in are bytes out, in pieces");
        require(split.shape == whole.shape, "the same records in pieces");
    }
}

/// The whole program on the list, in a format that is said or, where it is empty, guessed.
inline std::string checkProgram(std::string_view bytes, const std::string& format) {
    std::string options = "distance --home JO20 --quiet --ellipsoid";
    if (!format.empty())
        options.append(" --input ").append(format);
    const test::BatchResult whole = test::runBatch(options, bytes, "list");
    const test::BatchResult split = test::runBatch(options, bytes, "list", 2);
    require(whole.output == split.output && whole.status == split.status,
            "the same results in pieces");
    const test::BatchResult json =
        test::runBatch(options + " --output json --replace", bytes, "list");
    for (const char byte : json.output)
        require(byte == '\n' || byte < 0 || byte >= ' ',
                "an object is a line without control characters");
    return whole.output;
}

} // namespace orbisgrid::fuzz
