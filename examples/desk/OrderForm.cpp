#include "OrderForm.h"

#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/calendar/QXToDigit.h>
#include <qxTools/painting/SystemColors.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/shell/QXDialogs.h>

#include "Skin.h"
#include "Texts.h"

namespace desk {

using namespace qxTools;
using namespace qxTools::qxDrawTools;

namespace {

constexpr TColor kWhite = 0xFFFFFF;
constexpr TColor kBlack = 0;
constexpr TColor kInk = 0x602010;     // dark blue
constexpr TColor kBanner = 0x804020;  // blue
constexpr TColor kStripe = 0xFBF3EC;  // a hint of blue

constexpr TRect kLinesBox{22, 142, 758, 318};
constexpr TRect kSheetTabs[] = {{34, 319, 144, 345}, {148, 319, 258, 345}, {262, 319, 348, 345}};
constexpr const char* kSheetNames[] = {kLines, kDeliveries, kMore};
constexpr TRect kSaveButton{562, 534, 650, 566};
constexpr TRect kCloseButton{668, 534, 756, 566};

/// The order's date; fixed, so that the picture is the same every day.
TDateTime Ordered() { return EncodeDate(2024, 3, 5); }

void Write(TCanvas& canvas, const TRect& rect, std::string_view text, TAlignmentEx alignment, TColor color) {
  canvas.SetFontColor(color);
  DrawText(canvas, rect, text, alignment);
}

void PaintButton(TCanvas& canvas, const TRect& rect, std::string_view text, bool twice) {
  DrawButton(canvas, rect, twice);
  Write(canvas, rect, text, aeAllCenter, kBlack);
}

void PaintArrowButton(TCanvas& canvas, const TRect& rect, TDrawAngleType direction) {
  DrawButton(canvas, rect, true);
  const Integer inX = (rect.Right - rect.Left - 8) / 2;
  const Integer inY = (rect.Bottom - rect.Top - 8) / 2;
  const TRect arrow{rect.Left + inX, rect.Top + inY, rect.Left + inX + 8, rect.Top + inY + 8};
  Draw3Angle(canvas, arrow, direction, kBlack);
}

void PaintBanner(TCanvas& canvas, const OrderForm::SetLargeText& setLargeText) {
  constexpr TRect kRect{22, 22, 758, 60};
  DrawFrame(canvas, kRect, false, kBanner);
  const TRect inside = ResizeRect(kRect, 10, roIn);
  setLargeText(true);
  Write(canvas, {inside.Left, kRect.Top, inside.Right, kRect.Bottom}, kTitle, aeLeftCenter, kWhite);
  setLargeText(false);
  const std::string date = QXDateTools::ChinaDate(Ordered()) + "  " + QXDateTools::ChinaWeek(Ordered());
  Write(canvas, inside, date, aeRightCenter, kWhite);
}

void PaintField(TCanvas& canvas, Integer left, Integer top, const char* label, std::string_view text,
                bool list) {
  const TRect box{left + 78, top, left + 358, top + 26};
  Write(canvas, {left, top, left + 70, top + 27}, label, aeRightCenter, kBlack);
  DrawFrame(canvas, box, true, kWhite);
  Write(canvas, {box.Left + 8, box.Top + 2, box.Right - 24, box.Bottom - 1}, text, aeLeftCenter, kInk);
  if (list) PaintArrowButton(canvas, {box.Right - 22, box.Top + 2, box.Right - 2, box.Bottom - 2}, daBottom);
}

void PaintFields(TCanvas& canvas) {
  PaintField(canvas, 22, 70, kOrderNumber, "A2403-0017", false);
  PaintField(canvas, 400, 70, kOrderDate, QXDateTools::ChinaDate(Ordered()), false);
  PaintField(canvas, 22, 106, kCustomerName, kCustomer, true);
  PaintField(canvas, 400, 106, kDeliveryDate, QXDateTools::ChinaDate(QXDateTools::DateAdd(Ordered(), 14)),
             true);
}

// --- The order's lines -------------------------------------------------------

struct Column {
  Integer left;
  Integer right;
  const char* name;
  TAlignmentEx alignment;
};

constexpr Column kColumns[] = {
    {24, 360, kGoods, aeLeftCenter},
    {361, 480, kCount, aeRightCenter},
    {481, 600, kPrice, aeRightCenter},
    {601, 736, kAmount, aeRightCenter},
};

constexpr Integer kRowHeight = 24;

TRect CellOf(const Column& column, Integer row) {
  const Integer top = kLinesBox.Top + 2 + row * kRowHeight;
  return {column.left, top, column.right, top + kRowHeight};
}

void PaintRow(TCanvas& canvas, Integer row, const OrderLine& line) {
  const std::string cells[] = {line.goods, std::to_string(line.count), std::to_string(line.price),
                               QXToDigit::ToKiloBit(std::to_string(line.count * line.price))};
  for (std::size_t i = 0; i < std::size(cells); ++i) {
    const TRect cell = CellOf(kColumns[i], row);
    canvas.SetBrushColor(row % 2 == 0 ? kStripe : kWhite);
    canvas.FillRect({cell.Left, cell.Top, cell.Right + 1, cell.Bottom});
    Write(canvas, {cell.Left + 8, cell.Top, cell.Right - 8, cell.Bottom}, cells[i], kColumns[i].alignment,
          kBlack);
  }
}

void PaintScrollBar(TCanvas& canvas, const TRect& rect) {
  const Integer side = rect.Right - rect.Left;
  TBitmap pattern;
  CreateBrushPattern(ColorToRGB(clBtnFace), pattern);
  for (Integer y = rect.Top; y < rect.Bottom; y += 8)
    for (Integer x = rect.Left; x < rect.Right; x += 8) {
      const Integer width = std::min(8, rect.Right + 1 - x);
      const Integer height = std::min(8, rect.Bottom - y);
      canvas.CopyRect({x, y, x + width, y + height}, pattern, {0, 0, width, height});
    }
  PaintArrowButton(canvas, {rect.Left, rect.Top, rect.Right, rect.Top + side}, daTop);
  DrawButton(canvas, {rect.Left, rect.Top + side + 1, rect.Right, rect.Top + 4 * side}, true);
  PaintArrowButton(canvas, {rect.Left, rect.Bottom - side, rect.Right, rect.Bottom}, daBottom);
}

void PaintLines(TCanvas& canvas) {
  DrawFrame(canvas, kLinesBox, true, kWhite);
  for (const Column& column : kColumns) PaintButton(canvas, CellOf(column, 0), column.name, false);
  for (Integer row = 0; row < static_cast<Integer>(std::size(kOrderLines)); ++row)
    PaintRow(canvas, row + 1, kOrderLines[row]);
  PaintScrollBar(canvas,
                 {kLinesBox.Right - 20, kLinesBox.Top + 2, kLinesBox.Right - 2, kLinesBox.Bottom - 2});
}

void PaintTotal(TCanvas& canvas) {
  Integer total = 0;
  for (const OrderLine& line : kOrderLines) total += line.count * line.price;
  const std::string text =
      std::string(kTotal) + "  " + QXToDigit::ToKiloBit(std::to_string(total)) + "  " + kPaid;
  Write(canvas, {400, 320, 738, 346}, text, aeRightCenter, kInk);
}

// --- What the library draws --------------------------------------------------

void PaintPlaces(TCanvas& canvas) {
  constexpr TRect kRect{22, 388, 386, 520};
  Write(canvas, {kRect.Left, 360, kRect.Right, 384}, kPlacesTitle, aeLeftCenter, kBlack);
  DrawFrame(canvas, kRect, true, kWhite);
  for (int i = 0; i < 9; ++i)
    Write(canvas, ResizeRect(kRect, 8, roIn), kPlaces[i], static_cast<TAlignmentEx>(i), kInk);
}

void PaintBevels(TCanvas& canvas) {
  Write(canvas, {406, 360, 758, 384}, kBevelsTitle, aeLeftCenter, kBlack);
  for (Integer i = 0; i < 4; ++i) {
    const Integer left = 406 + i * 90;
    const TRect rect{left, 388, left + 82, 424};
    if (i < 2) {
      PaintButton(canvas, rect, kBevels[i], i == 1);
    } else {
      DrawBox(canvas, rect, i == 3);
      Write(canvas, rect, kBevels[i], aeAllCenter, kBlack);
    }
    PaintArrowButton(canvas, {left, 436, left + 34, 464}, static_cast<TDrawAngleType>(i));
    Draw3Angle(canvas, {left, 478, left + 34, 512}, static_cast<TDrawAngleType>(i), kBanner);
  }
}

}  // namespace

OrderForm::OrderForm(const std::string& frame) { LoadDWF(frame, pieces_); }

Integer OrderForm::AskToSave() {
  return QXDialogs::QX_MessageBox(desk::kAskToSave, dtConfirmation, dbYes | dbNo | dbCancel, kOrder);
}

void OrderForm::Paint(TCanvas& canvas, const SetLargeText& setLargeText) const {
  PaintFrame(canvas);
  PaintBanner(canvas, setLargeText);
  PaintFields(canvas);
  PaintLines(canvas);
  PaintSheets(canvas);
  PaintTotal(canvas);
  PaintPlaces(canvas);
  PaintBevels(canvas);
  PaintButton(canvas, kSaveButton, kSave, true);
  PaintButton(canvas, kCloseButton, kClose, true);
}

void OrderForm::PaintFrame(TCanvas& canvas) const {
  canvas.SetBrushColor(clBtnFace);
  canvas.FillRect({0, 0, kWidth, kHeight});
  DrawFrameWithBMP(canvas, {0, 0, kWidth, kHeight}, pieces_);
}

void OrderForm::PaintSheets(TCanvas& canvas) const {
  for (int i = 0; i < 3; ++i)
    DrawTabset(canvas, kSheetTabs[i], i == sheet_ ? kWhite : clBtnFace, kBlack, kSheetNames[i], i < 2);
}

bool OrderForm::Click(const TPoint& at) {
  for (int i = 0; i < 3; ++i)
    if (PosInRect(at, kSheetTabs[i])) sheet_ = i;
  const bool ends = PosInRect(at, kCloseButton);
  constexpr Integer kCancelled = 2;
  if (!ends && !PosInRect(at, kSaveButton)) return false;
  return AskToSave() != kCancelled && ends;
}

}  // namespace desk
