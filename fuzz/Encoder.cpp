// The string encoder: what it wrote reads back, and other digits give other text or a stated error.
#include <qxTools/strings/QXStrTools.h>

#include "Target.h"

using namespace qxTools;

FUZZ_TARGET(Encoder) {
  const std::string text = input.Rest(200);
  const std::string code = QXStrTools::EDS(text);
  FUZZ_CHECK(code.size() == 128 && code.find_first_not_of("0123456789") == std::string::npos);
  FUZZ_CHECK(QXStrTools::DDS(code) == text.substr(0, 20));

  std::string error;
  const auto read = fuzz::Try([&] { return QXStrTools::DDS(text); }, &error);
  FUZZ_CHECK(read ? text.size() == 128 && read->size() <= 20
                  : error == (text.size() == 128 ? "Division by zero" : "EnCode Length <> 128"));
}
