#pragma once

#include "settings/settings_store.h"

#include <map>

namespace orbisgrid::test {

/// A settings store that remembers what was asked of it and fails when told to.
class MemoryStore : public SettingsStore {
public:
    std::map<Text, Text> values;
    std::vector<Text> keysInOrder; ///< every key written, in the order of writing
    bool isReadable = true;
    bool isWritable = true;

    std::optional<Text> read(TextView key, TextView defaultValue) const override {
        if (!isReadable)
            return std::nullopt;
        const auto found = values.find(Text(key));
        return found == values.end() ? Text(defaultValue) : found->second;
    }

    bool write(const std::vector<Setting>& settings) override {
        if (!isWritable)
            return false;
        for (const Setting& setting : settings) {
            values[setting.key] = setting.value;
            keysInOrder.push_back(setting.key);
        }
        return true;
    }
};

} // namespace orbisgrid::test
