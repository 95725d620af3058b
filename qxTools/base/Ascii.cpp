#include <qxTools/base/Ascii.h>

#include <algorithm>

namespace qxTools {

std::string UpperCase(std::string_view s) {
  std::string upper(s);
  std::transform(upper.begin(), upper.end(), upper.begin(), UpperChar);
  return upper;
}

std::string LowerCase(std::string_view s) {
  std::string lower(s);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerChar);
  return lower;
}

}  // namespace qxTools
