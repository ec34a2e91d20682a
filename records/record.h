#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// A field of a record. All three lie in the record's bytes.
struct Field {
    std::string_view name;  ///< ADIF: as it is written there; elsewhere empty
    std::string_view value; ///< without the quotes around it
    std::string_view bytes; ///< all that belongs to it: with its quotes, or with its specifier
};

/// A record as it came: its bytes, and where in them its fields are. It holds until the next one is
/// read.
struct Record {
    std::string_view bytes;    ///< everything, from the byte behind the record before it
    std::string_view content;  ///< what means something: without the mark at the file's beginning,
                               ///< the line end, the end of a contact
    std::vector<Field> fields; ///< in their order; none of a record of the format `lines`
    std::size_t line = 0;      ///< the number of the line that it begins in, from 1
    bool isData = false;       ///< otherwise it only passes through: a comment, a header

    /// Where in `bytes` something new goes: behind the content.
    std::size_t room() const {
        return static_cast<std::size_t>(content.data() - bytes.data()) + content.size();
    }
};

/// How reading a record ended.
enum class Reading {
    record,    ///< there is one
    end,       ///< there are no more
    tooLong,   ///< one is longer than `longestRecord`
    unreadable ///< the source failed
};

/// Hands over one record after the other.
class RecordReader {
public:
    RecordReader() = default;
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;
    virtual ~RecordReader() = default;

    /// The next record goes into `record`, whose memory is used again. One behind the other they
    /// are the bytes of the file, whatever these are. Of one that is too long there is its line.
    virtual Reading next(Record& record) = 0;
};

} // namespace orbisgrid
