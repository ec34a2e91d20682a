#include "settings/locator_list_ini.h"

#include "core/number_text.h"

#include <algorithm>

namespace orbisgrid {

namespace {

constexpr char blank = ' ';

/// The file from front to back, by lines and by fields.
class IniReader {
public:
    explicit IniReader(std::string_view bytes)
        : m_rest(bytes) {}

    bool atEnd() const { return m_rest.empty(); }

    /// The next line without its line end; nothing at the end of the file.
    std::optional<std::string_view> line() {
        if (atEnd())
            return std::nullopt;
        const std::size_t end = m_rest.find('\n');
        std::string_view result = m_rest.substr(0, end);
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
        if (result.ends_with('\r'))
            result.remove_suffix(1);
        return result;
    }

    /// Passes over a label field and the rest of its line.
    void skipStringField() {
        skipBlanks();
        if (m_rest.starts_with('"')) {
            const std::size_t closing = m_rest.find('"', 1);
            m_rest.remove_prefix(closing == std::string_view::npos ? m_rest.size() : closing + 1);
        }
        line();
    }

    /// The leading number of the next field; nothing at the end of the file. Passes over the rest
    /// of the line, so that each value is read from a line of its own.
    std::optional<double> numberField() {
        const std::optional<std::string_view> whole = line();
        if (!whole)
            return std::nullopt;
        // The blank or comma that ends the field ends its leading number as well.
        return leadingNumber(fromFileBytes(*whole));
    }

private:
    void skipBlanks() {
        while (m_rest.starts_with(blank))
            m_rest.remove_prefix(1);
    }

    std::string_view m_rest;
};

void readText(IniReader& reader, Text& value) {
    if (const auto line = reader.line())
        value = fromFileBytes(*line);
}

void readNumber(IniReader& reader, std::int16_t& value) {
    if (const auto number = reader.numberField())
        value = nearestInt16(*number).value_or(value);
}

void readNumber(IniReader& reader, std::int32_t& value) {
    if (const auto number = reader.numberField())
        value = nearestInt32(*number).value_or(value);
}

bool isTerminator(TextView line) {
    return trimmed(line) == listTerminator;
}

/// Reads a list whose label line comes next. The label is not looked at, but a terminator in its
/// place ends the list at once.
std::vector<Text> readList(IniReader& reader) {
    std::vector<Text> entries;
    Text line;
    readText(reader, line);
    while (!reader.atEnd() && !isTerminator(line)) {
        readText(reader, line);
        if (!isTerminator(line) && !line.empty() && entries.size() < readListEntries)
            entries.push_back(line);
    }
    return entries;
}

void appendLine(std::string& bytes, std::string_view line) {
    bytes += line;
    bytes += "\r\n";
}

void appendNumber(std::string& bytes, std::string_view label, std::int32_t value) {
    appendLine(bytes, label);
    bytes += toUtf8(printText(static_cast<double>(value)));
    bytes += blank;
    appendLine(bytes, {});
}

void appendList(std::string& bytes, std::string_view label, const std::vector<Text>& entries) {
    appendLine(bytes, label);
    for (std::size_t i = 0; i < entries.size() && i < writtenListEntries; ++i) {
        if (!trimmed(entries[i]).empty())
            appendLine(bytes, toUtf8(entries[i]));
    }
    appendLine(bytes, toUtf8(listTerminator));
}

/// Code units of the first character. What is read from bytes has no half of a pair of surrogates:
/// where there is a high one, its partner follows.
std::size_t firstCharacterLength(TextView text) {
    return text.front() >= 0xD800 && text.front() <= 0xDBFF ? 2 : 1;
}

/// `text` from where `count` characters have passed.
TextView withoutCharacters(TextView text, std::size_t count) {
    for (; count > 0 && !text.empty(); --count)
        text.remove_prefix(std::min(firstCharacterLength(text), text.size()));
    return text;
}

/// Line 2 says something only with more than two characters.
bool isLongerThanTwoCharacters(TextView text) {
    return !withoutCharacters(text, 2).empty();
}

} // namespace

LocatorListIni readLocatorListIni(std::string_view bytes) {
    LocatorListIni ini;
    IniReader reader(bytes);
    reader.line(); // program and version
    ini.TitleNote = reader.line().value_or(std::string_view());
    reader.line();
    readText(reader, ini.DefaultHome);
    reader.line();
    readText(reader, ini.DefaultTarget);
    reader.line();
    readNumber(reader, ini.StayOnTop);
    ini.homeList = readList(reader);
    ini.targetList = readList(reader);
    for (std::int32_t* value :
         {&ini.NoCheckWebUpdates, &ini.RememberPosition, &ini.savedLeft, &ini.savedTop}) {
        reader.skipStringField();
        readNumber(reader, *value);
    }
    return ini;
}

std::string savedTitleNote(const std::string& TitleNote) {
    return isLongerThanTwoCharacters(fromFileBytes(TitleNote)) ? TitleNote : ";";
}

std::string writeLocatorListIni(const LocatorListIni& ini, const IniWindowState& window) {
    std::string bytes;
    bytes += ";Orbisgrid, by ZZ9QX (c)2002-2015 version ";
    appendLine(bytes, toUtf8(window.version));
    appendLine(bytes, savedTitleNote(ini.TitleNote));
    appendLine(bytes, "[Default home]");
    appendLine(bytes, toUtf8(upperCase(ini.DefaultHome)));
    appendLine(bytes, "[Default Target]");
    appendLine(bytes, toUtf8(upperCase(ini.DefaultTarget)));
    appendNumber(bytes, "[StayonTop]", window.chkOnTop);
    appendList(bytes, "[Home data]", ini.homeList);
    appendList(bytes, "[Target data]", ini.targetList);
    appendNumber(bytes, "[NoCheckWebUpdates]", ini.NoCheckWebUpdates);
    appendNumber(bytes, "[RememberPosition]", ini.RememberPosition);
    appendNumber(bytes, "[Left]", window.left);
    appendNumber(bytes, "[Top]", window.top);
    return bytes;
}

std::optional<Text> captionNote(const std::string& TitleNote) {
    const Text note = fromFileBytes(TitleNote);
    if (!isLongerThanTwoCharacters(note))
        return std::nullopt;
    constexpr std::size_t mostCharacters = 80;
    const TextView shown = withoutCharacters(note, 1);
    return Text(shown.substr(0, shown.size() - withoutCharacters(shown, mostCharacters).size()));
}

RestoredPosition restoredPosition(const LocatorListIni& ini) {
    const auto restored = [&](std::int32_t saved) {
        const bool moves = ini.RememberPosition != 0 && saved > 0;
        return moves ? std::optional(saved) : std::nullopt;
    };
    return {restored(ini.savedLeft), restored(ini.savedTop)};
}

bool opensOnTop(const LocatorListIni& ini) {
    return ini.StayOnTop == 1;
}

} // namespace orbisgrid
