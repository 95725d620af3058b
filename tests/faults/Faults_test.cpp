// Whatever call fails while something is saved or loaded, the files are whole, old or new, and the error is
// the stated one. What leaks then is the leak checker's to tell.
#include "faults/Faults.h"

#include <qxTools/data/qxOleVariant.h>
#include <qxTools/data/qxStore.h>
#include <qxTools/graphics/qxDrawTools.h>
#include <qxTools/shell/QXRegFileType.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/stores/qxIniTools.h>

#include <memory>

#include "support/Picture.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;
using qxDrawTools::TFrameBitmaps;
using QXStringTable::TQXStringTable;

const std::string kLongText(100, 't');  // longer than what a string holds without memory
const std::string kSettings = "Main:[%RootKey%]\r\n[%\r\n  Mode:" + kLongText + "\r\n%]\r\n";

std::map<std::string, std::string> FilesIn(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    files[entry.path().filename()] = BytesOf(entry.path());
  return files;
}

std::ptrdiff_t OpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

// --- Saving and loading --------------------------------------------------------------------------------

/// An object that loads a file, and all that it holds as text.
struct Loaded {
  std::function<void()> load;
  std::function<std::string()> text;
};

/// A T, and what `textOf` says of it.
template <class T>
Loaded Open(const std::string& file, std::string (*textOf)(T&)) {
  const auto object = std::make_shared<T>();
  return {[=] { object->LoadFromFile(file); }, [=] { return textOf(*object); }};
}

std::string TextOfLines(TStrings& list) { return list.GetText(); }
std::string TextOfSettings(qxIniTools::TQXIniFile& settings) { return settings.GetText(); }
std::string DataOf(qxStore::TQXFileStore& store) { return std::string(store.GetStream()->GetBytes()); }
std::string PictureOf(TBitmap& bitmap) { return TextOf(bitmap); }

struct Format {
  const char* name;
  void (*save)(const std::string& file);
  Loaded (*open)(const std::string& file);
  bool inParts = false;          // what was loaded before memory ran out is kept, the old contents are gone
  bool hasMemoryStream = false;  // which has an error of its own when memory runs out
};

const std::string kPicture = "rgk\nk.r\n";

const Format kFormats[] = {
    {"StringList",
     [](const std::string& file) {
       TStrings{"one", kLongText}.SaveToFile(file);
     },
     [](const std::string& file) { return Open(file, TextOfLines); }},
    {"Settings",
     [](const std::string& file) {
       qxIniTools::TQXIniFile settings;
       settings.SetText(kSettings);
       settings.SaveToFile(file);
     },
     [](const std::string& file) { return Open(file, TextOfSettings); }, true},
    {"Table",
     [](const std::string& file) {
       TQXStringTable table(file);
       table.Clear();
       table.AddField("Name");
       table.AddRecord({kLongText});
       table.UpdateTable();
     },
     [](const std::string& file) -> Loaded {
       const auto text = std::make_shared<std::string>();
       return {[=] { *text = TQXStringTable(file).GetField("Name"); }, [=] { return *text; }};
     }},
    {"Store",
     [](const std::string& file) {
       qxStore::TQXFileStore store;
       store.GetStream()->WriteBuffer(kLongText.data(), kLongText.size());
       store.SaveToFile(file);
     },
     [](const std::string& file) { return Open(file, DataOf); }, true, true},
    {"Bitmap",
     [](const std::string& file) {
       TBitmap bitmap;
       Paint(bitmap, kPicture);
       bitmap.SaveToFile(file);
     },
     [](const std::string& file) { return Open(file, PictureOf); }},
    {"Frame",
     [](const std::string& file) {
       TFrameBitmaps pieces;
       for (TBitmap& piece : pieces) Paint(piece, kPicture);
       qxDrawTools::SaveDWF(file, pieces);
     },
     [](const std::string& file) -> Loaded {
       const auto pieces = std::make_shared<TFrameBitmaps>();
       return {[=] { qxDrawTools::LoadDWF(file, *pieces); },
               [=] { return TextOf(pieces->front()) + TextOf(pieces->back()); }};
     }},
};

void PrintTo(const Format& format, std::ostream* out) { *out << format.name; }

class Files : public testing::TestWithParam<Format> {
 protected:
  /// The files that a save makes.
  static std::map<std::string, std::string> Saved() {
    const TemporaryFolder folder;
    GetParam().save(folder.File("file"));
    return FilesIn(folder.Path());
  }

  /// @return how `call` ended, which is as stated and leaves no file open.
  static Outcome Run(Fault fault, long n, const std::function<void()>& call) {
    const std::ptrdiff_t openFiles = OpenFiles();
    const Outcome outcome = RunFailing(fault, n, call);
    const bool memory = fault == Fault::kMemory;
    const bool stated = outcome.error == Error::kNone || (outcome.error == Error::kMemory && memory) ||
                        (outcome.error == Error::kStream && (!memory || GetParam().hasMemoryStream));
    EXPECT_TRUE(stated && (outcome.reached || outcome.error == Error::kNone));
    EXPECT_TRUE(!outcome.flush || outcome.error == Error::kStream);
    EXPECT_EQ(OpenFiles(), openFiles);
    return outcome;
  }
};

/// Makes the files that a save will replace, each behind a link; written in place where they have another
/// name.
void MakeOld(const TemporaryFolder& folder, const std::map<std::string, std::string>& files, bool inPlace) {
  for (const auto& [name, bytes] : files) {
    std::filesystem::create_symlink(folder.Make("real " + name, "old"), folder.File(name));
    if (inPlace) std::filesystem::create_hard_link(folder.File("real " + name), folder.File("other " + name));
  }
}

TEST_P(Files, AreSavedWholeWithNoOtherLeftAlsoInPlaceOnAFullDisk) {
  const auto newFiles = Saved();
  for (const auto& [fault, inPlace] : {std::pair(Fault::kMemory, false),
                                       {Fault::kSystem, false},
                                       {Fault::kFullDisk, false},
                                       {Fault::kFullDisk, true}})
    ForEachCall([&, fault = fault, inPlace = inPlace](long n) {
      const TemporaryFolder folder;
      MakeOld(folder, newFiles, inPlace);
      const Outcome outcome = Run(fault, n, [&] { GetParam().save(folder.File("file")); });
      const auto files = FilesIn(folder.Path());
      EXPECT_EQ(files.size(), (inPlace ? 3 : 2) * newFiles.size());
      for (const auto& [name, bytes] : newFiles) {
        const std::string& found = files.at((inPlace ? "other " : "") + name);
        EXPECT_TRUE(found == bytes || (outcome.error != Error::kNone && found == "old")) << name;
        EXPECT_TRUE(std::filesystem::is_symlink(folder.File(name)));
      }
      return outcome.reached;
    });
}

TEST_P(Files, AreWholeAfterAKillAndTheNextSaveLeavesNothing) {
  const auto newFiles = Saved();
  for (const bool hasUnnamedFiles : {true, false}) {
    SetHasUnnamedFiles(hasUnnamedFiles);
    std::size_t withRest = 0;
    ForEachCall([&](long n) {
      const TemporaryFolder folder;
      MakeOld(folder, newFiles, false);
      const bool reached = RunKilled(n, [&] { GetParam().save(folder.File("file")); });
      auto files = FilesIn(folder.Path());
      for (const auto& [name, bytes] : newFiles)
        EXPECT_TRUE(files.at(name) == bytes || files.at(name) == "old") << name;
      EXPECT_LE(files.size(), 2 * newFiles.size() + 1);
      withRest += files.size() - 2 * newFiles.size();
      GetParam().save(folder.File("file"));
      files = FilesIn(folder.Path());
      EXPECT_EQ(files.size(), 2 * newFiles.size());
      for (const auto& [name, bytes] : newFiles) EXPECT_EQ(files.at(name), bytes);
      return reached;
    });
    // A file that has a name only from one call to the next is left by a kill between them alone.
    EXPECT_TRUE(!hasUnnamedFiles || withRest == newFiles.size()) << withRest;
  }
  SetHasUnnamedFiles(true);
}

TEST_P(Files, AreLoadedOrLeaveTheOldContentsAndCanBeTriedAgain) {
  const TemporaryFolder folder;
  const std::string file = folder.File("file");
  GetParam().save(file);
  const auto files = FilesIn(folder.Path());
  const Loaded whole = GetParam().open(file);
  const std::string oldText = whole.text();
  whole.load();
  for (const Fault fault : {Fault::kMemory, Fault::kSystem})
    ForEachCall([&](long n) {
      const Loaded loaded = GetParam().open(file);
      const Outcome outcome = Run(fault, n, loaded.load);
      const std::string text = loaded.text();
      const bool mayBeOld = outcome.error != Error::kNone;
      EXPECT_TRUE(text == whole.text() || (mayBeOld && (text == oldText || GetParam().inParts))) << text;
      loaded.load();
      EXPECT_EQ(loaded.text(), whole.text());
      return outcome.reached;
    });
  EXPECT_EQ(FilesIn(folder.Path()), files);
}

// --- Publishing ----------------------------------------------------------------------------------------

/// Every file below a folder, with its bytes.
std::map<std::string, std::string> FilesBelow(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) files[entry.path().lexically_relative(folder)] = BytesOf(entry.path());
  return files;
}

/// The folder of a user who has a default application, a picture for his program and a registered type.
void MakeUser(const TemporaryFolder& folder) {
  setenv("XDG_DATA_HOME", folder.File("data").c_str(), 1);
  setenv("XDG_CONFIG_HOME", folder.File("config").c_str(), 1);
  setenv("PATH", "", 1);  // nothing updates the desktop's databases
  std::filesystem::create_directory(folder.File("config"));
  folder.Make("config/mimeapps.list", "[Default Applications]\ntext/plain=mine.desktop\n");
  folder.Make("program.svg", "<svg/>");
  QXRegFileType::RegFileType(".old", "Old", "/opt/old", "Old", 0);
}

/// What the desktop sees of the user's files: all but the registry.
std::map<std::string, std::string> Published(const TemporaryFolder& folder) {
  auto files = FilesBelow(folder.Path());
  std::erase_if(files, [](const auto& file) { return file.first.starts_with("data/qxTools"); });
  return files;
}

TEST(Publishing, IsWholeOrNotAtAll) {
  setenv("TMPDIR", "/dev/shm", 1);  // many saves, each with a flush
  const auto call = [](const TemporaryFolder& folder) {
    QXRegFileType::RegFileType(".new", "New", folder.File("program"), "New", 2);
  };
  ForEachCall([&](long n) {
    const TemporaryFolder folder;
    MakeUser(folder);
    const auto before = Published(folder);
    const Outcome outcome = RunFailing(Fault::kSystem, n, [&] { call(folder); });
    const auto after = Published(folder);
    const bool isWhole = IsAssociationPublished(QXRegFileType::GetFileType("New"));
    EXPECT_TRUE(after == before || isWhole);
    EXPECT_TRUE(outcome.error == Error::kNone || outcome.error == Error::kStream);
    EXPECT_NE(after.at("config/mimeapps.list").find("text/plain=mine.desktop"), std::string::npos);
    call(folder);
    EXPECT_TRUE(IsAssociationPublished(QXRegFileType::GetFileType("New")));
    EXPECT_EQ(Published(folder).size(), before.size() + 3);  // package, entry and picture
    return outcome.reached;
  });
}

// --- Living --------------------------------------------------------------------------------------------

/// Short lives of objects, from their making to their end.
void (*const kLives[])() = {
    [] {
      QXSqlTools::TQXSQL command;
      command.GetInLines().SetText("a = @Name_that_is_long_enough_for_memory and b = @B /* c */");
      command.GetParams().SetItemsValue("@B", kLongText);
      command.GetOutLines();
    },
    [] {
      qxSqlStoreProc::TQXSqlStoreProc set;
      set.LoadStoreProc(u"select * from [$Table] where a = @MM_Name_that_is_long_enough /* c */");
      set.SetValue("@MM_Name_that_is_long_enough", kLongText);
      set.SetValue("$Table", kLongText);
      set.GetStoreProc();
      set.LoadParams(u"@a Int , @b Varchar(20)");
    },
    [] {
      qxOleVariant::TQXOleVariant packet;
      for (const char16_t* name : {u"One", u"Two", u"Three"}) packet.SetValue(name, kLongText);
      Variant travelling;
      packet.SaveToOle(travelling);
      packet.LoadFromOle(travelling);
      packet.GetSqlValue(u"Three");
    },
    // The value that is opened as a record, and the section that is deleted, leave pairs to be kept.
    [] {
      qxIniTools::TQXIniFile settings;
      settings.SetText(kSettings);
      settings.SetRootKey("Main");
      settings.OpenKey(2);
      settings.SetValue("Below", kLongText);
      settings.SetRootKey("Other");
      settings.AppendKey();
      settings.SetValue("Mode", kLongText);
      settings.DeleteRootKey("Other");
      settings.SetValue("Mode", kLongText);
    },
    [] {
      qxTreeList::TQXTreeNodes tree(0);
      tree.OpenRootNode();
      for (int i = 0; i < 40; ++i) tree.OpenTreeNode(tree.Add()->Key);
    },
};

TEST(Living, EndsWithoutMemory) {
  for (std::size_t i = 0; i < std::size(kLives); ++i) {
    SCOPED_TRACE(i);
    kLives[i]();  // what is made once stays
    ForEachCall([&](long n) {
      const Outcome outcome = RunFailing(Fault::kMemory, n, kLives[i]);
      EXPECT_TRUE(outcome.error == Error::kNone || (outcome.reached && outcome.error == Error::kMemory));
      return outcome.reached;
    });
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, Files, testing::ValuesIn(kFormats),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
