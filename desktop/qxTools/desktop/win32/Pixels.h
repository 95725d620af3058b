// The library's pixels as GDI takes them.
#pragma once

#include <qxTools/base/Types.h>
#include <windows.h>

namespace qxTools::desktop {

/// Describes rows of 32-bit pixels, the top one first.
inline BITMAPINFO PixelsOf(Integer width, Integer height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

}  // namespace qxTools::desktop
