/// @file
/// How file names are read: as the file system's bytes, or as text of an encoding; and their parts.
///
/// On Linux a file name is the file system's bytes, whatever the encoding is. On Windows it is text, and
/// opened by its wide form: in code page 950 like any other text, whatever the system's own code page, unless
/// the host chooses UTF-8.
#pragma once

#include <qxTools/Export.h>

#include <string>
#include <string_view>

namespace qxTools {

/// The encodings of file names.
enum TFileNameEncoding {
  feCodePage950,  ///< Code page 950, the encoding of all text.
  feUtf8          ///< UTF-8, which has a form for every name that the system allows.
};

/// Sets the encoding of all file names that the library is given from now on. It has no effect on Linux. Call
/// it before other threads use files.
/// @return the encoding before; at first it is feCodePage950.
QXTOOLS_API TFileNameEncoding SetFileNameEncoding(TFileNameEncoding encoding);

/// Returns the file name with `extension` (with its dot) in place of its own, or behind it if it has none:
/// FileNameWithExtension("a.b/c.dwf", ".bmp") is "a.b/c.bmp". The extension is what follows the last dot of
/// the name behind the last folder.
QXTOOLS_API std::string FileNameWithExtension(std::string_view fileName, std::string_view extension);

}  // namespace qxTools
