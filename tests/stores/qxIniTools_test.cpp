#include <qxTools/base/Ascii.h>
#include <qxTools/stores/qxIniTools.h>
#include <qxTools/strings/QXStrTools.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;
using namespace std::string_literals;
using qxTools::qxTreeList::TNodeKey;
using namespace qxTools::test;

std::string Text(const char* text) { return text != nullptr ? text : "(null)"; }

// Levels, and the pairs of the nodes that have one.
std::string Dump(const TQXIniFile& file) {
  std::string nodes;
  file.EnumTreeNode([&](pQXTreeNode node) {
    const auto* const pair = static_cast<const TQXIniPair*>(node->Data);
    nodes += std::to_string(node->Level);
    if (pair != nullptr) nodes += Text(pair->Name) + "=" + Text(pair->Value);
    nodes += ' ';
  });
  return nodes;
}

TEST(qxIniTools, ALoadReadsEachKindOfLine) {
  TQXIniFile file;
  file.SetText(
      "Name:text outside\n"
      "\n"
      " Main section \x01:[%rootkey%]\t\r"  // trimmed, and the mark in any case
      "Lost:outside a record\r\n"
      "  [% \r\n"
      "Path:C:\\Data: \r\n"
      "  // Note:a comment\r\n"
      "no separator\r\n"
      "Two: [%RootKey%]\r\n"  // the blank makes it a value
      "A:B:[%RootKey%]\r\n"   // so does a second colon
      " /Mode : fast \r\n"    // only the line's ends are trimmed
      ":no name\r\nNo text:\r\n"
      "Second:[%RootKey%]\r\n"  // in an open record
      "Late:goes to the record above\r\n"
      "%]\r\n"
      "Lost:again\r\n"
      "MAIN SECTION:[%RootKey%]\r\n"  // the first section once more
      "[%\r\n[%\r\n%]");
  EXPECT_EQ(Dump(file),
            "1RootKey=Main section 2 3Path=C:\\Data: 3Two= [%RootKey%] 3A=B:[%RootKey%] 3/Mode = fast "
            "3(null)=no name "
            "3No text=(null) 3Late=goes to the record above 2 2 1RootKey=Second ");
}

TEST(qxIniTools, FilesAreLoadedAndSavedWhole) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("app.ini",
                                       "A:[%RootKey%]\nB:[%RootKey%]\n[%\nz:1\n:x\ny:\nC:[%RootKey%]\n[%\n"
                                       "Port:1433\nMode:slow\n[%\n");
  TQXIniFile file;
  file.LoadFromFile(name);
  file.OpenFirstKey();
  file.LoadFromFile(folder.File("missing"));
  EXPECT_THROW(file.LoadFromFile(folder.Path()), EFOpenError);
  EXPECT_EQ(file.GetValue("pORT"), "1433");  // nothing has changed
  file.SetValue("mode", "");
  file.SaveToFile(name);
  // An empty line stands only between a record and a section; what has no name or no text is left out.
  EXPECT_EQ(BytesOf(name),
            "A:[%RootKey%]\r\nB:[%RootKey%]\r\n[%\r\n  z:1\r\n%]\r\n\r\nC:[%RootKey%]\r\n"
            "[%\r\n  Port:1433\r\n%]\r\n[%\r\n%]\r\n");
}

TEST(qxIniTools, ALoadThatFailsSaysWhereAndKeepsWhatItRead) {
  TQXIniFile file;
  try {
    file.SetText("\nName:text\r\n[%\r\n");
    ADD_FAILURE();
  } catch (const EIniLoadError& e) {
    EXPECT_STREQ(e.what(), "RootKey not Open.");
    EXPECT_EQ(e.GetLine(), 3);
  }
  // A section that was open before counts as open, so the same text loads; the records have no section.
  file.SetRootKey("Main");
  file.SetText("[%\r\nA:1\r\n%]\r\nMain:[%RootKey%]\r\n");
  EXPECT_EQ(Dump(file), "1 2A=1 1RootKey=Main ");
  EXPECT_EQ(file.GetText(), "[%\r\n%]\r\n\r\nMain:[%RootKey%]\r\n");
}

TEST(qxIniTools, CallsThatNeedAnOpenSectionOrRecordSaySo) {
  TQXIniFile file;
  EXPECT_EQ(MessageOf([&] { file.AppendKey(); }), "RootKey not Open.");
  EXPECT_EQ(MessageOf([&] { file.DeleteKey(1); }), "RootKey not Open.");
  EXPECT_EQ(MessageOf([&] { file.ClearKeys(); }), "RootKey not Open.");
  file.SetRootKey("Main");
  pQXTreeNode node = nullptr;
  EXPECT_EQ(MessageOf([&] { file.GetValue("A"); }), "Item Key not open.");
  EXPECT_EQ(MessageOf([&] { file.SetValue("A", "1"); }), "Item Key not open.");
  EXPECT_EQ(MessageOf([&] { file.FindField("A", node); }), "ItemKey not opend");
  EXPECT_EQ(MessageOf([&] { file.DeleteRootKey("Other"); }), "RootKey not Find.");
  file.DeleteValue("A");
  file.OpenFirstKey();
  EXPECT_EQ(Dump(file), "1RootKey=Main ");
}

// The values of n in the records that the moves open, - where none is open.
std::string Walk(TQXIniFile& file, std::string_view moves) {
  std::string values;
  for (const char move : moves) {
    if (move == 'F') file.OpenFirstKey();
    if (move == 'P') file.OpenPrevKey();
    if (move == 'N') file.OpenNextKey();
    if (move == 'L') file.OpenLastKey();
    if (MessageOf([&] { values += file.GetValue("N"); }) == "Item Key not open.") values += '-';
  }
  return values;
}

TEST(qxIniTools, RecordsAreWalkedOnceAFileWasLoaded) {
  TQXIniFile file;
  file.SetRootKey("S");
  for (const char* value : {"1", "2", "3"}) {
    file.AppendKey();
    file.SetValue("n", value);
  }
  EXPECT_EQ(Walk(file, "FN"), "1-");
  file.ClearKeys();
  EXPECT_EQ(Walk(file, "F"), "1");  // not even that
  file.SetText(file.GetText());
  EXPECT_EQ(Walk(file, "FNPPLFLN"), "121--13-");  // the last one is found from an open one only
  file.OpenFirstKey();
  file.SetRootKey("s");
  EXPECT_EQ(Walk(file, "N"), "-");
  file.ClearKeys();
  EXPECT_EQ(Dump(file), "1RootKey=s ");
}

TEST(qxIniTools, WhatWasDeletedStaysOpenAndTakesNothing) {
  TQXIniFile file;
  file.SetText("A:[%RootKey%]\n[%\nx:1\n%]\nB:[%RootKey%]\n[%\ny:2\n");
  file.DeleteRootKey("b");
  file.SetValue("y", "New");  // its record is gone: a section by the name of New
  file.AppendKey();           // its section is gone: a record without one
  file.SetValue("z", "4");
  EXPECT_EQ(Dump(file), "1RootKey=A 2 3x=1 1y=New 1 2z=4 ");
  EXPECT_EQ(file.GetText(), "A:[%RootKey%]\r\n[%\r\n  x:1\r\n%]\r\n\r\nNew:[%RootKey%]\r\n[%\r\n%]\r\n");
  file.SetRootKey("NEW");
  file.AppendKey();
  EXPECT_EQ(Dump(file), "1RootKey=A 2 3x=1 1y=New 2 1 2z=4 ");
  file.Clear();
  EXPECT_EQ(Dump(file), "");
  file.SetRootKey("");
  EXPECT_EQ(file.GetText(), ":[%RootKey%]\r\n");
}

TEST(qxIniTools, TextsEndAtTheirFirstNul) {
  TQXIniFile file;
  file.SetRootKey("S\0x"s);
  file.SetRootKey("S\0x"s);  // compared whole, so it is another one
  file.DeleteRootKey("s");
  file.AppendKey();
  file.SetValue("name\0x"s, "\0text"s);
  EXPECT_EQ(file.GetValue("NAME"), "");
  EXPECT_EQ(file.GetText(), "S:[%RootKey%]\r\n[%\r\n  name:\r\n%]\r\n");  // present and empty
  file.DeleteRootKey("S");
  EXPECT_EQ(MessageOf([&] { file.DeleteRootKey("S"); }), "RootKey not Find.");
}

// Names and indexes by the definition: walks over what the enumeration shows. On purpose: an index counts
// records and values together, and opens or deletes a value as if it were a record.
TEST(qxIniTools, FindingAgreesWithAWalk) {
  std::mt19937 random(5);
  const auto name = [&] {
    return std::string{random() % 2 == 0 ? 'n' : 'N', static_cast<char>('A' + random() % 40)};
  };
  std::string text = "S:[%RootKey%]\n";
  for (int i = 0; i < 200; ++i) text += (i % 70 == 0 ? "[%\n" : "") + name() + ":" + name() + "\n";
  TQXIniFile file;
  file.SetText(text);
  TNodeKey open;
  for (int step = 0; step < 5000; ++step) {
    std::vector<pQXTreeNode> nodes;
    file.EnumTreeNode([&](pQXTreeNode node) { nodes.push_back(node); });
    const auto index = random() % nodes.size();
    pQXTreeNode numbered = nullptr;
    ASSERT_EQ(file.FindKeyIndex(static_cast<Integer>(index), numbered), index > 0);
    ASSERT_EQ(numbered, index > 0 ? nodes[index] : nullptr);  // the section itself has no index

    const std::string wanted = name();
    if (open.Length() > 0) {
      const auto first = std::find_if(nodes.begin(), nodes.end(), [&](pQXTreeNode node) {
        const auto* const pair = static_cast<const TQXIniPair*>(node->Data);
        return node->ParentKey == open && pair != nullptr && SameText(pair->Name, wanted);
      });
      pQXTreeNode found = nullptr;
      file.FindField(wanted, found);
      ASSERT_EQ(found, first != nodes.end() ? *first : nullptr);
    }

    if (random() % 16 == 0) {
      file.OpenKey(static_cast<Integer>(index));
      open = index > 0 ? numbered->Key : TNodeKey();
    } else if (random() % 16 == 0 && nodes.size() > 100) {
      file.DeleteKey(static_cast<Integer>(index));
      file.CloseKey();
      open = {};
    } else if (random() % 4 == 0) {
      file.DeleteValue(wanted);
    } else if (open.Length() > 0) {
      file.SetValue(wanted, "new");
      ASSERT_EQ(file.GetValue(wanted), "new");
    }
  }
}

TEST(qxIniTools, BadInputIsRead) {
  TQXIniFile file;
  file.SetText("S:[%RootKey%]\n" + QXStrTools::Replicate("[%\r", 1000000));
  EXPECT_EQ(file.GetText().size(), 15U + 8U * 1000000U);
  file.SetText(std::string(10000000, ':'));
  EXPECT_EQ(file.GetText(), "");
  file.SetText("\xA4\xA4\xA4:[%RootKey%]\r\r\n\n[%\n\xFE\0:\xA4\r%]"s);
  EXPECT_EQ(file.GetText(), "\xA4\xA4\xA4:[%RootKey%]\r\n[%\r\n  \xFE:\xA4\r\n%]\r\n");
}

}  // namespace
