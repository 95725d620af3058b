// Text as the system's wide functions take it.
#pragma once

#include <qxTools/base/CodePage950.h>

#include <string>
#include <string_view>

namespace qxTools::desktop {

/// The wide form of text in code page 950, by the library's own table.
inline std::wstring ToWide(std::string_view text) {
  const WideString units = BytesToWide(text);
  return {units.begin(), units.end()};
}

}  // namespace qxTools::desktop
