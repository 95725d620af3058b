// Writing a date in the ROC calendar; MinguoReader.cpp reads it.
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/ChineseNumerals.h>
#include <qxTools/calendar/MinguoWords.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/DateTime.h>

#include <cstdlib>

namespace qxTools::QXMinguoDate {

namespace {

constexpr int kLastYear = 999;

/// On purpose: there is no year 0; 1911 is the year before 1.
int YearOf(const DateParts& date) { return date.Year > 1911 ? date.Year - 1911 : date.Year - 1912; }

/// The ROC year that can be written.
int WritableYear(const DateParts& date) {
  const int year = YearOf(date);
  if (std::abs(year) > kLastYear)
    throw EConvertError("The year " + std::to_string(date.Year) + " has no ROC form: it is not 913 to 2910");
  return year;
}

std::string Digits(int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string ChinesePrefix(int year) { return year < 0 ? std::string(kRepublic) + kBefore : kRepublic; }

std::string Numerals(int year) {
  const std::string number = year == 1 ? kFirst : calendar::ToNumerals(std::abs(year));
  return ChinesePrefix(year) + number + kYear;
}

/// What is between year, month and day, and after the day.
struct Marks {
  const char* year;
  const char* month;
  const char* day;
};

constexpr Marks MarksOf(TMinguoForm form) {
  switch (form) {
    case mfPoint:
      return {".", ".", ""};
    case mfDash:
      return {"-", "-", ""};
    case mfCompact:
      return {"", "", ""};
    case mfChinese:
      return {kYear, kMonth, kDay};
    default:
      return {"/", "/", ""};
  }
}

}  // namespace

std::string MinguoToStr(TDateTime date, TMinguoForm form, bool zeros) {
  const DateParts parts = DecodeDate(date);
  const int year = WritableYear(parts);
  if (form == mfNumerals)
    return Numerals(year) + calendar::ToNumerals(parts.Month) + kMonth + calendar::ToNumerals(parts.Day) +
           kDay;
  const bool padded = zeros || form == mfCompact;
  const Marks marks = MarksOf(form);
  std::string text = form == mfChinese ? ChinesePrefix(year) : year < 0 ? kBeforeRepublic : "";
  text.append(Digits(std::abs(year), padded ? 3 : 1)).append(marks.year);
  text.append(Digits(parts.Month, padded ? 2 : 1)).append(marks.month);
  text.append(Digits(parts.Day, padded ? 2 : 1)).append(marks.day);
  return text;
}

std::string MinguoYearCn(TDateTime date) { return Numerals(WritableYear(DecodeDate(date))); }

Integer MinguoYear(TDateTime date) { return YearOf(DecodeDate(date)); }

}  // namespace qxTools::QXMinguoDate
