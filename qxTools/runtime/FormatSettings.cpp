#include <qxTools/base/AsciiFastPath.h>
#include <qxTools/platform/Locale.h>
#include <qxTools/runtime/FormatSettings.h>

#include <algorithm>
#include <cctype>

namespace qxTools {

namespace {

/// The part of a date that a conversion of the C library's pattern writes, or null.
const char* PartOf(char conversion) {
  switch (conversion) {
    case 'Y':
      return "yyyy";
    case 'y':
      return "yy";
    case 'm':
      return "mm";
    case 'd':
      return "dd";
    case 'e':
      return "d";
    default:
      return nullptr;
  }
}

/// The last sign between two parts; "/" if there is none, and for signs beyond ASCII, whose second
/// bytes are no signs: in a BIG5 locale the one of the year's sign is "~".
char SeparatorIn(std::string_view between) {
  if (!IsAllAscii(between.data(), between.data() + between.size())) return '/';
  const auto isSign = [](unsigned char c) { return std::ispunct(c) != 0; };
  const auto sign = std::find_if(between.rbegin(), between.rend(), isSign);
  return sign != between.rend() ? *sign : '/';
}

void TakeDatePattern(const std::string& pattern, FormatSettings& settings) {
  std::string format;
  std::string between;  // the first two parts
  int parts = 0;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const bool isConversion = pattern[i] == '%' && i + 1 < pattern.size();
    if (!isConversion) {
      if (parts == 1) between += pattern[i];
      continue;
    }
    ++i;
    while ((pattern[i] == '-' || pattern[i] == 'E' || pattern[i] == 'O') && i + 1 < pattern.size()) ++i;
    const char* const part = PartOf(pattern[i]);
    if (part == nullptr) return;  // the month by name, a week day: no pattern of three numbers
    if (parts++ > 0) format += '/';
    format += part;
  }
  if (parts != 3) return;
  settings.ShortDateFormat = format;
  settings.DateSeparator = SeparatorIn(between);
}

}  // namespace

FormatSettings& GetFormatSettings() {
  static FormatSettings settings;
  return settings;
}

void UseLocale() {
  const LocaleFormats formats = CurrentLocaleFormats();
  FormatSettings& settings = GetFormatSettings();
  TakeDatePattern(formats.DatePattern, settings);
  if (formats.DecimalPoint.size() == 1) settings.DecimalSeparator = formats.DecimalPoint[0];
}

}  // namespace qxTools
