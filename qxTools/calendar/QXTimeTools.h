/// @file
/// Times of day as text of the form HH:MM, five characters, called TSTime.
///
/// Nearly every function takes MaxHour: the largest hour that the caller accepts, and the number of hours
/// after which hours wrap; usually 24. Numbers out of range are normalised, not reported. Hours and minutes
/// are the characters 1-2 and 4-5, read by QXStrTools::IntEx.
///
/// Functions that take texts and MaxHour, except CheckTimeFormat, throw Exception "'TEXT' is invalid TSTime
/// format." if a text has no ":" or is not five bytes long. An empty text is not an error: it means BaseTime.
/// If several texts are invalid, the exception names the first one read; texts are read left to right unless
/// stated otherwise. If MaxHour is 0 and an hour is above it, they throw EDivByZero.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools::QXTimeTools {

/// The time that an empty text means; "00:00" at first. A host may change it; its form is not checked.
extern QXTOOLS_API std::string BaseTime;

// --- Checking ----------------------------------------------------------------

/// Returns true if the text is two digits, ":" and two digits, with minutes below 60 and an hour of at most
/// MaxHour: "24:59" is valid for 24. Never throws.
QXTOOLS_API bool CheckTimeFormat(std::string_view text, Integer maxHour);

/// Returns the text in canonical form, or BaseTime for an empty text. An hour above MaxHour wraps. An hour
/// equal to MaxHour is kept if the minutes are 0, otherwise it becomes 0: 24:00 stays, 24:05 becomes 00:05.
/// Negative numbers become 0. On purpose: 60 minutes are kept, more than 60 carry one hour: 12:60 stays,
/// 12:61 becomes 13:01. The place of the
/// ":" is not checked.
/// @throws Exception if the text has no ":" or is not five bytes long; EDivByZero if MaxHour is 0 and the
/// hour is above it.
QXTOOLS_API std::string CheckTime(std::string_view text, Integer maxHour);

// --- Minutes -----------------------------------------------------------------

/// Returns the minutes since midnight: TimetoMin("08:15", 24) is 495. The text is checked as by CheckTime.
/// On purpose: the minutes are read from the canonical text by position, so an hour of three digits gives a
/// wrong result: TimetoMin("99:75", 200) reads 100:15 as 10 hours.
/// @throws Exception, EDivByZero as CheckTime.
QXTOOLS_API Integer TimetoMin(std::string_view text, Integer maxHour);

/// Returns the time that is so many minutes after midnight: with MaxHour 24, 495 is "08:15", 1440 is "24:00"
/// and 1450 is "00:10". On purpose: negative hours and minutes become 0 (there is no borrow): -30 is "00:00".
/// @throws EDivByZero if MaxHour is 0 and the hour is above it.
QXTOOLS_API std::string MintoTime(Integer minutes, Integer maxHour);

/// Returns the hour as it is written in the text; 0 for an empty text.
/// On purpose: the text is checked as by CheckTime, but the number is not normalised: Hour("30:00", 24)
/// is 30.
/// @throws Exception, EDivByZero as CheckTime.
QXTOOLS_API Integer Hour(std::string_view text, Integer maxHour);

/// Returns the minute as it is written in the text; 0 for an empty text.
/// On purpose: the text is checked as by CheckTime, but the number is not normalised: Minute("10:75", 24)
/// is 75.
/// @throws Exception, EDivByZero as CheckTime.
QXTOOLS_API Integer Minute(std::string_view text, Integer maxHour);

// --- Arithmetic --------------------------------------------------------------

/// Returns the time so many minutes later: AddTime("23:30", 60, 24) is "00:30". The sum wraps at 32 bits; a
/// negative sum gives "00:00".
/// @throws Exception, EDivByZero as CheckTime.
QXTOOLS_API std::string AddTime(std::string_view text, Integer minutes, Integer maxHour);

/// Returns the sum of two times: AddTime("23:30", "01:00", 24) is "00:30".
/// @throws Exception, EDivByZero as CheckTime, for either text.
QXTOOLS_API std::string AddTime(std::string_view text1, std::string_view text2, Integer maxHour);

/// Returns the time so many minutes earlier; whole days of MaxHour hours are borrowed: SubTime("01:00", 120,
/// 24) is "23:00". Numbers of minutes wrap at 32 bits.
/// @throws Exception as CheckTime; EDivByZero as CheckTime, and if it must borrow and a day has 0 minutes.
QXTOOLS_API std::string SubTime(std::string_view text, Integer minutes, Integer maxHour);

/// Returns the first time less the second; whole days of MaxHour hours are borrowed: SubTime("01:00",
/// "02:00", 24) is "23:00". The second text is read first.
/// @throws Exception as CheckTime, for either text; EDivByZero as CheckTime, and if it must borrow and a day
/// has 0 minutes.
QXTOOLS_API std::string SubTime(std::string_view text1, std::string_view text2, Integer maxHour);

// --- Comparing ---------------------------------------------------------------

/// Returns the minutes from text2 to text1: positive if text1 is later, 0 if they are equal, otherwise
/// negative.
/// @throws Exception, EDivByZero as CheckTime, for either text.
QXTOOLS_API Integer CompTime(std::string_view text1, std::string_view text2, Integer maxHour);

/// Returns true if the time is between the two bounds, both included; the bounds may be in either order. The
/// bounds are read first. On purpose: no range crosses midnight; 22:00 and 02:00 are the bounds of the day
/// between them.
/// @throws Exception, EDivByZero as CheckTime, for any of the texts.
QXTOOLS_API bool BetWeen(std::string_view text, std::string_view bound1, std::string_view bound2,
                         Integer maxHour);

// --- Other forms -------------------------------------------------------------

/// Returns hour and minute in Chinese (BIG5): "09:05" gives 09時05分. Never throws.
/// On purpose: nothing is checked. Both are cut out as QXStrTools::substr does, with NUL past the end of the
/// text.
QXTOOLS_API std::string ChinaTime(std::string_view text);

/// Returns the time of day as TSTime. The time is rounded to the millisecond, then seconds are dropped.
/// @throws EConvertError if the time is outside the years 1 to 9999.
QXTOOLS_API std::string TimeToTST(TDateTime time);

/// For the package frame: sets the globals to their first values.
void FillGlobals();

/// For the package frame: frees what the globals hold.
void ReleaseGlobals();

}  // namespace qxTools::QXTimeTools
