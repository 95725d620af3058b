#include <qxTools/platform/Locale.h>
#include <qxTools/runtime/FormatSettings.h>

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

void TakeDatePattern(const std::string& pattern, FormatSettings& settings) {
  std::string format;
  int parts = 0;
  char separator = '/';
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const bool isConversion = pattern[i] == '%' && i + 1 < pattern.size();
    if (!isConversion) {
      if (parts == 1 && std::ispunct(static_cast<unsigned char>(pattern[i])) != 0) separator = pattern[i];
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
  settings.DateSeparator = separator;
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
