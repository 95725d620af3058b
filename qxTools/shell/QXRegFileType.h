/// @file
/// File types: double-clicking a file opens it with the host application and shows the application's icon.
///
/// A registration is five values in the classes root of the registry (platform/Registry.h). What is stored is
/// then published to the desktop (platform/FileAssociations.h). Types and extensions are found whatever the
/// case of their ASCII letters; several extensions may share a type, and registering an extension again moves
/// it to the new type.
///
/// A "\" separates the levels of a key, also as the second byte of a double-byte character.
///
/// For one thread at a time. Registering takes as long as the desktop's own update, up to about a second, and
/// grows linearly with the number of registered extensions.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>
#include <qxTools/platform/FileAssociations.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools::QXRegFileType {

/// A key of the classes root and its value.
struct TFileTypeValue {
  AnsiString Key;    ///< The levels of the key, separated by "\".
  AnsiString Value;  ///< The value, a text.
};

/// Returns the values that RegFileType writes, in its order: the type name and the open command of the
/// extension; the description, the icon and the open command of the type. The open command is
/// `appPath "%1"`, the icon `appPath,iconIndex`.
/// On purpose: the command is stored under the extension as well, and the path in it is not quoted.
QXTOOLS_API std::array<TFileTypeValue, 5> GetFileTypeValues(std::string_view ext, std::string_view typeName,
                                                            std::string_view appPath,
                                                            std::string_view description, Integer iconIndex);

/// Registers the type for the extension, which is taken as it is, with its dot. A key that can be neither
/// opened nor made is left out, the others are written, and nothing is reported. Then the type is published
/// to the desktop if all five values are stored and the extension begins with ".", whole or not at all: what
/// cannot be read or written leaves the desktop as it was, which is not reported either. A host that wants to
/// know asks IsAssociationPublished(GetFileType(typeName)).
/// @throws EStreamError if the extension's old type cannot be read, or if a key does not take its value; the
/// values after that one are not written then.
QXTOOLS_API void RegFileType(std::string_view ext, std::string_view typeName, std::string_view appPath,
                             std::string_view description, Integer iconIndex);

/// Removes the extension, and its type with the last extension of it, from the registry and from the desktop.
/// @return false if the extension is not registered, or still is because its value cannot be removed.
/// @throws EStreamError if the registration cannot be read.
QXTOOLS_API bool UnregFileType(std::string_view ext);

/// Returns the registered extensions: the keys that begin with "." and have a type name, sorted by their
/// bytes.
/// @throws EStreamError if the registry cannot be read.
QXTOOLS_API std::vector<AnsiString> GetFileTypeExtensions();

/// Returns what is published of a type: its stored extensions, description (its name, if it has none),
/// program and icon. Program and icon are the paths in the values; a path that is quoted as a whole is
/// returned without its quotes. If the type has no command, that of its first extension counts.
/// @throws EStreamError if the registry cannot be read.
QXTOOLS_API FileAssociation GetFileType(std::string_view typeName);

/// Returns what GetFileType would return after RegFileType with these arguments. Nothing is stored.
/// @throws EStreamError if the registry cannot be read.
QXTOOLS_API FileAssociation PlanFileType(std::string_view ext, std::string_view typeName,
                                         std::string_view appPath, std::string_view description,
                                         Integer iconIndex);

}  // namespace qxTools::QXRegFileType
