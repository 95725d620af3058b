/// @file
/// The classes root of the registry: keys, each with one unnamed value.
///
/// A key is named by its levels, separated by "\". Empty levels are left out, so a leading "\" is optional.
/// Keys are found whatever the case of their ASCII letters and keep the case that they were made with. Values
/// are bytes and are returned as they were written.
///
/// On Linux a level is a folder under "qxTools/classes" in the user's data folder ($XDG_DATA_HOME, otherwise
/// ~/.local/share), and the value is the file "%default" in it. "/", "%" and control bytes in a level, and
/// the levels "." and "..", are written as %XX. Without a data folder no key can be opened or made.
///
/// Finding a key is linear in the number of its neighbours.
#pragma once

#include <qxTools/Export.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools {

/// Writes the value of a key, and makes the key if it is missing.
/// @return false if the key can neither be opened for writing nor made.
/// @throws EStreamError if the key exists and does not take the value; the old value is kept then.
QXTOOLS_API bool WriteClassesValue(std::string_view key, std::string_view value);

/// Returns the value of a key, or none if the key or its value does not exist.
/// @throws EFOpenError or EReadError if the value exists and cannot be read.
QXTOOLS_API std::optional<std::string> ReadClassesValue(std::string_view key);

/// Removes the value of a key, then the key and those above it as long as they hold nothing else. What cannot
/// be removed is unchanged.
/// @throws EFOpenError if the neighbours of the key cannot be read.
QXTOOLS_API void DeleteClassesValue(std::string_view key);

/// Returns the keys of the first level, sorted by their bytes.
/// @throws EFOpenError if they cannot be read.
QXTOOLS_API std::vector<std::string> ReadClassesKeys();

}  // namespace qxTools
