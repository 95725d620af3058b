#include <gtest/gtest.h>
#include <qxTools/Package.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace qxTools;

// The order in which the 25 units start.
const std::vector<std::string> kOrder = {
    "CVCode",      "QXArrayTools",  "QXColorMode",    "QXStrTools",   "QXDateTools",
    "QXDialogs",   "qxDrawTools",   "QXHTML",         "QXMemTools",   "QXMemBank",
    "QXMsgDefine", "QXRegFileType", "QXSqlDefine",    "QXSqlTools",   "QXStringTable",
    "QXTimeTools", "QXToDigit",     "QXUniKey",       "QXValueTools", "qxStore",
    "qxIntf",      "qxOleVariant",  "qxSqlStoreProc", "qxTreeList",   "qxIniTools"};

std::vector<std::pair<std::string, Integer>> traced;

void Trace(const char* unit, Integer counter) { traced.emplace_back(unit, counter); }

class Package : public ::testing::Test {
 protected:
  Package() {
    traced.clear();
    SetPackageTrace(Trace);
  }
  ~Package() override { SetPackageTrace(nullptr); }
};

TEST_F(Package, UnitsStartInTheirOrderAndStopInTheReverse) {
  const TPackageInfoTable* const table = GetPackageInfoTable();
  Initialize();
  const auto started = traced;
  ASSERT_EQ(static_cast<std::size_t>(table->Count), started.size());
  ASSERT_EQ(started.size(), kOrder.size() + 1);
  for (std::size_t i = 0; i < kOrder.size(); ++i) EXPECT_EQ(started[i + 1].first, kOrder[i]);
  // Each pair of the table is one unit's start and stop.
  for (std::size_t i = 0; i < started.size(); ++i) {
    traced.clear();
    table->Units[i].Startup();
    EXPECT_EQ(traced.back(), std::pair(started[i].first, started[i].second - 1));
    table->Units[i].Shutdown();
    EXPECT_EQ(traced.back(), started[i]);
  }
  traced.clear();
  Finalize();
  ASSERT_EQ(traced.size(), started.size());
  std::reverse(traced.begin(), traced.end());
  for (std::size_t i = 0; i < started.size(); ++i) EXPECT_EQ(traced[i].first, started[i].first);
}

TEST_F(Package, StartsNestAndTheLastStopReleasesTheGlobals) {
  Initialize();
  QXSqlTools::SQL()->GetInLines().SetText("select @a");
  qxSqlStoreProc::StoreProcParamTypeStr[0] = "a text that needs a block of its own";
  Initialize();
  EXPECT_LE(traced.back().second, -2);  // -3 where loading the library was a start too
  while (traced.back().second < -1) Finalize();
  EXPECT_NE(QXSqlTools::FDefaultSQL, nullptr);
  EXPECT_EQ(qxSqlStoreProc::StoreProcParamTypeStr[14], "Varchar");
  Finalize();
  EXPECT_EQ(QXSqlTools::FDefaultSQL, nullptr);
  EXPECT_EQ(qxSqlStoreProc::StoreProcParamTypeStr[0], "");
  Finalize();  // one too many only moves the counters
  Initialize();
  Initialize();  // the first start after the last stop fills the globals again
  EXPECT_EQ(qxSqlStoreProc::StoreProcParamTypeStr[0], "Unknown");
  EXPECT_EQ(QXSqlTools::ParamStyleHeader[6], "@F");
}

}  // namespace
