#pragma once

#include "records/byte_source.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace orbisgrid::test {

/// Bytes that come in pieces of given sizes.
class Pieces : public ByteSource {
public:
    /// `size` says how long the next piece is; one at least.
    Pieces(std::string_view bytes, std::function<std::size_t()> size)
        : m_bytes(bytes)
        , m_size(std::move(size)) {}

    Pieces(std::string_view bytes, std::size_t size)
        : Pieces(bytes, [size] { return size; }) {}

    /// In the place of the end something goes wrong.
    void failAtTheEnd(int error) { m_error = error; }

    std::optional<std::size_t> read(std::span<char> room) override {
        if (m_bytes.empty() && m_error != 0) {
            errno = m_error;
            return std::nullopt;
        }
        const std::size_t count = std::min({m_size(), room.size(), m_bytes.size()});
        std::copy_n(m_bytes.begin(), count, room.begin());
        m_bytes.remove_prefix(count);
        return count;
    }

private:
    std::string_view m_bytes;
    std::function<std::size_t()> m_size;
    int m_error = 0;
};

} // namespace orbisgrid::test
