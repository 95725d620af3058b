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
QXTOOLS_API bool PosInRect(const TPoint& Pos, const TRect& Rect);
QXTOOLS_API bool PosInRect(const TSmallPoint& Pos, const TRect& Rect);

/// Every side moved by `Size`, outwards (roOut) or inwards (roIn). The result may be inverted.
QXTOOLS_API TRect ResizeRect(const TRect& Rect, Integer Size, TResizeRectOption Option);

/// The rectangle moved.
QXTOOLS_API TRect OffsetRect(const TRect& Rect, Integer Dx, Integer Dy);

/// The smallest rectangle around both.
QXTOOLS_API TRect RectAdd(const TRect& A, const TRect& B);

/// "Left:1, Top:2, Right:3, Bottom:4".
QXTOOLS_API std::string RectToStr(const TRect& Rect);

/// The left and bottom edge of a window on the screen: where a drop-down opens. (0, 0) without a desktop, and
/// for an unknown window.
QXTOOLS_API TPoint GetControlPos(WindowHandle Handle);

/// Moves the sides that the alignment names, inwards or along, by `X` and `Y`.
/// On purpose: aeRightCenter moves Bottom but not Top, unlike aeLeftCenter.
QXTOOLS_API TRect CropRect(const TRect& Rect, TAlignmentEx Alignment, Integer X, Integer Y);

/// The place of a popup, moved so that it stays on the screen; one larger than the screen sticks out at the
/// left and top. Without a desktop the screen has no limit.
QXTOOLS_API TPoint AdjustPos(const TPoint& Pos, Integer Width, Integer Height);

// --- Numbers -----------------------------------------------------------------

/// Whether `Value` lies between the two bounds, both included, whichever is the larger.
QXTOOLS_API bool BetWeen(Integer Value, Integer Bound1, Integer Bound2);

/// `Value` cut towards zero to a multiple of `Step`; 0 when either is 0.
/// @throws EIntOverflow for the lowest integer and -1.
QXTOOLS_API Integer CutMod(Integer Value, Integer Step);

/// The pages of `Size` that `Count` fills, a last one that is not full included; 0 when either is 0.
/// On purpose: a negative count has no such last page.
/// @throws EIntOverflow for the lowest integer and -1.
QXTOOLS_API Integer InPage(Integer Count, Integer Size);

// --- Painting ----------------------------------------------------------------

/// Makes the bitmap an 8 x 8 checkerboard of white, at (0, 0) too, and `Color`.
QXTOOLS_API void CreateBrushPattern(TColor Color, TBitmap& Bitmap);

/// A raised button: its face, and one or two rings of light and shadow.
QXTOOLS_API void DrawButton(TCanvas& Canvas, const TRect& Rect, bool Double);

/// A sunken outline of one or two rings.
QXTOOLS_API void DrawBox(TCanvas& Canvas, const TRect& Rect, bool Double);

/// A filled rectangle inside a DrawBox.
QXTOOLS_API void DrawFrame(TCanvas& Canvas, const TRect& Rect, bool Double, TColor Color);

/// Directions of a triangle.
enum TDrawAngleType : std::uint8_t { daLeft, daTop, daRight, daBottom };

/// A filled triangle that points in that direction.
QXTOOLS_API void Draw3Angle(TCanvas& Canvas, const TRect& Rect, TDrawAngleType Direction, TColor Color);

/// Text in the canvas's font, placed by the alignment and clipped to the rectangle; the background shows
/// through and the brush's style stays. An alignment outside its enumeration places it at the left top.
QXTOOLS_API void DrawText(TCanvas& Canvas, const TRect& Rect, std::string_view Text, TAlignmentEx Alignment);

/// A tab with a black outline that hangs from the top edge, its lower corners drawn in by 6 pixels; unless
/// `Plain`, its right side is notched. The caption starts 7 pixels from the left and 2 from the top.
QXTOOLS_API void DrawTabset(TCanvas& Canvas, const TRect& Rect, TColor Color, TColor TextColor,
                            std::string_view Caption, bool Plain);

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
QXTOOLS_API void SaveDWF(const std::string& FileName, const TFrameBitmaps& Bitmaps);

/// Reads what SaveDWF wrote. A recorded size below 0 counts as 0, and a piece with a side of 0 is empty. A
/// piece that the bitmap file does not cover keeps its recorded size, white where nothing is.
/// @throws Exception with no piece touched: NAME " File not found!" for either file; NAME " is a Draw of
/// Frame(DW1) File." when the frame file is none (on purpose: the words say the opposite); NAME " is
/// damaged." when a piece that is not covered has more than 16,777,216 pixels; "Bitmap image is not valid".
/// @throws EReadError for a frame file below 76 bytes, EFOpenError; std::bad_alloc. No piece is touched then.
QXTOOLS_API void LoadDWF(const std::string& FileName, TFrameBitmaps& Bitmaps);

/// Paints the pieces around the inside of a rectangle: edges in tiles, then the corners over them. The centre
/// is not painted. On purpose: a tile of the top or bottom edge starts by the left corner's width and ends by
/// the right corner's, so it is stretched where these differ.
QXTOOLS_API void DrawFrameWithBMP(TCanvas& Canvas, const TRect& Rect, const TFrameBitmaps& Bitmaps);

}  // namespace qxTools::qxDrawTools
