#include <qxTools/Package.h>
#include <qxTools/Version.h>
#include <qxTools/calendar/QXTimeTools.h>
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <array>
#include <utility>

namespace qxTools {

namespace {

void Nothing() {}

struct Unit {
  const char* name;
  void (*fill)() = Nothing;     // sets the globals to their first values
  void (*release)() = Nothing;  // gives back what they hold
  Integer counter = 0;
};

void ResetFormatSettings() { GetFormatSettings() = FormatSettings(); }

// clang-format off
constinit auto units = std::to_array<Unit>({
    // runtime
    {"FormatSettings", ResetFormatSettings, ResetFormatSettings},
    // the units of the library
    {"CVCode"},
    {"QXArrayTools"},
    {"QXColorMode"},
    {"QXStrTools"},
    {"QXDateTools"},
    {"QXDialogs"},
    {"qxDrawTools"},
    {"QXHTML"},
    {"QXMemTools"},
    {"QXMemBank"},
    {"QXMsgDefine"},
    {"QXRegFileType"},
    {"QXSqlDefine"},
    {"QXSqlTools", QXSqlTools::FillGlobals, QXSqlTools::ReleaseGlobals},
    {"QXStringTable"},
    {"QXTimeTools", QXTimeTools::FillGlobals, QXTimeTools::ReleaseGlobals},
    {"QXToDigit"},
    {"QXUniKey", QXUniKey::FillGlobals, QXUniKey::ReleaseGlobals},
    {"QXValueTools"},
    {"qxStore"},
    {"qxIntf"},
    {"qxOleVariant"},
    {"qxSqlStoreProc", qxSqlStoreProc::FillGlobals, qxSqlStoreProc::ReleaseGlobals},
    {"qxTreeList"},
    {"qxIniTools"},
});
// clang-format on

constinit TPackageTrace packageTrace = nullptr;

void Trace(const Unit& unit) {
  if (packageTrace != nullptr) packageTrace(unit.name, unit.counter);
}

template <std::size_t i>
void StartUnit() {
  if (units[i].counter-- == 0) units[i].fill();
  Trace(units[i]);
}

template <std::size_t i>
void StopUnit() {
  if (++units[i].counter == 0) units[i].release();
  Trace(units[i]);
}

template <std::size_t... i>
constexpr std::array<TPackageUnit, sizeof...(i)> PairsOf(std::index_sequence<i...>) {
  return {TPackageUnit{StartUnit<i>, StopUnit<i>}...};
}

constexpr auto kPairs = PairsOf(std::make_index_sequence<units.size()>());
constexpr TPackageInfoTable kTable{static_cast<Integer>(kPairs.size()), kPairs.data()};

}  // namespace

void Initialize() {
  for (const TPackageUnit& unit : kPairs) unit.Startup();
}

void Finalize() {
  for (auto unit = kPairs.rbegin(); unit != kPairs.rend(); ++unit) unit->Shutdown();
}

const TPackageInfoTable* GetPackageInfoTable() { return &kTable; }

void SetPackageTrace(TPackageTrace trace) { packageTrace = trace; }

const char* LibraryVersion() { return QXTOOLS_VERSION; }

#ifndef QXTOOLS_STATIC
namespace {

/// Loading and unloading the shared library is the outermost start and stop.
const struct Loader {
  Loader() { Initialize(); }
  ~Loader() { Finalize(); }
} loader;

}  // namespace
#endif

}  // namespace qxTools
