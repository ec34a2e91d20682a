#pragma once

#include "core/text.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace orbisgrid {

/// The machine's registry of tools, as much of it as a look-up needs: keys that are opened by a
/// path under a root, and hold named values.
class ToolRegistry {
public:
    using Key = std::uintptr_t;

    /// The types of value that GetKeyValue reads; a registry may hold others.
    enum ValueType : std::uint32_t { stringValue = 1, numberValue = 4 };

    struct Value {
        std::uint32_t type{};
        std::size_t size{}; ///< characters written to the buffer, a closing zero counted
    };

    /// The root that tools are installed under for every user of the machine.
    static constexpr std::uint32_t localMachine = 0x80000002;
    /// Reading and writing, which is what a look-up asks for: a user without the right to write
    /// gets nothing.
    static constexpr std::uint32_t allAccess = 0x2003F;

    ToolRegistry() = default;
    ToolRegistry(const ToolRegistry&) = delete;
    ToolRegistry& operator=(const ToolRegistry&) = delete;
    virtual ~ToolRegistry() = default;

    /// Opens a key; nothing where it does not exist or the access is refused.
    virtual std::optional<Key> open(std::uint32_t root, TextView path, std::uint32_t access) = 0;
    /// Copies a value into `buffer`; nothing where it does not exist or does not fit.
    virtual std::optional<Value> query(Key key, TextView name, std::span<char16_t> buffer) = 0;
    virtual void close(Key key) = 0;
};

/// Reads the value `SubKeyRef` of the key `KeyName` under the root `KeyRoot` into `KeyVal`.
///
/// A value holds at most 1024 characters; where the last of them is a zero, it is dropped.
/// - String: `KeyVal` becomes the text.
/// - Number: the characters' codes, last character first, are APPENDED to `KeyVal` in hexadecimal,
///   each without leading zeros, and `KeyVal` becomes the number that the digits denote, in
///   decimal. (So the bytes 05 01 read 15 hexadecimal, 21: a number whose lower bytes are below 10
///   hexadecimal comes out wrong. No tool's path is a number.)
/// - Any other type: `KeyVal` stays as it was, and the result is true.
///
/// Result: whether there is such a value; false leaves `KeyVal` empty. A value of no characters and
/// digits that denote no number of 64 bits count as no value. The key is closed in every case.
bool GetKeyValue(ToolRegistry& registry, const std::uint32_t& KeyRoot, const Text& KeyName,
                 const Text& SubKeyRef, Text& KeyVal);

/// The full path of the machine's system-information tool: the value that names the tool itself, or
/// else the one that names its folder, if `fileExists` says that the tool is in there. Nothing
/// where neither leads to it.
std::optional<Text> systemInformationPath(ToolRegistry& registry,
                                          const std::function<bool(const Text&)>& fileExists);

} // namespace orbisgrid
