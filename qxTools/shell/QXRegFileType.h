/// @file
/// File types: double-clicking a file opens it with the host application and shows the application's icon.
///
/// A registration is five values in the classes root of the registry (platform/Registry.h); the desktop is
/// then told what is stored (platform/FileAssociations.h). Types and extensions are found whatever the case
/// of their ASCII letters; several extensions may share a type, and registering an extension again moves it.
///
/// A "\" parts the levels of a key, also as the second byte of a double-byte character.
///
/// For one thread at a time. Registering takes as long as the desktop's own update, up to about a second, and
/// grows linearly with the extensions that are registered.
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
  AnsiString Key;    ///< Its levels parted by "\".
  AnsiString Value;  ///< The text.
};

/// The values that RegFileType writes, in its order: the type name and the open command of the extension; the
/// description, the icon and the open command of the type. The open command is `appPath "%1"`.
/// On purpose: the command stands under the extension as well, and the path in it is not quoted.
QXTOOLS_API std::array<TFileTypeValue, 5> GetFileTypeValues(std::string_view ext, std::string_view typeName,
                                                            std::string_view appPath,
                                                            std::string_view description, Integer iconIndex);

/// Registers the type for the extension, which is taken as it is, with its dot. A key that can be neither
/// opened nor made is left out, the others are written, and nothing is reported. The desktop is told of
/// extensions that begin with "." (others only stand in the registry).
/// @throws EStreamError when a key does not take its value; those after it are not written then.
QXTOOLS_API void RegFileType(std::string_view ext, std::string_view typeName, std::string_view appPath,
                             std::string_view description, Integer iconIndex);

/// Takes the extension back, and its type with the last extension of it, in the registry and on the desktop.
/// @return false when the extension is not registered, or still is because its value cannot be removed.
QXTOOLS_API bool UnregFileType(std::string_view ext);

/// The extensions that are registered: the keys with a type name that begin with ".", sorted by their bytes.
QXTOOLS_API std::vector<AnsiString> GetFileTypeExtensions();

/// What the desktop is told of a type: its stored extensions, description (otherwise its name), program and
/// icon. Program and icon are the paths in the values; one that is quoted as a whole stands without its
/// quotes. Without a command of the type, that of its first extension counts.
QXTOOLS_API FileAssociation GetFileType(std::string_view typeName);

/// The same as it would be after RegFileType with these arguments. Nothing is stored.
QXTOOLS_API FileAssociation PlanFileType(std::string_view ext, std::string_view typeName,
                                         std::string_view appPath, std::string_view description,
                                         Integer iconIndex);

}  // namespace qxTools::QXRegFileType
