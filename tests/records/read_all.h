#pragma once

#include "records/record_window.h"
#include "tests/support/pieces.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace orbisgrid::test {

/// Sizes of pieces that cut a short text everywhere, in several places, and nowhere.
inline constexpr std::size_t pieceSizes[]{1, 2, 3, 7, 65536};

/// What `describe` says of each record, with " / " between. The records' bytes, one behind the
/// other, have to be those that came in.
template <typename MakeReader, typename Describe>
std::string readAll(std::string_view bytes, std::size_t pieceSize, MakeReader makeReader,
                    Describe describe) {
    Pieces pieces(bytes, pieceSize);
    RecordWindow window(pieces);
    auto reader = makeReader(window);
    Record record;
    std::string text, out;
    while (reader.next(record) == Reading::record) {
        text += (text.empty() ? "" : " / ") + std::to_string(record.line) + ": " + describe(record);
        out += record.bytes;
    }
    EXPECT_EQ(out, bytes) << "in pieces of " << pieceSize;
    return text;
}

} // namespace orbisgrid::test
