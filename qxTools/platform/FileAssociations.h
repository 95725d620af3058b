/// @file
/// File associations: which program opens the files of an extension, and what the desktop shows for them.
///
/// An association is published to the desktop of the current user, whole or not at all. Publishing it again
/// changes nothing, unless the desktop has learned of other types of its extensions since. On Linux it
/// becomes a MIME type, a desktop entry, an icon and a default application in the user's freedesktop folders.
#pragma once

#include <qxTools/Export.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools {

/// A file type and the program that opens it. Texts are code page 950; paths are file names.
struct FileAssociation {
  std::string name;  ///< The type's name. Two types are the same if their names differ in ASCII case only.
  std::vector<std::string> extensions;  ///< The extensions of its files, with their dots.
  std::string description;              ///< What the desktop shows.
  std::string program;                  ///< The program's path; a bare name is looked for in $PATH.
  std::string icon;                     ///< The path of a program or of a picture.
};

/// One change of what the desktop has stored.
struct PlannedChange {
  std::string place;                   ///< What changes. On Linux the absolute path of a file.
  std::optional<std::string> content;  ///< All of the new content; none if the place is to be removed.
};

/// Returns the name by which the desktop knows a type. Two type names have the same one only if they differ
/// in ASCII case alone. On Linux it is a MIME type: "application/x-qxtools-" and the type's name in lower
/// case, where bytes other than letters, digits, "." and "-" are written as _xx. A very long name becomes a
/// number.
QXTOOLS_API std::string AssociationId(std::string_view typeName);

/// Returns what publishing the association writes and removes. An association without a program or without an
/// extension removes everything. An extension counts if it begins with ".", is longer than that, and holds
/// no control byte, "/" or ":".
///
/// The program gets the file as one argument, whatever either is called. Its path may be code page 950 if it
/// is not UTF-8. If a picture is beside the program ("orders.svg" or "orders.png" for "orders" or
/// "orders.exe"), the first one found is the icon.
///
/// On Linux a type of an extension that the desktop knows already (".txt") becomes a kind of the desktop's
/// type; otherwise the desktop would go by what it finds in the file.
/// @throws EFOpenError or EReadError if what the desktop has stored cannot be read.
QXTOOLS_API std::vector<PlannedChange> PlannedChangesOf(const FileAssociation& association);

/// Returns true if the desktop has stored exactly what publishing the association would write; false also if
/// that cannot be read.
QXTOOLS_API bool IsAssociationPublished(const FileAssociation& association);

/// Makes the planned changes, all or none. Then has the desktop update its databases, if the programs for
/// that are in $PATH, and waits for them.
/// @return false if something cannot be read or written; the desktop has what it had before then.
QXTOOLS_API bool PublishAssociation(const FileAssociation& association);

}  // namespace qxTools
