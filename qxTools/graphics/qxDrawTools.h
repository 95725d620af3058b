/// @file
/// Rectangles and points; bevels, triangles, tabs and aligned text for owner-drawn controls; frames made of
/// nine bitmaps.
///
/// Coordinates are pixels and wrap at 32 bits. A bevel covers all four sides of its rectangle, so it is one
/// column and one row larger than a fill, which excludes the right column and the bottom row. Drawing
/// functions change the canvas's pen, brush and font colours and do not restore them. An option, direction or
/// alignment outside its enumeration changes and draws nothing, unless stated otherwise.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Bitmap.h>
#include <qxTools/painting/Screen.h>

#include <array>

namespace qxTools::qxDrawTools {

// --- Rectangles and points ---------------------------------------------------

/// The direction in which ResizeRect moves the sides: inwards or outwards.
enum TResizeRectOption : std::uint8_t { roIn, roOut };

/// A place in a rectangle: the side, then the place along that side. aeLeftTop is the left top corner.
enum TAlignmentEx : std::uint8_t {
  aeLeftTop,
  aeLeftCenter,
  aeLeftBottom,
  aeTopCenter,
  aeAllCenter,
  aeBottomCenter,
  aeRightTop,
  aeRightCenter,
  aeRightBottom
};

/// Returns true if the point is in the rectangle, all four edges included.
QXTOOLS_API bool PosInRect(const TPoint& pos, const TRect& rect);

/// Returns true if the point with 16-bit coordinates is in the rectangle, all four edges included.
QXTOOLS_API bool PosInRect(const TSmallPoint& pos, const TRect& rect);

/// Returns the rectangle with every side moved by `size` pixels, outwards (roOut) or inwards (roIn). The
/// result may be inverted. Any other option returns `rect`.
QXTOOLS_API TRect ResizeRect(const TRect& rect, Integer size, TResizeRectOption option);

/// Returns the rectangle moved by `dx` to the right and `dy` down.
QXTOOLS_API TRect OffsetRect(const TRect& rect, Integer dx, Integer dy);

/// Returns the smallest rectangle that contains both.
QXTOOLS_API TRect RectAdd(const TRect& a, const TRect& b);

/// Returns the sides as text: "Left:1, Top:2, Right:3, Bottom:4".
QXTOOLS_API std::string RectToStr(const TRect& rect);

/// Returns the left bottom corner of a window on the screen, where a drop-down opens. Returns (0, 0) if there
/// is no desktop or the window is unknown.
QXTOOLS_API TPoint GetControlPos(WindowHandle handle);

/// Moves the sides named by the alignment inwards: by `x` for left and right, by `y` for top and bottom; a
/// centred axis moves both sides in the same direction, right or down. On purpose: aeRightCenter moves Bottom
/// but not Top, unlike aeLeftCenter.
QXTOOLS_API TRect CropRect(const TRect& rect, TAlignmentEx alignment, Integer x, Integer y);

/// Returns the position of a popup, moved so that all of it is on the screen. A popup larger than the screen
/// extends beyond its left and top. Without a desktop, only negative coordinates change: they become 0.
QXTOOLS_API TPoint AdjustPos(const TPoint& pos, Integer width, Integer height);

// --- Numbers -----------------------------------------------------------------

/// Returns true if `value` is between the two bounds, both included; the bounds may be in either order.
QXTOOLS_API bool BetWeen(Integer value, Integer bound1, Integer bound2);

/// Returns `value` cut towards zero to a multiple of `step`: CutMod(17, 5) is 15. Returns 0 if either is 0.
/// @throws EIntOverflow if `value` is the lowest integer and `step` is -1.
QXTOOLS_API Integer CutMod(Integer value, Integer step);

/// Returns the number of pages that `count` items need with `size` items a page: InPage(11, 5) is 3. Returns
/// 0 if either is 0. On purpose: a negative count has no page that is only partly filled. InPage(-11, 5) is
/// -2.
/// @throws EIntOverflow if `count` is the lowest integer and `size` is -1.
QXTOOLS_API Integer InPage(Integer count, Integer size);

// --- Painting ----------------------------------------------------------------

/// Makes the bitmap an 8 x 8 checkerboard of white and `color`. The pixel (0, 0) is white.
QXTOOLS_API void CreateBrushPattern(TColor color, TBitmap& bitmap);

/// Draws a raised button: its face, and one ring of light and shadow, or two if `isDouble` is true.
QXTOOLS_API void DrawButton(TCanvas& canvas, const TRect& rect, bool isDouble);

/// Draws a sunken outline of one ring, or of two if `isDouble` is true.
QXTOOLS_API void DrawBox(TCanvas& canvas, const TRect& rect, bool isDouble);

/// Fills the rectangle with `color` and draws a DrawBox around it.
QXTOOLS_API void DrawFrame(TCanvas& canvas, const TRect& rect, bool isDouble, TColor color);

/// The direction in which a triangle points.
enum TDrawAngleType : std::uint8_t { daLeft, daTop, daRight, daBottom };

/// Draws a filled triangle that points in that direction. An unknown direction draws nothing.
QXTOOLS_API void Draw3Angle(TCanvas& canvas, const TRect& rect, TDrawAngleType direction, TColor color);

/// Draws text in the canvas's font, placed by the alignment and clipped to the rectangle. The background is
/// not painted, and the brush's style is unchanged. An alignment outside its enumeration means aeLeftTop.
QXTOOLS_API void DrawText(TCanvas& canvas, const TRect& rect, std::string_view text, TAlignmentEx alignment);

// What windows.h makes of a call of DrawText, with narrow and with wide characters as its default.
QXTOOLS_ON_WINDOWS(QXTOOLS_API void DrawTextA(TCanvas& canvas, const TRect& rect, std::string_view text,
                                              TAlignmentEx alignment);
                   QXTOOLS_API void DrawTextW(TCanvas& canvas, const TRect& rect, std::string_view text,
                                              TAlignmentEx alignment);)

/// Draws a tab with a black outline that hangs from the top edge; its lower corners are 6 pixels further in.
/// If `isPlain` is false, its right side has a notch and the right lower corner is not moved. The caption
/// starts 7 pixels from the left and 2 from the top.
QXTOOLS_API void DrawTabset(TCanvas& canvas, const TRect& rect, TColor color, TColor textColor,
                            std::string_view caption, bool isPlain);

// --- Frames of nine bitmaps --------------------------------------------------

/// The pieces of a frame, column by column: left top, left, left bottom, top, centre, bottom, right top,
/// right, right bottom. A piece may be empty.
using TFrameBitmaps = std::array<TBitmap, 9>;

/// Writes the sizes of the pieces to the frame file, and the pieces side by side to a bitmap file of the same
/// name with the extension ".bmp".
///
/// The frame file is opened (or created) first, so that if this fails nothing has been changed. Then the
/// bitmap file is written, whole or not at all, and last the first 76 bytes of the frame file in one write. A
/// crash between these two writes can leave a pair that does not match. If saving fails, a new frame file is
/// removed again. On purpose: bytes after the first 76 of an older, longer frame file are unchanged, and if
/// the name itself ends in ".bmp", only the bitmap file is written.
/// @throws EFOpenError, EFCreateError, EWriteError; std::bad_alloc.
QXTOOLS_API void SaveDWF(const std::string& fileName, const TFrameBitmaps& bitmaps);

/// Reads a pair of files that SaveDWF wrote. A recorded size below 0 counts as 0, and a piece with a side of
/// 0 is empty. A piece outside the bitmap keeps its recorded size; the missing part is white. If an exception
/// is thrown, all pieces are unchanged.
/// @throws Exception NAME " File not found!" if either file is missing; NAME " is a Draw of Frame(DW1) File."
/// if the frame file is not one (on purpose: the words say the opposite); NAME " is damaged." if a piece
/// outside the bitmap has more than 16,777,216 pixels; "Bitmap image is not valid".
/// @throws EReadError if the frame file is shorter than 76 bytes; EFOpenError; std::bad_alloc.
QXTOOLS_API void LoadDWF(const std::string& fileName, TFrameBitmaps& bitmaps);

/// Paints the pieces along the inside of a rectangle: the edges in tiles, then the corners over them. The
/// centre is not painted. On purpose: tile i (0-based, width w) of the top or bottom edge covers x from i*w +
/// left corner's width to (i+1)*w + right corner's width, so tiles are stretched if the two corners differ in
/// width.
QXTOOLS_API void DrawFrameWithBMP(TCanvas& canvas, const TRect& rect, const TFrameBitmaps& bitmaps);

}  // namespace qxTools::qxDrawTools
