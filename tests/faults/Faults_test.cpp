// Whatever call fails while something is saved or loaded, the files are whole, old or new, nothing leaks, and
// the error is the stated one.
#include "faults/Faults.h"

#include <gtest/gtest.h>
#include <qxTools/data/QXValueTools.h>
#include <qxTools/data/qxOleVariant.h>
#include <qxTools/data/qxStore.h>
#include <qxTools/graphics/qxDrawTools.h>
#include <qxTools/platform/Files.h>
#include <qxTools/runtime/Bitmap.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/stores/qxIniTools.h>

#include <map>
#include <memory>

#include "support/TemporaryFolder.h"

namespace {

using namespace qxTools;
using test::BytesOf;
using test::Fault;
using test::Outcome;
using test::TemporaryFolder;

using Call = std::function<void()>;
using Files = std::map<std::string, std::string>;

const std::string kLongText(100, 't');  // longer than what a string holds without memory

Files FilesIn(const std::string& folder) {
  Files files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    files[entry.path().filename()] = BytesOf(entry.path());
  return files;
}

std::ptrdiff_t OpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

/// @param memoryStream says whether what ran out of memory may be a memory stream, with an error of its own.
void ExpectStated(Fault fault, const Outcome& outcome, bool memoryStream = false) {
  EXPECT_TRUE(outcome.reached || !outcome.raised);
  if (!outcome.raised) return;
  const bool memory = fault == Fault::kMemory;
  EXPECT_TRUE((memory && outcome.badAlloc) || ((!memory || memoryStream) && outcome.streamError));
}

TBitmap& Painted(TBitmap& bitmap, TColor color) {
  bitmap.SetSize(4, 3);
  bitmap.SetPixel(1, 1, color);
  return bitmap;
}

// --- Saving --------------------------------------------------------------------------------------------

/// Prepares what is to be saved into a folder; the call that comes back saves it.
struct Saver {
  const char* name;
  Call (*prepare)(const std::string& folder);
};

const Saver kSavers[] = {
    {"Bytes",
     [](const std::string& folder) -> Call {
       return [folder] { SaveWholeFile(folder + "/bytes", kLongText); };
     }},
    {"Link",
     [](const std::string& folder) -> Call {
       if (!std::filesystem::exists(folder + "/link"))
         std::filesystem::create_symlink("real", folder + "/link");
       return [folder] { SaveWholeFile(folder + "/link", kLongText); };
     }},
    {"StringList",
     [](const std::string& folder) -> Call {
       const auto list = std::make_shared<TStrings>(TStrings{"one", kLongText});
       return [=] { list->SaveToFile(folder + "/list.txt"); };
     }},
    {"Settings",
     [](const std::string& folder) -> Call {
       const auto settings = std::make_shared<qxIniTools::TQXIniFile>();
       settings->SetText("Main:[%RootKey%]\r\n[%\r\n  Mode:" + kLongText + "\r\n%]\r\n");
       return [=] { settings->SaveToFile(folder + "/app.ini"); };
     }},
    {"Table",
     [](const std::string& folder) -> Call {
       const auto table = std::make_shared<QXStringTable::TQXStringTable>(folder + "/people.tbl");
       table->Clear();
       table->AddField("Name");
       table->AddRecord({kLongText});
       return [=] { table->UpdateTable(); };
     }},
    {"Store",
     [](const std::string& folder) -> Call {
       const auto store = std::make_shared<qxStore::TQXFileStore>();
       store->SetComment("note");
       store->GetStream()->WriteBuffer(kLongText.data(), kLongText.size());
       return [=] { store->SaveToFile(folder + "/data.qxf"); };
     }},
    {"Bitmap",
     [](const std::string& folder) -> Call {
       const auto bitmap = std::make_shared<TBitmap>();
       Painted(*bitmap, TColor{0xFF});
       return [=] { bitmap->SaveToFile(folder + "/picture.bmp"); };
     }},
    {"Frame",
     [](const std::string& folder) -> Call {
       const auto pieces = std::make_shared<qxDrawTools::TFrameBitmaps>();
       for (TBitmap& piece : *pieces) Painted(piece, TColor{0xFF});
       return [=] { qxDrawTools::SaveDWF(folder + "/frame.dwf", *pieces); };
     }},
};

class Saving : public testing::TestWithParam<Saver> {};

TEST_P(Saving, LeavesEachFileWholeAndNoOther) {
  const TemporaryFolder first;
  GetParam().prepare(first.Path())();
  const Files newFiles = FilesIn(first.Path());
  for (const Fault fault : {Fault::kMemory, Fault::kSystem, Fault::kFullDisk}) {
    Outcome outcome;
    for (long n = 1; n == 1 || outcome.reached; ++n) {
      SCOPED_TRACE(n);
      const TemporaryFolder folder;
      for (const auto& [name, bytes] : newFiles) folder.Make(name == "link" ? "real" : name, "old");
      const Call save = GetParam().prepare(folder.Path());
      const std::ptrdiff_t openFiles = OpenFiles();
      const long blocks = test::BlocksInUse();
      outcome = test::RunFailing(fault, n, save);
      EXPECT_EQ(test::BlocksInUse(), blocks);
      EXPECT_EQ(OpenFiles(), openFiles);
      ExpectStated(fault, outcome);
      const Files files = FilesIn(folder.Path());
      EXPECT_EQ(files.size(), newFiles.size());
      for (const auto& [name, bytes] : newFiles) {
        const std::string& found = files.at(name);
        EXPECT_TRUE(found == bytes || (outcome.raised && found == "old"))
            << name << ": " << found.size() << " bytes";
      }
      EXPECT_EQ(std::filesystem::is_symlink(folder.File("link")), files.count("link") != 0);
      ASSERT_TRUE(outcome.reached || n > 1) << "nothing failed";
      ASSERT_LT(n, 500);
    }
  }
}

// --- Loading -------------------------------------------------------------------------------------------

/// Something that loads from a folder, and all that it holds as text.
class Loaded {
 public:
  virtual ~Loaded() = default;
  virtual void Load() = 0;
  virtual std::string Text() = 0;
};

template <class Object>
struct LoadedObject : Loaded {
  explicit LoadedObject(std::string file) : fileName(std::move(file)) {}
  std::string fileName;
  Object object;
};

struct LoadedList : LoadedObject<TStrings> {
  using LoadedObject::LoadedObject;
  void Load() override { object.LoadFromFile(fileName); }
  std::string Text() override { return object.GetText(); }
};

struct LoadedSettings : LoadedObject<qxIniTools::TQXIniFile> {
  using LoadedObject::LoadedObject;
  void Load() override {
    object.LoadFromFile(fileName);
    object.SetRootKey("Main");
    object.OpenFirstKey();
    object.GetValue("Mode");
  }
  std::string Text() override { return object.GetText(); }
};

struct LoadedTable : Loaded {
  explicit LoadedTable(std::string file) : fileName(std::move(file)) {}
  void Load() override {
    auto made = std::make_unique<QXStringTable::TQXStringTable>(fileName);
    made->RevertTable();
    made->GetField("Name");
    table = std::move(made);
  }
  std::string Text() override { return table ? table->GetText() : ""; }
  std::string fileName;
  std::unique_ptr<QXStringTable::TQXStringTable> table;
};

struct LoadedStore : LoadedObject<qxStore::TQXFileStore> {
  using LoadedObject::LoadedObject;
  void Load() override { object.LoadFromFile(fileName); }
  std::string Text() override { return std::string(object.GetStream()->GetBytes()); }
};

std::string Pixels(const TBitmap& bitmap) {
  std::string text;
  for (Integer y = 0; y < bitmap.GetHeight(); ++y)
    for (Integer x = 0; x < bitmap.GetWidth(); ++x) text += std::to_string(bitmap.GetPixel(x, y)) + " ";
  return text;
}

struct LoadedBitmap : LoadedObject<TBitmap> {
  using LoadedObject::LoadedObject;
  void Load() override { object.LoadFromFile(fileName); }
  std::string Text() override { return Pixels(object); }
};

struct LoadedFrame : LoadedObject<qxDrawTools::TFrameBitmaps> {
  using LoadedObject::LoadedObject;
  void Load() override { qxDrawTools::LoadDWF(fileName, object); }
  std::string Text() override {
    std::string text;
    for (const TBitmap& piece : object) text += Pixels(piece) + "\n";
    return text;
  }
};

struct Loader {
  const char* name;  // of the saver whose file is loaded
  const char* file;
  std::unique_ptr<Loaded> (*make)(const std::string& file);
  bool inParts;  // what was loaded before memory ran out is kept, the old contents are gone
};

template <class Object>
std::unique_ptr<Loaded> Make(const std::string& file) {
  return std::make_unique<Object>(file);
}

const Loader kLoaders[] = {
    {"StringList", "list.txt", Make<LoadedList>, false},  {"Settings", "app.ini", Make<LoadedSettings>, true},
    {"Table", "people.tbl", Make<LoadedTable>, false},    {"Store", "data.qxf", Make<LoadedStore>, true},
    {"Bitmap", "picture.bmp", Make<LoadedBitmap>, false}, {"Frame", "frame.dwf", Make<LoadedFrame>, false},
};

class Loading : public testing::TestWithParam<Loader> {};

TEST_P(Loading, KeepsTheOldContentsOrTakesAllAndCanBeTriedAgain) {
  const TemporaryFolder folder;
  for (const Saver& saver : kSavers)
    if (saver.name == std::string(GetParam().name)) saver.prepare(folder.Path())();
  const Files files = FilesIn(folder.Path());
  const auto make = [&] { return GetParam().make(folder.File(GetParam().file)); };
  const auto whole = make();
  whole->Load();
  const std::string oldText = make()->Text();
  for (const Fault fault : {Fault::kMemory, Fault::kSystem}) {
    Outcome outcome;
    for (long n = 1; n == 1 || outcome.reached; ++n) {
      SCOPED_TRACE(n);
      const std::ptrdiff_t openFiles = OpenFiles();
      const long blocks = test::BlocksInUse();
      {
        const auto loaded = make();
        outcome = test::RunFailing(fault, n, [&] { loaded->Load(); });
        ExpectStated(fault, outcome, GetParam().name == std::string("Store"));
        const std::string text = loaded->Text();
        EXPECT_TRUE(text == whole->Text() || (outcome.raised && (text == oldText || GetParam().inParts)))
            << text;
        loaded->Load();
        EXPECT_EQ(loaded->Text(), whole->Text());
      }
      EXPECT_EQ(test::BlocksInUse(), blocks);
      EXPECT_EQ(OpenFiles(), openFiles);
      ASSERT_TRUE(outcome.reached || n > 1) << "nothing failed";
      ASSERT_LT(n, 500);
    }
  }
  EXPECT_EQ(FilesIn(folder.Path()), files);
}

// --- Living --------------------------------------------------------------------------------------------

/// A short life of an object, from its making to its end.
struct Life {
  const char* name;
  void (*live)();
};

const Life kLives[] = {
    {"Command",
     [] {
       QXSqlTools::TQXSQL command;
       command.GetInLines().SetText("a = @Name_that_is_long_enough_for_memory and b = @B /* c */");
       command.GetParams().SetItemsValue("@B", kLongText);
       command.GetOutLines();
     }},
    {"StatementSet",
     [] {
       qxSqlStoreProc::TQXSqlStoreProc set;
       set.LoadStoreProc(u"select * from [$Table] where a = @MM_Name_that_is_long_enough /* c */");
       set.SetValue("@MM_Name_that_is_long_enough", kLongText);
       set.SetValue("$Table", kLongText);
       set.GetStoreProc();
       set.LoadParams(u"@a Int , @b Varchar(20)");
     }},
    {"Packet",
     [] {
       qxOleVariant::TQXOleVariant packet;
       for (const char16_t* name : {u"One", u"Two", u"Three"}) packet.SetValue(name, kLongText);
       Variant travelling;
       packet.SaveToOle(travelling);
       packet.LoadFromOle(travelling);
       packet.GetSqlValue(u"Three");
     }},
    {"ValueList",
     [] {
       QXValueTools::TQXValueList values;
       values.SetAutoCreate(true);
       values.SetValue("Name", kLongText);
       values.SetValue("Other", 1);
       values.GetValue("Name");
     }},
    // The value that is opened as a record, and the section that is deleted, leave pairs to be kept.
    {"Settings",
     [] {
       qxIniTools::TQXIniFile settings;
       settings.SetText("Main:[%RootKey%]\r\n[%\r\n  Mode:" + kLongText + "\r\n%]\r\n");
       settings.SetRootKey("Main");
       settings.OpenKey(2);
       settings.SetValue("Below", kLongText);
       settings.SetRootKey("Other");
       settings.AppendKey();
       settings.SetValue("Mode", kLongText);
       settings.DeleteRootKey("Other");
       settings.SetValue("Mode", kLongText);
     }},
    {"Tree",
     [] {
       qxTreeList::TQXTreeNodes tree(0);
       tree.OpenRootNode();
       for (int i = 0; i < 40; ++i) tree.OpenTreeNode(tree.Add()->Key);
     }},
};

class Living : public testing::TestWithParam<Life> {};

TEST_P(Living, EndsWithoutMemoryAndLeavesNone) {
  GetParam().live();  // what is made once stays
  Outcome outcome;
  for (long n = 1; n == 1 || outcome.reached; ++n) {
    const long blocks = test::BlocksInUse();
    outcome = test::RunFailing(Fault::kMemory, n, GetParam().live);
    ASSERT_EQ(test::BlocksInUse(), blocks) << n;
    ASSERT_TRUE(outcome.reached || n > 1) << "nothing failed";
    ASSERT_TRUE(outcome.badAlloc || !outcome.raised) << n;
    ASSERT_LT(n, 1000);
  }
}

// --- Assigning -----------------------------------------------------------------------------------------

TEST(Assigning, TakesAllOrLeavesAllAsItWas) {
  const QXValueTools::TValueRecord record("new", kLongText);
  Variant value = 5;
  test::RunFailing(Fault::kMemory, 1, [&] { value = record.Value; });
  EXPECT_EQ(value, Variant(5));
  for (const Integer place : {0, 2}) {
    QXValueTools::TQXValueList list;
    list.SetValue("old", 5);
    for (long n = 1; test::RunFailing(Fault::kMemory, n, [&] { list.SetItem(place, record); }).raised; ++n) {
      EXPECT_EQ(list.GetCount(), 1) << n;
      EXPECT_EQ(list.GetItem(0)->Name, "old") << n;
    }
  }
}

template <class Param>
std::string NameOf(const testing::TestParamInfo<Param>& param) {
  return param.param.name;
}

INSTANTIATE_TEST_SUITE_P(Faults, Saving, testing::ValuesIn(kSavers), NameOf<Saver>);
INSTANTIATE_TEST_SUITE_P(Faults, Loading, testing::ValuesIn(kLoaders), NameOf<Loader>);
INSTANTIATE_TEST_SUITE_P(Faults, Living, testing::ValuesIn(kLives), NameOf<Life>);

}  // namespace
