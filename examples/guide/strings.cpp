// Taking a record of fields apart, and putting texts together.
#include <qxTools/strings/QXStrTools.h>

#include <iostream>

using namespace qxTools::QXStrTools;

int main() {
  const std::string record = "A-0099,Lee,,Taipei";

  // Fields count from 1; past the last one GetAt gives the last one again.
  for (int n = 1; n <= Occurs(",", record) + 1; ++n) std::cout << n << " [" << GetAt(",", record, n) << "]\n";
  std::cout << "5 [" << GetAt(",", record, 5) << "]\n";
  std::cout << "left of the first comma: " << GetAtLeft(",", record, 1) << "\n";

  // The next number of a series keeps its digits.
  std::cout << SerialNO(GetAt(",", record, 1), 1) << "\n";

  // Positions count from 1, and a search that fails answers 0 or less.
  std::cout << "Lee at " << At("Lee", record, 1) << ", Wang found: " << (At("Wang", record, 1) > 0) << "\n";

  std::cout << Trim("  a b  ", 0) << "|" << StrEx(7, 3) << "|" << IntEx("42 pieces") << "\n";
  std::cout << ReplaceAllStr("a-b-c", "-", " / ", false) << "\n";
  std::cout << FormatEx("select #S, ##S", "Name") << "\n";

  // The encoder gives other digits at every call; what it encoded comes back.
  std::cout << EDS("secret").size() << " digits hold " << DDS(EDS("secret")) << "\n";
}
