// Searching and replacing against their wording.
#include <qxTools/strings/QXStrTools.h>

#include "Plain.h"
#include "Target.h"

using namespace qxTools;

FUZZ_TARGET(ReplaceAll) {
  constexpr std::size_t kBudget = std::size_t{1} << 22;
  const bool ignoreCase = input.Bit();
  const std::int32_t n = input.Small();
  const std::string old = input.Text(100);
  const std::string with = input.Text(24);
  const std::string s = input.Rest(600);

  FUZZ_CHECK(QXStrTools::Occurs(old, s) == fuzz::plain::Occurs(old, s));
  FUZZ_CHECK(QXStrTools::At(old, s, n) == fuzz::plain::At(old, s, n));
  const auto expected = fuzz::plain::ReplaceAll(s, old, with, ignoreCase, kBudget);
  if (expected) FUZZ_CHECK(QXStrTools::ReplaceAllStr(s, old, with, ignoreCase) == *expected);

  const std::int32_t first = ignoreCase ? fuzz::plain::At(fuzz::plain::Upper(old), fuzz::plain::Upper(s), 1)
                                        : fuzz::plain::At(old, s, 1);
  std::string once = s;
  if (first >= 1) once.replace(static_cast<std::size_t>(first - 1), old.size(), with);
  FUZZ_CHECK(QXStrTools::ReplaceStr(s, old, with, ignoreCase) == once);

  if (old.empty()) return;
  const std::int32_t count = fuzz::plain::Occurs(old, s);
  const auto size = static_cast<std::int32_t>(old.size());
  const auto left = fuzz::plain::At(old, s, n);
  FUZZ_CHECK(QXStrTools::GetAtLeft(old, s, n) ==
             (left >= 1 ? s.substr(0, static_cast<std::size_t>(left) - 1) : s));
  FUZZ_CHECK(QXStrTools::GetAtRight(old, s, n) ==
             (left >= 1 ? s.substr(static_cast<std::size_t>(left + size) - 1) : s));
  if (count == 0) {
    FUZZ_CHECK(QXStrTools::GetAt(old, s, n) == s);
  } else if (n >= 1) {
    const auto start = n == 1      ? 1
                       : count < n ? fuzz::plain::At(old, s, count) + size
                                   : fuzz::plain::At(old, s, n - 1) + size;
    const auto end = count >= n ? fuzz::plain::At(old, s, n) : static_cast<std::int32_t>(s.size()) + 1;
    FUZZ_CHECK(QXStrTools::GetAt(old, s, n) == fuzz::plain::Substr(s, start, end - start));
  }
}
