#include <gtest/gtest.h>
#include <qxTools/Package.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <algorithm>
#include <string>
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

std::vector<std::string> traced;
std::vector<Integer> counters;

void Trace(const char* unit, Integer counter) {
  traced.emplace_back(unit);
  counters.push_back(counter);
}

class Package : public ::testing::Test {
 protected:
  Package() {
    traced.clear();
    counters.clear();
    SetPackageTrace(Trace);
  }
  ~Package() override { SetPackageTrace(nullptr); }
};

TEST_F(Package, UnitsStartInTheirOrderAndStopInTheReverse) {
  Initialize();
  std::vector<std::string> started = traced;
  traced.clear();
  Finalize();
  EXPECT_EQ(static_cast<std::size_t>(GetPackageInfoTable()->Count), started.size());
  EXPECT_TRUE(std::equal(traced.begin(), traced.end(), started.rbegin(), started.rend()));
  started.erase(started.begin());  // the runtime's own module
  EXPECT_EQ(started, kOrder);
}

TEST_F(Package, TheTableHoldsOnePairAUnit) {
  const TPackageInfoTable* const table = GetPackageInfoTable();
  Initialize();
  const std::vector<std::string> names = traced;
  for (Integer i = 0; i < table->Count; ++i) {
    traced.clear();
    counters.clear();
    table->Units[i].Startup();
    table->Units[i].Shutdown();
    EXPECT_EQ(traced, std::vector<std::string>(2, names[static_cast<std::size_t>(i)]));
    EXPECT_EQ(counters[1], counters[0] + 1);
  }
  Finalize();
}

TEST_F(Package, StartsNestAndTheLastStopReleasesTheGlobals) {
  Initialize();
  counters.clear();
  Initialize();
  const Integer nested = counters.front();  // -2, or -3 where loading the library was a start too
  EXPECT_LE(nested, -2);
  QXSqlTools::SQL()->GetInLines().SetText("select @a");
  qxSqlStoreProc::StoreProcParamTypeStr[0] = "a text that needs a block of its own";
  int stops = 0;
  for (; counters.back() < -1; ++stops) Finalize();
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
  for (stops -= 2; stops > 0; --stops) Initialize();
}

}  // namespace
