#include <gtest/gtest.h>
#include <qxTools/Package.h>
#include <qxTools/calendar/QXTimeTools.h>
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <algorithm>
#include <array>
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

const std::string kLong = "a text that needs a block of its own";

std::array<std::string*, 5> Globals() {
  return {&qxSqlStoreProc::StoreProcParamTypeStr[0], &QXSqlTools::ParamStyleHeader[6], &QXTimeTools::BaseTime,
          &QXUniKey::FUKI, &GetFormatSettings().ShortDateFormat};
}

TEST_F(Package, StartsNestAndTheLastStopReleasesTheGlobals) {
  Initialize();
  std::vector<std::string> first;
  for (std::string* const global : Globals()) first.push_back(std::exchange(*global, kLong));
  EXPECT_EQ(first, (std::vector<std::string>{"Unknown", "@F", "00:00", "", "yyyy/mm/dd"}));
  EXPECT_EQ(QXSqlTools::FDefaultSQL, nullptr) << "made by the first SQL()";
  QXSqlTools::SQL()->GetInLines().SetText("select @a");
  Initialize();
  EXPECT_LE(traced.back().second, -2);  // -3 where loading the library was a start too
  while (traced.back().second < -1) Finalize();
  EXPECT_NE(QXSqlTools::FDefaultSQL, nullptr);
  for (const std::string* const global : Globals())
    EXPECT_EQ(*global, kLong) << "neither filled nor released";
  Finalize();
  EXPECT_EQ(QXSqlTools::FDefaultSQL, nullptr);
  for (const std::string* const global : Globals()) EXPECT_NE(*global, kLong);
  Finalize();  // one too many only moves the counters
  for (std::string* const global : Globals()) *global = "written while nothing was started";
  Initialize();
  Initialize();  // the first start after the last stop fills the globals again
  for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(*Globals()[i], first[i]);
}

}  // namespace
