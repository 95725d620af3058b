/// @file
/// Rectangles and points, bevels, triangles, tabs and aligned text for owner-drawn controls, and frames made
/// of nine bitmaps.
///
/// Coordinates are pixels and wrap at 32 bits. Bevels lie on all four sides of their rectangle, so they cover
/// one column and one row more than a fill, which leaves the right and bottom ones out. What paints leaves
/// the colours of pen, brush and font behind that it used last. An option, direction or alignment outside its
/// enumeration changes and draws nothing, unless something else is said.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Bitmap.h>
#include <qxTools/painting/Screen.h>

#include <array>

namespace qxTools::qxDrawTools {

// --- Rectangles and points ---------------------------------------------------

/// Inwards or outwards.
enum TResizeRectOption : std::uint8_t { roIn, roOut };

/// Places in a rectangle: the side or corner, then the place along it.
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

/// Whether the point lies in the rectangle, all four edges included.
QXTOOLS_API bool PosInRect(const TPoint& pos, const TRect& rect);
QXTOOLS_API bool PosInRect(const TSmallPoint& pos, const TRect& rect);

/// Every side moved by `size`, outwards (roOut) or inwards (roIn). The result may be inverted.
QXTOOLS_API TRect ResizeRect(const TRect& rect, Integer size, TResizeRectOption option);

/// The rectangle moved.
QXTOOLS_API TRect OffsetRect(const TRect& rect, Integer dx, Integer dy);

/// The smallest rectangle around both.
QXTOOLS_API TRect RectAdd(const TRect& a, const TRect& b);

/// "Left:1, Top:2, Right:3, Bottom:4".
QXTOOLS_API std::string RectToStr(const TRect& rect);

/// The left and bottom edge of a window on the screen: where a drop-down opens. (0, 0) without a desktop, and
/// for an unknown window.
QXTOOLS_API TPoint GetControlPos(WindowHandle handle);

/// Moves the sides that the alignment names, inwards or along, by `x` and `y`.
/// On purpose: aeRightCenter moves Bottom but not Top, unlike aeLeftCenter.
QXTOOLS_API TRect CropRect(const TRect& rect, TAlignmentEx alignment, Integer x, Integer y);

/// The place of a popup, moved so that it stays on the screen; one larger than the screen sticks out at the
/// left and top. Without a desktop the screen has no limit.
QXTOOLS_API TPoint AdjustPos(const TPoint& pos, Integer width, Integer height);

// --- Numbers -----------------------------------------------------------------

/// Whether `value` lies between the two bounds, both included, whichever is the larger.
QXTOOLS_API bool BetWeen(Integer value, Integer bound1, Integer bound2);

/// `value` cut towards zero to a multiple of `step`; 0 when either is 0.
/// @throws EIntOverflow for the lowest integer and -1.
QXTOOLS_API Integer CutMod(Integer value, Integer step);

/// The pages of `size` that `count` fills, a last one that is not full included; 0 when either is 0.
/// On purpose: a negative count has no such last page.
/// @throws EIntOverflow for the lowest integer and -1.
QXTOOLS_API Integer InPage(Integer count, Integer size);

// --- Painting ----------------------------------------------------------------

/// Makes the bitmap an 8 x 8 checkerboard of white, at (0, 0) too, and `color`.
QXTOOLS_API void CreateBrushPattern(TColor color, TBitmap& bitmap);

/// A raised button: its face, and one or two rings of light and shadow.
QXTOOLS_API void DrawButton(TCanvas& canvas, const TRect& rect, bool isDouble);

/// A sunken outline of one or two rings.
QXTOOLS_API void DrawBox(TCanvas& canvas, const TRect& rect, bool isDouble);

/// A filled rectangle inside a DrawBox.
QXTOOLS_API void DrawFrame(TCanvas& canvas, const TRect& rect, bool isDouble, TColor color);

/// Directions of a triangle.
enum TDrawAngleType : std::uint8_t { daLeft, daTop, daRight, daBottom };

/// A filled triangle that points in that direction.
QXTOOLS_API void Draw3Angle(TCanvas& canvas, const TRect& rect, TDrawAngleType direction, TColor color);

/// Text in the canvas's font, placed by the alignment and clipped to the rectangle; the background shows
/// through and the brush's style stays. An alignment outside its enumeration places it at the left top.
QXTOOLS_API void DrawText(TCanvas& canvas, const TRect& rect, std::string_view text, TAlignmentEx alignment);

/// A tab with a black outline that hangs from the top edge, its lower corners drawn in by 6 pixels; unless
/// `isPlain`, its right side is notched. The caption starts 7 pixels from the left and 2 from the top.
QXTOOLS_API void DrawTabset(TCanvas& canvas, const TRect& rect, TColor color, TColor textColor,
                            std::string_view caption, bool isPlain);

// --- Frames of nine bitmaps --------------------------------------------------

/// The pieces of a frame, column by column: top left, left, bottom left, top, centre, bottom, top right,
/// right, bottom right. A piece may be empty.
using TFrameBitmaps = std::array<TBitmap, 9>;

/// Writes the sizes of the pieces into the frame file and the pieces, side by side, into a bitmap file of the
/// same name with the extension ".bmp".
///
/// The frame file is opened, or made, first, so that what is wrong with it changes nothing. Then the bitmap
/// file is written, whole or not at all, and last the first 76 bytes of the frame file in one write: a crash
/// can leave a pair that does not match only between these two. A new frame file is removed again when saving
/// fails. On purpose: what an older, longer frame file has behind the 76 bytes stays, and a frame file that
/// itself ends in ".bmp" ends up as the bitmap file.
/// @throws EFOpenError, EFCreateError, EWriteError; std::bad_alloc.
QXTOOLS_API void SaveDWF(const std::string& fileName, const TFrameBitmaps& bitmaps);

/// Reads what SaveDWF wrote. A recorded size below 0 counts as 0, and a piece with a side of 0 is empty. A
/// piece that the bitmap file does not cover keeps its recorded size, white where nothing is.
/// @throws Exception with no piece touched: NAME " File not found!" for either file; NAME " is a Draw of
/// Frame(DW1) File." when the frame file is none (on purpose: the words say the opposite); NAME " is
/// damaged." when a piece that is not covered has more than 16,777,216 pixels; "Bitmap image is not valid".
/// @throws EReadError for a frame file below 76 bytes, EFOpenError; std::bad_alloc. No piece is touched then.
QXTOOLS_API void LoadDWF(const std::string& fileName, TFrameBitmaps& bitmaps);

/// Paints the pieces around the inside of a rectangle: edges in tiles, then the corners over them. The centre
/// is not painted. On purpose: a tile of the top or bottom edge starts by the left corner's width and ends by
/// the right corner's, so it is stretched where these differ.
QXTOOLS_API void DrawFrameWithBMP(TCanvas& canvas, const TRect& rect, const TFrameBitmaps& bitmaps);

}  // namespace qxTools::qxDrawTools
