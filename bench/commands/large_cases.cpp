// One large case beside its peers, so that the peak memory of the whole process is that case's. The input is
// part of it.
//
//   large_cases CASE [FILE]
#define SI_NO_CONVERSION  // bytes as they are, as we take them
#include <SimpleIni.h>
#include <glib.h>
#include <qxTools/data/qxOleVariant.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/stores/qxIniTools.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "data/Pairs.h"
#include "sql/Statement.h"
#include "stores/PlainMap.h"

namespace {

using namespace qxTools;

constexpr std::size_t kBytes = 100'000'000;
constexpr std::size_t kNames = 20;
constexpr Integer kCount = 1'000'000;

// --- Statements ----------------------------------------------------------------------------------------

TStrings StatementLines() {
  TStrings lines;
  std::size_t size = 0;
  for (std::size_t i = 0; size < kBytes; ++i) {
    const std::string line = StatementLine(i, kNames);
    size += line.size() + 2;
    lines.Add(line);
  }
  return lines;
}

bool IsWhole(const TStrings& lines) {
  std::size_t size = 0;
  for (Integer i = 0; i < lines.GetCount(); ++i) size += lines.GetView(i).size();
  return size >= kBytes - kBytes / 20;
}

bool Call(qxSqlStoreProc::TQXSqlStoreProc& set) {
  for (Integer i = 0; i < set.GetParamCount(); ++i) set.GetItems(i)->SetValue(i);
  return set.GetParamCount() == static_cast<Integer>(kNames) && IsWhole(*set.GetStoreProc());
}

bool CallByLines(const std::string&) {
  const TStrings lines = StatementLines();
  qxSqlStoreProc::TQXSqlStoreProc set;
  set.LoadStoreProc(&lines);
  return Call(set);
}

bool CallByWideText(const std::string&) {
  std::u16string text;
  text.reserve(kBytes + 200);
  for (std::size_t i = 0; text.size() < kBytes; ++i) {
    const std::string line = StatementLine(i, kNames) + "\r\n";
    text.append(line.begin(), line.end());
  }
  qxSqlStoreProc::TQXSqlStoreProc set;
  set.LoadStoreProc(text);
  return Call(set);
}

bool CommandByLines(const std::string&) {
  const TStrings lines = StatementLines();
  QXSqlTools::TQXSQL command;
  command.LoadParamedCommand(lines);
  for (Integer i = 0; i < command.GetParams().GetCount(); ++i)
    command.GetParams().GetItems(i)->Text = "the value of " + std::to_string(i);
  return IsWhole(command.GetOutLines());
}

// --- Settings and tables -------------------------------------------------------------------------------

bool LoadSettings(const std::string& fileName) {
  qxIniTools::TQXIniFile file;
  file.LoadFromFile(fileName);
  file.OpenFirstKey();
  return !file.GetValue("Name" + std::to_string(kCount - 1)).empty();
}

bool LoadBySimpleIni(const std::string& fileName) {
  CSimpleIniA file;
  return file.LoadFile(fileName.c_str()) == SI_OK && file.GetSectionSize("Section0") > 0;
}

bool LoadByKeyFile(const std::string& fileName) {
  GKeyFile* const file = g_key_file_new();
  g_key_file_load_from_file(file, fileName.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr);
  const bool loaded = g_key_file_has_group(file, "Section0") != FALSE;
  g_key_file_free(file);
  return loaded;
}

bool LoadTable(const std::string& fileName) {
  return QXStringTable::TQXStringTable(fileName).GetReccount() == kCount;
}

bool LoadLines(const std::string& fileName) {
  std::vector<std::string> lines;
  std::ifstream file(fileName, std::ios::binary);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines.size() == kCount + 1;
}

// --- Packets -------------------------------------------------------------------------------------------

std::u16string NameOf(Integer i) {
  const std::string digits = std::to_string(1'000'000 + i);
  return u"FIELD-" + std::u16string(digits.begin(), digits.end());
}

bool SaveAndLoadPacket(const std::string&) {
  qxOleVariant::TQXOleVariant packet;
  for (Integer i = 0; i < kCount; ++i) packet.SetValue(NameOf(i), i);
  Variant array;
  packet.SaveToOle(array);
  qxOleVariant::TQXOleVariant again;
  again.LoadFromOle(array);
  return again.GetValue(NameOf(kCount - 1)) == Variant(kCount - 1);
}

bool SaveAndLoadPairs(const std::string&) {
  Pairs pairs;
  for (Integer i = 0; i < kCount; ++i) pairs.emplace_back(NameOf(i), i);
  const Variant array = ArrayOf(pairs);
  return PairsIn(array).back().second == Variant(kCount - 1);
}

// --- Trees ---------------------------------------------------------------------------------------------

bool FillTree(const std::string&) {
  qxTreeList::TQXTreeNodes tree;
  tree.OpenRootNode();
  for (Integer i = 1; i < kCount; ++i) tree.Add();
  const qxTreeList::TNodeKey last = tree.Add()->Key;
  qxTreeList::pQXTreeNode node = nullptr;
  return tree.FindNode(last, node);
}

bool FillMap(const std::string&) {
  Map map;
  for (Integer i = 0; i < kCount; ++i) {
    const Key key = FreshKey();
    map.emplace(key, Record{Key{}, key, nullptr, 1});
  }
  return map.size() == kCount;
}

const std::map<std::string, bool (*)(const std::string&)> kCases = {
    {"nothing", [](const std::string&) { return true; }},
    {"call_lines/qxTools", CallByLines},
    {"call_wide/qxTools", CallByWideText},
    {"command_lines/qxTools", CommandByLines},
    {"settings/qxTools", LoadSettings},
    {"settings/SimpleIni", LoadBySimpleIni},
    {"settings/GKeyFile", LoadByKeyFile},
    {"table/qxTools", LoadTable},
    {"table/getline", LoadLines},
    {"packet/qxTools", SaveAndLoadPacket},
    {"packet/vector", SaveAndLoadPairs},
    {"tree/qxTools", FillTree},
    {"tree/unordered_map", FillMap},
};

}  // namespace

int main(int argc, char** argv) {
  const auto found = kCases.find(argc > 1 ? argv[1] : "");
  if (found != kCases.end() && found->second(argc > 2 ? argv[2] : "")) return EXIT_SUCCESS;
  std::fprintf(stderr, "large_cases: failed\n");
  return EXIT_FAILURE;
}
