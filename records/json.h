#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace orbisgrid {

/// The names of an object's members, each there once: of two the same a reader of JSON keeps one.
class MemberNames {
public:
    /// None but `reserved`, which is given to nobody.
    explicit MemberNames(std::string reserved)
        : m_taken{std::move(reserved)} {}

    /// `name` where it is free; otherwise with the first free number from 2 on: "name_2". It is
    /// taken then.
    std::string take(std::string_view name);

private:
    std::set<std::string> m_taken;
};

/// Writes one object of JSON (RFC 8259) on a line of its own behind `bytes`.
class JsonLine {
public:
    explicit JsonLine(std::string& bytes)
        : m_bytes(bytes) {}

    /// A text: UTF-8, or Windows-1252 where it is not, as programs of that time write.
    void addText(std::string_view key, std::string_view value);

    /// A number as it is written, with a digit in front of its point; null where it is empty.
    void addNumber(std::string_view key, std::string_view value);

    /// Ends the object and the line. To be called once.
    void end();

private:
    void addKey(std::string_view key);
    void addString(std::string_view value);

    std::string& m_bytes;
    bool m_isFirst = true;
};

} // namespace orbisgrid
