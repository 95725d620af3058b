#include <qxTools/platform/Registry.h>
#include <qxTools/shell/QXRegFileType.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXRegFileType;
using namespace qxTools::test;
namespace fs = std::filesystem;

/// A user of the test's own: nothing outside his folders is read or written.
class QXRegFileType : public ::testing::Test {
 protected:
  QXRegFileType() {
    setenv("HOME", folder_.Path().c_str(), 1);
    setenv("XDG_DATA_HOME", folder_.File("data").c_str(), 1);
    setenv("XDG_CONFIG_HOME", folder_.File("config").c_str(), 1);
    setenv("XDG_DATA_DIRS", "/usr/share", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
  }

  std::string Data(const std::string& name) const { return folder_.File("data/" + name); }
  std::string Class(const std::string& key) const { return Data("qxTools/classes/" + key); }
  std::string Entry(const std::string& id) const { return Data("applications/qxtools-" + id + ".desktop"); }
  std::string Package(const std::string& id) const {
    return BytesOf(Data("mime/packages/qxtools-" + id + ".xml"));
  }
  std::string Defaults() const { return BytesOf(folder_.File("config/mimeapps.list")); }

  static void MakeFile(const std::string& path, const std::string& bytes) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }

  /// A program that notes how many arguments it got, and the first.
  static void MakeProgram(const std::string& path) {
    MakeFile(path, "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$1\" >\"$NOTE.part\"\nmv \"$NOTE.part\" \"$NOTE\"\n");
    fs::permissions(path, fs::perms::owner_all);
  }

  /// What the program noted when the desktop opened `file`.
  std::string NoteOfOpening(const std::string& file) const {
    const std::string note = folder_.File("note");
    fs::remove(note);
    setenv("NOTE", note.c_str(), 1);
    setenv("OPENED", file.c_str(), 1);
    // Packages libglib2.0-bin, shared-mime-info and desktop-file-utils.
    if (std::system("gio open \"$OPENED\"") != 0) return "gio open failed";
    for (int i = 0; i < 500 && !fs::exists(note); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    return BytesOf(note);
  }

  /// Every file below `part` of the user's folder, with its bytes.
  std::map<std::string, std::string> FilesBelow(const std::string& part) const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.File(part)))
      if (entry.is_regular_file()) files[entry.path()] = BytesOf(entry.path());
    return files;
  }

  const TemporaryFolder folder_;
};

TEST_F(QXRegFileType, FiveValuesStandUnderTheirKeys) {
  RegFileType(".qxo", "QXOrder", "/opt/my orders/o", "\xAD\x71\xB3\xE6", -3);  // 訂單
  // clang-format off
  Rows([this](const std::string& key) { return BytesOf(Class(key) + "/%default"); })
      (".qxo", "QXOrder")(".qxo/Shell/Open/Command", "/opt/my orders/o \"%1\"")("QXOrder", "\xAD\x71\xB3\xE6")
      ("QXOrder/DefaultIcon", "/opt/my orders/o,-3")("QXOrder/Shell/Open/Command", "/opt/my orders/o \"%1\"");
  // clang-format on
}

TEST_F(QXRegFileType, AKeyThatCannotBeMadeIsLeftOut) {
  MakeFile(Class(".qxo"), "a file where the key's folder would be");
  RegFileType(".qxo", "QXOrder", "/opt/o", "Order", 1);
  EXPECT_EQ(ReadClassesValue("\\QXOrder"), "Order");
  EXPECT_EQ(ReadClassesValue("\\QXOrder\\Shell\\Open\\Command"), "/opt/o \"%1\"");
  EXPECT_FALSE(fs::exists(Entry("qxorder")));
  fs::remove_all(folder_.File("data"));
  MakeFile(folder_.File("data/qxTools"), "");
  RegFileType(".qxo", "QXOrder", "/opt/o", "Order", 0);
  EXPECT_FALSE(UnregFileType(".qxo"));
  EXPECT_EQ(FilesBelow("data").size(), 1U);
}

TEST_F(QXRegFileType, AValueThatCannotBeWrittenRaisesAndEndsTheSteps) {
  fs::create_directories(Class("QXOrder/%default"));
  EXPECT_THROW(RegFileType(".qxo", "QXOrder", "/opt/o", "Order", 0), EFCreateError);
  EXPECT_EQ(ReadClassesValue("\\.qxo"), "QXOrder");
  EXPECT_EQ(ReadClassesValue("\\QXOrder\\DefaultIcon"), std::nullopt);
}

TEST_F(QXRegFileType, KeysAreFoundInAnyCaseAndStayBelowTheRoot) {
  const std::string odd("a/b%\x01\0", 6);
  for (const std::string& level : {std::string(".."), std::string("."), odd}) {
    EXPECT_TRUE(WriteClassesValue("\\" + level + "\\Sub", "value of " + level));
    EXPECT_EQ(ReadClassesValue(level + "\\\\SUB\\"), "value of " + level);
  }
  EXPECT_EQ(ReadClassesKeys(), (std::vector<std::string>{".", "..", odd}));
  for (const char* const name : {"a%2Fb%25%01%00/Sub/%default", "%2E%2E/Sub/%default"})
    EXPECT_TRUE(fs::exists(Class(name))) << name;
  EXPECT_FALSE(WriteClassesValue(std::string(300, 'n'), ""));
  DeleteClassesValue("..\\Sub");
  EXPECT_FALSE(fs::exists(Class("%2E%2E")));
  EXPECT_TRUE(fs::exists(Class("%2E")));
}

TEST_F(QXRegFileType, TheDesktopOpensAFileWithTheProgramWhateverTheNames) {
  const std::string file = folder_.Make("\xE8\xA8\x82 \xE5\x96\xAE.QXO", "text");  // 訂 單
  for (const char* const name :
       {"orders", "my \"orders\"", "it's 100%f %% a=b", "$HOME ${HOME} $(id)", "`id` \\s\\\\ \\\"",
        "a;b|c&d<e>#*?", "line\nExec=false\ttab", "\xE8\xA8\x82\xE5\x96\xAE"}) {
    const std::string program = folder_.File(std::string("bin x/") + name);
    MakeProgram(program);
    RegFileType(".qxo", "QXOrder", program, "a<b>&\"\n", 0);
    EXPECT_EQ(NoteOfOpening(file), "1\n" + file + "\n") << name;
    setenv("ENTRY", Entry("qxorder").c_str(), 1);
    EXPECT_EQ(std::system("desktop-file-validate \"$ENTRY\""), 0) << BytesOf(Entry("qxorder"));
  }
  EXPECT_EQ(std::system("gio mime application/x-qxtools-qxorder | grep -q qxtools-qxorder.desktop"), 0);
  const std::string quoted = "\"" + folder_.File("bin x/orders") + "\"";
  RegFileType(".qxo", "QXOrder", quoted, "", 0);
  EXPECT_EQ(NoteOfOpening(file), "1\n" + file + "\n");
}

TEST_F(QXRegFileType, AnExtensionThatTheDesktopKnowsIsOpenedWithTheProgram) {
  const std::string program = folder_.File("mine");
  MakeProgram(program);
  // clang-format off
  const std::pair<const char*, const char*> files[] = {
    {".txt", "plain text\n"}, {".sql", "select 1;\n"}, {".csv", "a,b\n1,2\n"}, {".log", "started\n"},
    {".xml", "<?xml version=\"1.0\"?><a/>"}, {".html", "<!DOCTYPE html><p>a"}};
  // clang-format on
  for (const auto& [ext, bytes] : files) {
    const std::string name = std::string("my.") + (ext + 1);
    RegFileType(ext, name, program, "Mine", 0);
    const std::string file = folder_.Make(std::string("a") + ext, bytes);
    EXPECT_EQ(NoteOfOpening(file), "1\n" + file + "\n") << ext;
    setenv("TYPE", AssociationId(name).c_str(), 1);
    EXPECT_EQ(std::system("gio info -a standard::content-type \"$OPENED\" | grep -q \": $TYPE\\$\""), 0)
        << ext;
  }
  const auto once = FilesBelow("data/mime/packages");
  RegFileType(".txt", "my.txt", program, "Mine", 0);
  EXPECT_EQ(FilesBelow("data/mime/packages"), once);
}

TEST_F(QXRegFileType, ATypeThatIsNotStoredWholeIsNotPublished) {
  const std::string name(300, 'n');  // too long for a key
  RegFileType(".qxo", name, "/opt/o", "Order", 0);
  EXPECT_EQ(ReadClassesValue("\\.qxo"), name);
  EXPECT_FALSE(fs::exists(folder_.File("data/applications")) || fs::exists(folder_.File("config")));
  EXPECT_FALSE(IsAssociationPublished(GetFileType(name)));
  fs::create_directories(folder_.File("config/mimeapps.list"));  // a list that cannot be read
  RegFileType(".t", "T", "/opt/t", "", 0);
  EXPECT_FALSE(fs::exists(folder_.File("data/applications")));
  EXPECT_THROW(PlannedChangesOf(GetFileType("T")), EFOpenError);
}

TEST_F(QXRegFileType, WhatIsPublishedFollowsWhatIsStored) {
  RegFileType(".qxo", "QXOrder", "/opt/o", "\xAD\x71\xB3\xE6 <&>", 0);
  const auto once = FilesBelow("");
  for (const auto& [ext, type] : {std::pair(".QXO", "qxorder"), {".qxo", "QXOrder"}})
    RegFileType(ext, type, "/opt/o", "\xAD\x71\xB3\xE6 <&>", 0);
  EXPECT_EQ(FilesBelow(""), once);
  RegFileType(".q[?*", "QXOrder", "/opt/o", "\xAD\x71\xB3\xE6 <&>", 0);
  EXPECT_NE(Package("qxorder").find("<comment>\xE8\xA8\x82\xE5\x96\xAE &lt;&amp;&gt;</comment>\n"
                                    "    <glob pattern=\"*.q[[][?][*]\" weight=\"80\"/>\n"
                                    "    <glob pattern=\"*.qxo\" weight=\"80\"/>\n"),
            std::string::npos);
  EXPECT_EQ(PlanFileType(".QXO", "Other_Type", "", "", 0).extensions, std::vector<AnsiString>{".qxo"});
  RegFileType(".QXO", "Other_Type", "/opt/p", "Other", 0);  // moves
  EXPECT_EQ(Package("qxorder").find("*.qxo"), std::string::npos);
  EXPECT_NE(Package("other_5ftype").find("*.qxo"), std::string::npos);
  EXPECT_TRUE(UnregFileType(".q[?*"));
  EXPECT_FALSE(UnregFileType(".q[?*"));
  EXPECT_FALSE(fs::exists(Entry("qxorder")));
  EXPECT_EQ(ReadClassesKeys(), (std::vector<std::string>{".qxo", "Other_Type"}));
  EXPECT_EQ(Defaults(),
            "[Default Applications]\napplication/x-qxtools-other_5ftype=qxtools-other_5ftype.desktop\n");
}

TEST_F(QXRegFileType, TheUsersOtherDefaultsStay) {
  const std::string associations = "[Added Associations]\napplication/x-qxtools-t=c\n\n";
  const std::string others = associations + "[Default Applications]\r\ntext/plain=e.desktop";
  const std::string list = folder_.File("config/mimeapps.list");
  const std::string line = "application/x-qxtools-t=qxtools-t.desktop\n";
  MakeFile(list, others);
  RegFileType(".t", "T", "/opt/t", "", 0);
  EXPECT_EQ(Defaults(), associations + "[Default Applications]\r\n" + line + "text/plain=e.desktop");
  UnregFileType(".t");
  EXPECT_EQ(Defaults(), others);
  MakeFile(list, "a\n[X]");
  RegFileType(".t", "T", "/opt/t", "", 0);
  EXPECT_EQ(Defaults(), "a\n[X]\n[Default Applications]\n" + line);
  fs::remove(list);
  RegFileType(".t", "T", "/opt/t", "", 0);
  UnregFileType(".t");
  EXPECT_FALSE(fs::exists(list));
}

TEST_F(QXRegFileType, APictureBesideTheProgramIsTheIcon) {
  const std::string png = std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x31", 20);  // 49 wide
  const std::string icon = folder_.File("data/icons/hicolor/48x48/mimetypes/application-x-qxtools-t.png");
  MakeFile(folder_.File("t.png"), png);
  RegFileType(".t", "T", folder_.File("t.exe"), "", 0);
  EXPECT_EQ(BytesOf(icon), png);
  EXPECT_NE(BytesOf(Entry("t")).find("\nIcon=application-x-qxtools-t\n"), std::string::npos);
  fs::remove(folder_.File("t.png"));
  RegFileType(".t", "T", folder_.File("t.exe"), "", 0);
  EXPECT_FALSE(fs::exists(icon));
  EXPECT_EQ(BytesOf(Entry("t")).find("Icon="), std::string::npos);
}

TEST_F(QXRegFileType, NamesThatTheDesktopCannotHaveOnlyStandInTheRegistry) {
  for (const char* const ext : {"qxo", ".", ".a\n*", ".a/b", ".a:cs"}) {
    RegFileType(ext, "T", "/opt/t", "", 0);
    EXPECT_EQ(ReadClassesValue("\\" + std::string(ext)), "T");
    EXPECT_FALSE(fs::exists(Entry("t"))) << ext;
  }
  RegFileType(".t", "T", std::string("/opt/t\0x", 8), "", 0);
  EXPECT_FALSE(fs::exists(Entry("t")));
  unsetenv("XDG_DATA_HOME");
  setenv("HOME", "relative", 1);
  RegFileType(".t", "T", "/opt/t", "", 0);
  EXPECT_EQ(ReadClassesValue("\\.t"), std::nullopt);
}

}  // namespace
