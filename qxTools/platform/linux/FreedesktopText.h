// Text in the forms that the desktop's files have.
#pragma once

#include <string>
#include <string_view>

namespace qxTools {

/// Text with blanks for its control bytes.
std::string OneLine(std::string_view text);

/// A path as UTF-8: unchanged if it is UTF-8, otherwise read as code page 950.
std::string DesktopPath(std::string_view path);

/// UTF-8 inside an XML element or attribute.
std::string XmlText(std::string_view text);

/// UTF-8 as a value of a key file.
std::string KeyFileText(std::string_view text);

/// An extension as a glob that matches nothing but itself at the end of a name.
std::string GlobOf(std::string_view extension);

/// The Exec line of a program that gets one file.
std::string ExecLine(const std::string& program);

/// A list of default applications with the one of `mimeType` set, or removed if `entry` is "". Every other
/// byte is unchanged.
std::string WithDefault(std::string_view list, std::string_view mimeType, std::string_view entry);

}  // namespace qxTools
