// What only Windows has: names by their wide form, share modes, attributes, the registry of the system.
#include <windows.h>
// After windows.h, whose macros they must survive.
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/FileNames.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/NetworkAdapter.h>
#include <qxTools/platform/Registry.h>
#include <qxTools/shell/QXRegFileType.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;
namespace fs = std::filesystem;

constexpr char kYear[] = "\xA6\x7E";  // 年
constexpr char kYearUtf8[] = "\xE5\xB9\xB4";

TEST(FileNames, AreTextInCodePage950UnlessTheHostChoosesUtf8) {
  const TemporaryFolder folder;
  SaveWholeFile(folder.File(std::string(kYear) + ".ini"), "one");
  EXPECT_TRUE(fs::exists(fs::path(folder.Path()) / L"\x5E74.ini"));
  EXPECT_EQ(SetFileNameEncoding(feUtf8), feCodePage950);
  EXPECT_EQ(ReadWholeFile(folder.File(std::string(kYearUtf8) + ".ini")), "one");
  EXPECT_EQ(SetFileNameEncoding(feCodePage950), feUtf8);
  EXPECT_FALSE(FileExists(folder.File(std::string(kYearUtf8) + ".ini")));
  EXPECT_EQ(TFileStream(folder.Path() + "\\" + kYear + ".ini", fmOpenRead).GetSize(), 3);
}

TEST(FileNames, MayBeLong) {
  const TemporaryFolder folder;
  std::string path = folder.Path();
  for (int i = 0; i < 6; ++i) path += "\\" + std::string(60, 'x');
  fs::create_directories(L"\\\\?\\" + fs::path(path).wstring());
  SaveWholeFile(path + "\\long.txt", "long");
  EXPECT_EQ(ReadWholeFile(path + "\\long.txt"), "long");
}

TEST(Files, OneThatSomebodyElseHasOpenIsRefused) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("held", "old");
  {
    const TFileStream reader(name, fmOpenRead);
    EXPECT_EQ(ReadWholeFile(name), "old");
    EXPECT_THROW(SaveWholeFile(name, "new"), EFCreateError);
    EXPECT_THROW(TFileStream(name, fmOpenWrite), EFOpenError);
  }
  EXPECT_EQ(ReadWholeFile(name), "old");
  SaveWholeFile(name, "new");
  EXPECT_EQ(ReadWholeFile(name), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);  // no temporary file is left
}

TEST(Files, AttributesAndFurtherNamesStay) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("file", "a longer old text");
  fs::create_hard_link(name, folder.File("second"));
  SaveWholeFile(name, "new");
  EXPECT_EQ(ReadWholeFile(folder.File("second")), "new");
  fs::remove(folder.File("second"));
  ::SetFileAttributesA(name.c_str(), FILE_ATTRIBUTE_HIDDEN);
  SaveWholeFile(name, "newer");
  EXPECT_NE(::GetFileAttributesA(name.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  ::SetFileAttributesA(name.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_THROW(SaveWholeFile(name, "refused"), EFCreateError);
  ::SetFileAttributesA(name.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(ReadWholeFile(name), "newer");
  EXPECT_EQ(MessageOf([] { ReadWholeFile("Z:\\nowhere\\file"); }).substr(0, 36),
            "Cannot open file \"Z:\\nowhere\\file\". ");
}

TEST(Registry, TheSystemsOwnTakesValuesAndGivesThemBack) {
  std::string every;
  for (int byte = 1; byte < 256; ++byte) every += static_cast<char>(byte);
  const std::string key = std::string("qxTools.Test.") + kYear;
  EXPECT_TRUE(WriteClassesValue("\\" + key + "\\\\Shell", every));
  EXPECT_EQ(ReadClassesValue(key + "\\shell").value_or("none"), every);
  EXPECT_EQ(ReadClassesValue(key), std::nullopt);
  const std::vector<std::string> keys = ReadClassesKeys();
  EXPECT_TRUE(std::ranges::find(keys, key) != keys.end());
  DeleteClassesValue(key + "\\Shell");
  EXPECT_EQ(ReadClassesValue(key + "\\Shell"), std::nullopt);
  const std::vector<std::string> after = ReadClassesKeys();
  EXPECT_TRUE(std::ranges::find(after, key) == after.end());
}

TEST(QXRegFileType, IsReadBackByTheSystem) {
  QXRegFileType::RegFileType(".qxo", "qxTools.Order", "C:\\Order\\order.exe", "Order", 2);
  EXPECT_EQ(std::system("reg query HKCR\\.qxo /ve | findstr qxTools.Order >NUL"), 0);
  EXPECT_EQ(std::system("reg query HKCR\\qxTools.Order\\DefaultIcon /ve | findstr order.exe,2 >NUL"), 0);
  EXPECT_TRUE(QXRegFileType::UnregFileType(".qxo"));
  EXPECT_NE(std::system("reg query HKCR\\.qxo >NUL 2>NUL"), 0);
  EXPECT_NE(std::system("reg query HKCR\\qxTools.Order >NUL 2>NUL"), 0);
}

TEST(NetworkAdapter, CanBeAsked) {
  AdapterAddress address{};
  EXPECT_NE(ReadAdapterAddress(address), AdapterStatus::kUnreadable);
}

}  // namespace
