// Text as the system's wide functions take and give it.
#pragma once

#include <string>
#include <string_view>

namespace qxTools {

/// Code page 950 as wide text; every byte comes back with FromWide.
std::wstring ToWide(std::string_view bytes);

/// Wide text as code page 950; a character that the page lacks becomes "?".
std::string FromWide(std::wstring_view text);

/// A file name for the system's functions: wide by the encoding that SetFileNameEncoding chose, and absolute
/// with the prefix of long paths where it would be too long otherwise. "" for a name that holds a NUL.
std::wstring WidePath(const std::string& fileName);

/// What the system says of an error of its functions, without the line break at the end. It goes into a
/// message beside a file name, so it has the encoding of file names.
std::string ReasonOf(unsigned long error);

}  // namespace qxTools
