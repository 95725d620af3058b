#include <qxTools/desktop/qt/Glyphs.h>
#include <qxTools/desktop/qt/SystemPalette.h>

namespace qxTools::desktop {

namespace {

struct SystemColor {
  QPalette::ColorGroup group;
  QPalette::ColorRole role;
};

// By system colour number.
constexpr SystemColor kSystemColors[] = {
    {QPalette::Active, QPalette::Mid},              //  0 scroll bar
    {QPalette::Active, QPalette::Dark},             //  1 desktop
    {QPalette::Active, QPalette::Highlight},        //  2 active caption
    {QPalette::Inactive, QPalette::Window},         //  3 inactive caption
    {QPalette::Active, QPalette::Window},           //  4 menu
    {QPalette::Active, QPalette::Base},             //  5 window
    {QPalette::Active, QPalette::Shadow},           //  6 window frame
    {QPalette::Active, QPalette::WindowText},       //  7 menu text
    {QPalette::Active, QPalette::Text},             //  8 window text
    {QPalette::Active, QPalette::HighlightedText},  //  9 caption text
    {QPalette::Active, QPalette::Window},           // 10 active border
    {QPalette::Inactive, QPalette::Window},         // 11 inactive border
    {QPalette::Active, QPalette::Dark},             // 12 work space
    {QPalette::Active, QPalette::Highlight},        // 13 highlight
    {QPalette::Active, QPalette::HighlightedText},  // 14 highlighted text
    {QPalette::Active, QPalette::Button},           // 15 button face
    {QPalette::Active, QPalette::Dark},             // 16 button shadow
    {QPalette::Disabled, QPalette::Text},           // 17 grey text
    {QPalette::Active, QPalette::ButtonText},       // 18 button text
    {QPalette::Inactive, QPalette::WindowText},     // 19 inactive caption's text
    {QPalette::Active, QPalette::Light},            // 20 button highlight
    {QPalette::Active, QPalette::Shadow},           // 21 dark shadow
    {QPalette::Active, QPalette::Midlight},         // 22 light edge
    {QPalette::Active, QPalette::ToolTipText},      // 23 tool tip's text
    {QPalette::Active, QPalette::ToolTipBase},      // 24 tool tip
    {QPalette::Active, QPalette::Button},           // 25 not in use
    {QPalette::Active, QPalette::Link},             // 26 link
    {QPalette::Active, QPalette::Highlight},        // 27 far end of an active caption
    {QPalette::Inactive, QPalette::Window},         // 28 far end of an inactive caption
    {QPalette::Active, QPalette::Highlight},        // 29 highlighted menu
    {QPalette::Active, QPalette::Window},           // 30 menu bar
};
static_assert(std::size(kSystemColors) == SystemColorTable().size());

}  // namespace

SystemColorTable SystemColorsOf(const QPalette& palette) {
  SystemColorTable table;
  for (std::size_t i = 0; i < table.size(); ++i)
    table[i] = ToTColor(palette.color(kSystemColors[i].group, kSystemColors[i].role));
  return table;
}

}  // namespace qxTools::desktop
