// The safe call: whatever the statement and the values hold, a server that reads bytes, characters or lead
// bytes that swallow gets them back; what cannot be written is refused.
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/qxSqlSafeCall.h>
#include <support/TsqlReader.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxSqlSafeCall;

bool IsWhole(const std::string& text) { return BytesToUtf8(text).find("\xEF\xBF\xBD") == std::string::npos; }

TSafeCallOptions Options(fuzz::Input& input) {
  TSafeCallOptions options;
  options.Text = static_cast<TSafeText>(input.Byte() % 3);
  if (input.Bit()) options.Lengths = {input.Small(), input.Small()};
  return options;
}

}  // namespace

FUZZ_TARGET(SafeCall) {
  const TSafeCallOptions options = Options(input);
  const std::string declarations = input.Text(40);
  std::string error;
  if (const auto params = fuzz::Try([&] { return ReadSafeParams(declarations); }, &error))
    for (const TSafeParam& param : *params) FUZZ_CHECK(param.Name.starts_with('@') && !param.Type.empty());

  qxSqlStoreProc::TQXSqlStoreProc set;
  std::string values[] = {input.Text(40), input.Text(40)};
  set.GetStatement().SetText(input.Rest(200) + " @MM_First @MM_Second ");
  const std::string statement = "\r\n" + set.GetStatement().GetText();
  if (set.GetFuncCount() != 0) return;
  bool isWhole = IsWhole(statement);
  for (Integer i = 0; i < set.GetParamCount(); ++i) {
    set.GetItems(i)->SetValue(values[i % 2]);
    isWhole = isWhole && IsWhole(values[i % 2]);
  }
  TStrings call;
  FUZZ_CHECK(fuzz::Completes([&] { GetSafeStoreProc(set, call, options); }) == isWhole);
  const std::string text = call.GetText();
  for (const test::Reading reading : test::kReadings) {
    if (!isWhole) break;
    const auto read = test::TsqlReader(text, reading).Call();
    FUZZ_CHECK(read && read->statement == statement);
    FUZZ_CHECK(static_cast<Integer>(read->values.size()) == set.GetParamCount());
    for (std::size_t i = 0; i < read->values.size(); ++i) FUZZ_CHECK(read->values[i] == values[i % 2]);
  }
}
