#pragma once

#include <qxTools/painting/Bitmap.h>

#include <string>

namespace qxTools::test {

/// The colours of pictures as text; digits stand for the pieces of frames.
struct Ink {
  char letter;
  TColor color;
};
constexpr Ink kInks[] = {
    {'.', 0x80FFFF},                                                     // the paper
    {'f', 0xC0C0C0}, {'w', 0xFFFFFF}, {'s', 0x808080}, {'d', 0x3F3F3F},  // face, highlight, shadow, dark grey
    {'k', 0x000000}, {'r', 0x0000FF}, {'g', 0x00FF00},                   //
    {'0', 0x100000}, {'1', 0x100001}, {'2', 0x100002}, {'3', 0x100003}, {'4', 0x100004},
    {'5', 0x100005}, {'6', 0x100006}, {'7', 0x100007}, {'8', 0x100008}, {'9', 0x100009},
};

inline TColor ColorOf(char letter) {
  for (const Ink& ink : kInks)
    if (ink.letter == letter) return ink.color;
  return 0x123456;
}

inline char LetterOf(TColor color) {
  for (const Ink& ink : kInks)
    if (ink.color == color) return ink.letter;
  return '?';
}

/// A bitmap filled with the paper's colour.
class Paper : public TBitmap {
 public:
  Paper(Integer width, Integer height) : TBitmap(width, height) {
    for (Integer y = 0; y < height; ++y)
      for (Integer x = 0; x < width; ++x) SetPixel(x, y, ColorOf('.'));
  }
};

/// The letters of the pixels, a line a row, each ended by a line break.
inline std::string TextOf(const TBitmap& bitmap) {
  std::string text;
  for (Integer y = 0; y < bitmap.GetHeight(); ++y) {
    for (Integer x = 0; x < bitmap.GetWidth(); ++x) text += LetterOf(bitmap.GetPixel(x, y));
    text += '\n';
  }
  return text;
}

/// Makes the bitmap the picture that `text` shows.
inline void Paint(TBitmap& bitmap, const std::string& text) {
  const std::size_t width = text.find('\n');
  bitmap.SetSize(static_cast<Integer>(width), static_cast<Integer>(text.size() / (width + 1)));
  for (std::size_t i = 0; i < text.size(); ++i)
    bitmap.SetPixel(static_cast<Integer>(i % (width + 1)), static_cast<Integer>(i / (width + 1)),
                    ColorOf(text[i]));
}

}  // namespace qxTools::test
