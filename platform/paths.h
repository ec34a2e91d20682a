#pragma once

#include <string>

namespace orbisgrid {

/// `path` seen from the root; a relative one counts from the current folder. Links and ".." stay.
/// Where there is no current folder a relative path stays what it is.
std::string absolutePath(const std::string& path);

/// `path` without empty parts, "." and "..", which takes the part in front of it along. Links are
/// not looked at. `path` begins at the root.
std::string cleanPath(const std::string& path);

/// The folder that a path leads to, without a separator at its end except at the root; empty for a
/// name alone.
std::string parentFolder(const std::string& path);

/// What a link leads to, as it stands in the link; empty where `path` is none.
std::string linkTarget(const std::string& path);

/// Makes a folder and those above it that are missing; what is new is its owner's alone. Result:
/// whether the folder is there.
bool provideFolder(const std::string& path);

} // namespace orbisgrid
