#include "platform/per_user_store.h"

#include "platform/environment.h"
#include "platform/paths.h"
#include "platform/safe_file.h"
#include "settings/store_text.h"

#include <algorithm>
#include <utility>

namespace orbisgrid {

namespace {

/// The store's bytes; empty where there is no file yet; nothing where it cannot be read.
std::optional<std::string> contentOf(const std::string& path) {
    const std::optional<std::string> content = readFile(path);
    // Only what the system calls missing is: a question that fails is no answer, and a store that
    // is taken for empty would be written without the groups of others. A link that leads to no
    // file yet is no failure.
    return content || !isMissing(path) ? content : std::string();
}

} // namespace

PerUserStore::PerUserStore(std::string filePath)
    : m_filePath(std::move(filePath)) {}

std::string PerUserStore::defaultFilePath() {
    std::string folder = environmentVariable("XDG_CONFIG_HOME");
    // A relative one would name another store in every working folder; the XDG base directory
    // rules call it invalid and to be ignored.
    if (folder.empty() || folder.front() != '/')
        folder = environmentVariable("HOME") + "/.config";
    return cleanPath(absolutePath(folder + '/' + toUtf8(settingsApplication) + ".ini"));
}

std::optional<Text> PerUserStore::read(TextView key, TextView defaultValue) const {
    const std::optional<std::string> content = contentOf(m_filePath);
    if (!content)
        return std::nullopt;
    return storedValue(*content, key).value_or(Text(defaultValue));
}

bool PerUserStore::write(const std::vector<Setting>& settings) {
    if (!provideFolder(parentFolder(m_filePath)))
        return false;
    const std::optional<std::string> content = contentOf(m_filePath);
    if (!content)
        return false;
    const bool holdsThem = std::all_of(settings.begin(), settings.end(), [&](const Setting& one) {
        return storedValue(*content, one.key) == one.value;
    });
    if (holdsThem)
        return isSavable(m_filePath);
    // Not flushed: every start writes here before its window shows, and what a loss of power could
    // take is a count of starts.
    return saveFile(m_filePath, withStoredValues(*content, settings), Flush::later);
}

} // namespace orbisgrid
