// Windows INI files, from and to settings files.
//
// A section of a Windows INI file has one list of values, so it is a section with one record:
//
//     [Main]          Main:[%RootKey%]
//     Mode=fast       [%
//                       Mode:fast
//                     %]
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace qxtool {

/// Called with the number of a line, from 1, and what is wrong with it.
using OnLine = std::function<void(int line, const std::string& what)>;

/// A Windows INI text as the text of a settings file. As Windows reads it: of equal names the first counts,
/// and quotes around a text are removed. Each line that has no place in a settings file is reported.
std::string SettingsFromWindowsIni(std::string_view text, const OnLine& report);

/// Called with a place in a settings file and what is wrong with it.
using OnPlace = std::function<void(const std::string& place, const std::string& what)>;

/// The text of a settings file as a Windows INI text, which SettingsFromWindowsIni reads again. What has no
/// place in one is reported.
/// @throws qxTools::qxIniTools::EIniLoadError
std::string WindowsIniFromSettings(std::string_view text, const OnPlace& report);

}  // namespace qxtool
