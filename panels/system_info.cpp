#include "panels/system_info.h"

#include <array>
#include <charconv>
#include <string>
#include <system_error>

namespace orbisgrid {

namespace {

constexpr std::size_t bufferSize = 1024;

/// The code of a character in hexadecimal, without leading zeros.
std::string hexadecimal(char16_t character) {
    std::array<char, 4> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(),
                                            static_cast<unsigned>(character), 16);
    return {digits.data(), end};
}

/// The decimal text of the number that hexadecimal digits denote.
std::optional<Text> decimalOfHexadecimal(const std::string& digits) {
    std::uint64_t number{};
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, 16);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return fromUtf8(std::to_string(number));
}

/// Hexadecimal digits of the characters, the last one in front.
std::string reversedHexadecimal(TextView characters) {
    std::string digits;
    for (const char16_t character : Text(characters.rbegin(), characters.rend()))
        digits += hexadecimal(character);
    return digits;
}

using Buffer = std::array<char16_t, bufferSize>;

/// The text of a value that stands in `buffer`; nothing where it is empty or does not fit. Numbers
/// are appended to what the caller's text held before, and other types leave that text.
std::optional<Text> valueText(const ToolRegistry::Value& value, const Buffer& buffer,
                              TextView before) {
    if (value.size == 0 || value.size > buffer.size())
        return std::nullopt;
    TextView characters(buffer.data(), value.size);
    if (characters.back() == u'\0')
        characters.remove_suffix(1);
    switch (value.type) {
    case ToolRegistry::stringValue:
        return Text(characters);
    case ToolRegistry::numberValue:
        return decimalOfHexadecimal(toUtf8(before) + reversedHexadecimal(characters));
    default:
        return Text(before);
    }
}

} // namespace

bool GetKeyValue(ToolRegistry& registry, const std::uint32_t& KeyRoot, const Text& KeyName,
                 const Text& SubKeyRef, Text& KeyVal) {
    std::optional<Text> value;
    if (const auto key = registry.open(KeyRoot, KeyName, ToolRegistry::allAccess)) {
        Buffer buffer{};
        if (const auto found = registry.query(*key, SubKeyRef, buffer))
            value = valueText(*found, buffer, KeyVal);
        registry.close(*key);
    }
    KeyVal = value.value_or(Text{});
    return value.has_value();
}

std::optional<Text> systemInformationPath(ToolRegistry& registry,
                                          const std::function<bool(const Text&)>& fileExists) {
    Text path;
    if (GetKeyValue(registry, ToolRegistry::localMachine,
                    u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", u"PATH", path))
        return path;
    if (!GetKeyValue(registry, ToolRegistry::localMachine,
                     u"SOFTWARE\\Microsoft\\Shared Tools Location", u"MSINFO", path))
        return std::nullopt;
    path += u"\\MSINFO32.EXE";
    return fileExists(path) ? std::optional(path) : std::nullopt;
}

} // namespace orbisgrid
