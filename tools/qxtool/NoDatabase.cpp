// In place of RunStatement.cpp where ODBC is not installed.
#include "RunStatement.h"
#include "TextIo.h"

namespace qxtool {

void RunBatches(const RunOptions&, const std::vector<Batch>&) {
  throw Failure("--run: this build of qxtool has no ODBC (it was built without the package unixodbc-dev)");
}

}  // namespace qxtool
