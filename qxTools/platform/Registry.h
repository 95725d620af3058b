/// @file
/// The classes root of the registry: keys, each with one unnamed value.
///
/// A key is named by its levels, parted by "\"; empty levels are left out, so a leading "\" may stand or not.
/// Keys are found whatever the case of their ASCII letters and keep the case that they were made with. Values
/// are bytes and come back as they were written.
///
/// On Linux a level is a folder under "qxTools/classes" in the user's data folder ($XDG_DATA_HOME, otherwise
/// ~/.local/share), and the value is the file "%default" in it. "/", "%" and control bytes in a level, and
/// the levels "." and "..", stand as %XX. Without a data folder no key can be opened or made.
///
/// Finding a key is linear in the number of its neighbours.
#pragma once

#include <qxTools/Export.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools {

/// Writes the value of a key, which is made where it is missing.
/// @return false when the key can neither be opened for writing nor made.
/// @throws EStreamError when the key is there and does not take the value; the old value stays.
QXTOOLS_API bool WriteClassesValue(std::string_view key, std::string_view value);

/// The value of a key; none when the key or its value is missing or cannot be read.
QXTOOLS_API std::optional<std::string> ReadClassesValue(std::string_view key);

/// Removes the value of a key, then the key and those above it as far as they hold nothing else.
QXTOOLS_API void DeleteClassesValue(std::string_view key);

/// The keys of the first level, sorted by their bytes.
QXTOOLS_API std::vector<std::string> ReadClassesKeys();

}  // namespace qxTools
