#include "records/adif.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace orbisgrid {

namespace {

constexpr std::size_t none = std::string_view::npos;
constexpr std::size_t longestName = 100; // the longest of the standard has 25 characters

char capital(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

/// Which bytes a name may have: ASCII letters, digits and underscores in the standard, and others
/// in a program's own.
constexpr std::array<bool, 256> bytesOfNames = [] {
    std::array<bool, 256> table{};
    for (std::size_t byte = '!'; byte < 0x7F; ++byte)
        table.at(byte) = byte != '<' && byte != '>' && byte != ':';
    return table;
}();

bool isOfName(char character) {
    return bytesOfNames[static_cast<std::uint8_t>(character)];
}

bool isNamed(std::string_view name, std::string_view capitals) {
    return name.size() == capitals.size() && capital(name.back()) == capitals.back() &&
           std::equal(name.begin(), name.end(), capitals.begin(),
                      [](char one, char other) { return capital(one) == other; });
}

bool isWhiteSpace(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

/// What stands between "<" and ">".
struct Tag {
    enum class Kind {
        field,
        endOfHeader,
        endOfRecord,
        other,    ///< a name without a length: it says nothing
        text,     ///< "<" is a character like others here
        undecided ///< more bytes decide
    };

    Kind kind = Kind::text;
    std::string_view name{};
    std::size_t length = 0; ///< of the value
    std::size_t size{};     ///< of the tag
};

Tag::Kind kindWithoutLength(std::string_view name) {
    if (isNamed(name, "EOR"))
        return Tag::Kind::endOfRecord;
    return isNamed(name, "EOH") ? Tag::Kind::endOfHeader : Tag::Kind::other;
}

/// The tag that `bytes` begin with; their first is "<".
class TagParser {
public:
    TagParser(std::string_view bytes, bool isWhole)
        : m_bytes(bytes)
        , m_isWhole(isWhole) {}

    Tag parse() {
        while (m_at < m_bytes.size() && m_at <= longestName && isOfName(m_bytes[m_at]))
            ++m_at;
        if (m_at == m_bytes.size())
            return undecided();
        m_tag.name = m_bytes.substr(1, m_at - 1);
        if (m_tag.name.empty())
            return {};
        if (m_bytes[m_at] == '>')
            return ended(kindWithoutLength(m_tag.name));
        return m_bytes[m_at] == ':' ? withLength() : Tag{};
    }

private:
    Tag undecided() const { return m_isWhole ? Tag{} : Tag{.kind = Tag::Kind::undecided}; }

    Tag ended(Tag::Kind kind) {
        m_tag.kind = kind;
        m_tag.size = m_at + 1;
        return m_tag;
    }

    Tag withLength() {
        const std::size_t first = ++m_at;
        for (; m_at < m_bytes.size() && m_bytes[m_at] >= '0' && m_bytes[m_at] <= '9'; ++m_at) {
            // Beyond the longest record it makes no difference how far.
            m_tag.length =
                std::min(m_tag.length * 10 + static_cast<std::size_t>(m_bytes[m_at] - '0'),
                         2 * longestRecord);
        }
        if (m_at == m_bytes.size())
            return undecided();
        if (m_at == first)
            return {};
        if (m_bytes[m_at] == ':')
            return withType();
        return m_bytes[m_at] == '>' ? ended(Tag::Kind::field) : Tag{};
    }

    /// A letter, in some programs more.
    Tag withType() {
        const std::size_t last = std::min(m_bytes.size(), m_at + longestName);
        ++m_at;
        while (m_at < last && isOfName(m_bytes[m_at]))
            ++m_at;
        if (m_at == m_bytes.size())
            return undecided();
        return m_bytes[m_at] == '>' ? ended(Tag::Kind::field) : Tag{};
    }

    std::string_view m_bytes;
    bool m_isWhole;
    std::size_t m_at = 1;
    Tag m_tag;
};

/// Where the next tag begins from `from` on; the size of `bytes` where there is none. Nothing where
/// more bytes decide.
std::optional<std::size_t> nextTag(std::string_view bytes, std::size_t from, bool isWhole) {
    for (std::size_t at = bytes.find('<', from); at != none; at = bytes.find('<', at + 1)) {
        const Tag::Kind kind = TagParser(bytes.substr(at), isWhole).parse().kind;
        if (kind == Tag::Kind::undecided)
            return std::nullopt;
        if (kind != Tag::Kind::text && kind != Tag::Kind::other)
            return at;
    }
    return isWhole ? std::optional(bytes.size()) : std::nullopt;
}

/// How many bytes `count` characters of UTF-8 take; more than there are where they do not suffice.
std::size_t bytesOfCharacters(std::string_view bytes, std::size_t count) {
    std::size_t at = 0;
    for (; at < bytes.size(); ++at) {
        const bool isFirst = (static_cast<std::uint8_t>(bytes[at]) & 0xC0U) != 0x80;
        if (isFirst && count-- == 0)
            return at;
    }
    return count == 0 ? at : none;
}

/// Reads one contact or header.
class Scan {
public:
    Scan(std::vector<Field>& fields, std::string_view bytes, bool isWhole)
        : m_fields(fields)
        , m_bytes(bytes)
        , m_isWhole(isWhole) {
        m_fields.clear();
    }

    /// Result: its length, or nothing where more bytes decide.
    std::optional<std::size_t> run();

    bool isHeader() const { return m_isHeader; }

    /// The length of its content.
    std::size_t content() const { return m_content; }

private:
    /// The value behind a field's specifier. Result: false where more bytes decide.
    bool takeValue(const Tag& tag);

    /// Where the line ends that has nothing behind `end`; else `end`.
    std::optional<std::size_t> withLineEnd(std::size_t end) const;

    /// How well a value may end somewhere.
    enum class Fit { bad, possible, good };

    /// Good where the next tag, or nothing, follows behind white space alone; possible before any
    /// other white space. Nothing where more bytes decide.
    std::optional<Fit> fitOf(std::size_t end) const;

    std::optional<std::size_t> endOfValue(std::size_t first, std::size_t length) const;

    std::vector<Field>& m_fields;
    std::string_view m_bytes;
    bool m_isWhole;
    bool m_isHeader = false;
    std::size_t m_at = 0;
    std::size_t m_content{};
};

std::optional<std::size_t> Scan::run() {
    for (;;) {
        // Mostly one blank stands between two fields.
        if (m_at + 1 < m_bytes.size() && m_bytes[m_at + 1] == '<' && m_bytes[m_at] != '<')
            ++m_at;
        else
            m_at = m_bytes.find('<', m_at);
        if (m_at == none)
            return m_isWhole ? std::optional(m_bytes.size()) : std::nullopt;
        const Tag tag = TagParser(m_bytes.substr(m_at), m_isWhole).parse();
        switch (tag.kind) {
        case Tag::Kind::undecided:
            return std::nullopt;
        case Tag::Kind::endOfHeader:
        case Tag::Kind::endOfRecord:
            m_isHeader = tag.kind == Tag::Kind::endOfHeader;
            m_content = m_at;
            return withLineEnd(m_at + tag.size);
        case Tag::Kind::field:
            if (!takeValue(tag))
                return std::nullopt;
            m_content = m_at;
            break;
        case Tag::Kind::other:
        case Tag::Kind::text:
            m_at += std::max<std::size_t>(tag.size, 1);
            break;
        }
    }
}

std::optional<std::size_t> Scan::withLineEnd(std::size_t end) const {
    const std::size_t found = m_bytes.find_first_not_of(" \t\r", end);
    if (found == none && !m_isWhole)
        return std::nullopt;
    return found != none && m_bytes[found] == '\n' ? found + 1 : end;
}

bool Scan::takeValue(const Tag& tag) {
    const std::size_t first = m_at + tag.size;
    const auto end = endOfValue(first, tag.length);
    if (!end)
        return false;
    m_fields.push_back(
        {tag.name, m_bytes.substr(first, *end - first), m_bytes.substr(m_at, *end - m_at)});
    m_at = *end;
    return true;
}

std::optional<Scan::Fit> Scan::fitOf(std::size_t end) const {
    if (end > m_bytes.size())
        return m_isWhole ? std::optional(Fit::bad) : std::nullopt;
    const std::size_t next = m_bytes.find_first_not_of(" \t\r\n", end);
    if (next == none)
        return m_isWhole ? std::optional(Fit::good) : std::nullopt;
    if (m_bytes[next] == '<')
        return Fit::good;
    return next > end ? Fit::possible : Fit::bad;
}

std::optional<std::size_t> Scan::endOfValue(std::size_t first, std::size_t length) const {
    if (length <= longestRecord) {
        const auto byBytes = fitOf(first + length);
        if (!byBytes)
            return std::nullopt;
        if (*byBytes == Fit::good)
            return first + length;
        // The length may count characters, of which some have more than a byte.
        const std::size_t size = bytesOfCharacters(m_bytes.substr(first), length);
        const auto byCharacters = fitOf(size == none ? none : first + size);
        if (!byCharacters)
            return std::nullopt;
        if (*byCharacters > *byBytes)
            return first + size;
        if (*byBytes == Fit::possible)
            return first + length;
    }
    const auto next = nextTag(m_bytes, first, m_isWhole);
    if (!next)
        return std::nullopt;
    std::size_t end = *next;
    while (end > first && isWhiteSpace(m_bytes[end - 1]))
        --end;
    return end;
}

/// The number that `text` is from end to end, digits with at most one point; nothing else.
std::optional<double> plainNumber(std::string_view text) {
    double value{};
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    const bool isAll = error == std::errc() && end == text.data() + text.size();
    if (!isAll || text.find_first_not_of("0123456789.") != none)
        return std::nullopt;
    return value;
}

/// One of the two: its letters are `positive` and `negative`, its magnitude at most `most`.
std::optional<double> coordinateOf(std::string_view text, std::string_view letters, double most) {
    const std::size_t blank = text.find(' ');
    if (text.empty() || blank == none)
        return std::nullopt;
    const std::size_t side = letters.find(capital(text.front()));
    const auto degrees = plainNumber(text.substr(1, blank - 1));
    const auto minutes = plainNumber(text.substr(blank + 1));
    if (side == none || !degrees || !minutes || *minutes >= 60)
        return std::nullopt;
    const double magnitude = *degrees + *minutes / 60;
    if (magnitude > most)
        return std::nullopt;
    return side == 0 ? magnitude : -magnitude;
}

} // namespace

Reading AdifReader::next(Record& record) {
    bool isHeader = false;
    std::size_t content{};
    const Reading reading = takeRecord(m_window, record, [&](std::string_view bytes, bool isWhole) {
        Scan scan(record.fields, bytes, isWhole);
        const auto length = scan.run();
        isHeader = scan.isHeader();
        content = scan.content();
        return length;
    });
    if (reading == Reading::record) {
        record.isData = !isHeader && !record.fields.empty();
        if (record.isData) {
            // It begins where its first field does and not with the line end before that.
            const std::string_view before(
                record.bytes.data(),
                static_cast<std::size_t>(record.fields.front().bytes.data() - record.bytes.data()));
            record.line += static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
        }
        record.content = record.content.substr(0, content);
    }
    return reading;
}

bool holdsAdif(std::string_view bytes) {
    return nextTag(bytes, 0, true) != bytes.size();
}

bool isNamed(const Field& field, std::string_view capitals) {
    return isNamed(field.name, capitals);
}

std::string inCapitals(std::string_view name) {
    std::string capitals(name);
    std::transform(capitals.begin(), capitals.end(), capitals.begin(), capital);
    return capitals;
}

bool isEnded(const Record& contact) {
    const std::string_view behind = contact.bytes.substr(contact.room());
    return behind.starts_with('<') &&
           TagParser(behind, true).parse().kind == Tag::Kind::endOfRecord;
}

std::string_view withoutWhiteSpace(std::string_view text) {
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

const Field* fieldOf(const Record& record, std::string_view name) {
    const auto found = std::find_if(record.fields.begin(), record.fields.end(),
                                    [&](const Field& field) { return isNamed(field, name); });
    return found == record.fields.end() ? nullptr : &*found;
}

void appendField(std::string& bytes, std::string_view name, std::string_view value) {
    bytes += '<';
    bytes += name;
    bytes += ':';
    bytes += std::to_string(value.size());
    bytes += '>';
    bytes += value;
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): latitude first, as everywhere
std::optional<Position> placeOf(std::string_view latitude, std::string_view longitude) {
    const auto north = coordinateOf(withoutWhiteSpace(latitude), "NS", 90);
    const auto east = coordinateOf(withoutWhiteSpace(longitude), "EW", 180);
    if (!north || !east)
        return std::nullopt;
    return Position{*north, *east};
}

void appendCoordinate(std::string& bytes, double degrees, std::string_view letters) {
    const auto thousandths = static_cast<std::int32_t>(std::round(std::fabs(degrees) * 60000));
    const bool isNegative = degrees < 0 && thousandths != 0;
    const auto appendDigits = [&](std::int32_t value, std::int32_t unit) {
        for (; unit > 0; unit /= 10)
            bytes += static_cast<char>('0' + value / unit % 10);
    };
    bytes += letters[isNegative ? 1 : 0];
    appendDigits(thousandths / 60000, 100);
    bytes += ' ';
    appendDigits(thousandths % 60000 / 1000, 10);
    bytes += '.';
    appendDigits(thousandths % 1000, 100);
}

} // namespace orbisgrid
