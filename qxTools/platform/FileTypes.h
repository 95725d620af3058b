/// @file
/// File types as the desktop knows them: which program opens the files of an extension, and how they look.
///
/// On Linux a file type is a MIME type of its own, published in the user's data and configuration folders:
/// its package with a glob for each extension, a desktop entry for the program, an icon where a picture
/// stands beside it, and the default application. What is published depends on the type and the picture
/// alone, so publishing again changes nothing.
#pragma once

#include <qxTools/Export.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools {

/// A file type. Texts are code page 950, paths are the file system's bytes.
struct FileType {
  std::string name;                     ///< Types are the same when their names differ in ASCII case only.
  std::vector<std::string> extensions;  ///< With their dots.
  std::string description;              ///< What the desktop shows.
  std::string program;                  ///< Its path; a bare name is looked for in $PATH.
  std::string icon;                     ///< A program or a picture.
};

/// A file as it shall be for the desktop; one without bytes shall not be there.
struct DesktopFile {
  std::string path;                  ///< Absolute.
  std::optional<std::string> bytes;  ///< The whole file.
};

/// The MIME type of a file type: "application/x-qxtools-" and its name in lower case, where bytes other than
/// letters, digits, "." and "-" stand as _xx; a very long name is a number instead.
QXTOOLS_API std::string MimeTypeOf(std::string_view typeName);

/// The files that publishing the type writes and removes. A type without a program or without an extension
/// has none: all of its files go. An extension counts when it begins with ".", goes on, and holds no control
/// byte, "/" or ":".
///
/// The program gets the file as one argument, whatever either is called. Its path may be code page 950 where
/// it is no UTF-8. Of a picture beside the program, "orders.svg" or "orders.png" for "orders" or
/// "orders.exe", the first one found is the icon.
QXTOOLS_API std::vector<DesktopFile> DesktopFilesOf(const FileType& type);

/// Writes and removes the files, then runs update-mime-database and update-desktop-database where they are in
/// $PATH, and waits for both. Raises nothing: what cannot be written is left out.
QXTOOLS_API void PublishFileType(const FileType& type);

}  // namespace qxTools
