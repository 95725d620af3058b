// Text as Qt measures and paints it. The bytes are read by the library's own table of code page 950: the
// toolkit's decoder reads some of them differently.
#pragma once

#include <qxTools/base/Types.h>
#include <qxTools/painting/Geometry.h>

#include <QtGui/QFont>
#include <QtGui/QPainter>
#include <string_view>

namespace qxTools::desktop {

/// @throws Exception "No application object" unless the program has made one for windows: without it Qt has
/// no fonts.
void RequireApplication();

QString ToQString(std::string_view text);

inline QColor ToQColor(TColor plainColor) {
  const auto part = [plainColor](int shift) { return static_cast<int>(plainColor >> shift & 0xFF); };
  return QColor(part(0), part(8), part(16));
}

TColor ToTColor(const QColor& color);

/// Width and height of one line of text.
TPoint MeasureGlyphs(const QFont& font, std::string_view text);

/// Paints nothing outside `clip`; `at` is the top left of the text.
void PaintGlyphs(QPainter& painter, const QFont& font, const QRectF& clip, const TPoint& at,
                 std::string_view text, TColor color);

}  // namespace qxTools::desktop
