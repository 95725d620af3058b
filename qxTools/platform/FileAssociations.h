/// @file
/// File associations: which program opens the files of an extension, and what the desktop shows for them.
///
/// An association is published to the desktop of the current user. What is published depends on the
/// association alone, so publishing it again changes nothing. On Linux it becomes a MIME type, a desktop
/// entry, an icon and a default application in the user's freedesktop folders.
#pragma once

#include <qxTools/Export.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools {

/// A file type and the program that opens it. Texts are code page 950; paths are the file system's bytes.
struct FileAssociation {
  std::string name;                     ///< Types are the same when their names differ in ASCII case only.
  std::vector<std::string> extensions;  ///< With their dots.
  std::string description;              ///< What the desktop shows.
  std::string program;                  ///< Its path; a bare name is looked for in $PATH.
  std::string icon;                     ///< A program or a picture.
};

/// One change of what the desktop has stored: the new content of a place, or none where the place is to be
/// removed.
struct PlannedChange {
  std::string place;                   ///< On Linux the absolute path of a file.
  std::optional<std::string> content;  ///< All of it.
};

/// The name by which the desktop knows a type; two type names have the same one only when they differ in
/// ASCII case alone. On Linux it is a MIME type: "application/x-qxtools-" and the type's name in lower case,
/// where bytes other than letters, digits, "." and "-" are written as _xx. A very long name becomes a number.
QXTOOLS_API std::string AssociationId(std::string_view typeName);

/// What publishing the association writes and removes. An association without a program or without an
/// extension removes everything. An extension counts when it begins with ".", is longer than that, and holds
/// no control byte, "/" or ":".
///
/// The program gets the file as one argument, whatever either is called. Its path may be code page 950 where
/// it is not UTF-8. If a picture is beside the program ("orders.svg" or "orders.png" for "orders" or
/// "orders.exe"), the first one found is the icon.
QXTOOLS_API std::vector<PlannedChange> PlannedChangesOf(const FileAssociation& association);

/// Makes the planned changes, has the desktop update its databases where the programs for it are in $PATH,
/// and waits for that. Throws nothing: what cannot be written is left out.
QXTOOLS_API void PublishAssociation(const FileAssociation& association);

}  // namespace qxTools
