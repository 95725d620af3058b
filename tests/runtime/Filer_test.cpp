#include <qxTools/runtime/Filer.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

/// Two blocks of bytes, each written when it is not empty.
class Blocks : public TPersistent {
 public:
  void DefineProperties(TFiler& filer) override {
    Define(filer, "First", first);
    Define(filer, "Second", second);
  }
  std::string first;
  std::string second;

 private:
  static void Define(TFiler& filer, const char* name, std::string& block) {
    const auto read = [&block](TStream* stream) {
      block.resize(static_cast<std::size_t>(stream->GetSize()));
      stream->ReadBuffer(block.data(), block.size());
    };
    const auto write = [&block](TStream* stream) { stream->WriteBuffer(block.data(), block.size()); };
    filer.DefineBinaryProperty(name, read, write, !block.empty());
  }
};

TEST(Filer, PropertiesComeBackAsWritten) {
  Blocks objects[3];
  objects[0].first = std::string("a\0b", 3);
  objects[2].first = objects[2].second = std::string(300, 's');
  TMemoryStream stream;
  for (Blocks& object : objects) TWriter(&stream).WriteProperties(&object);
  EXPECT_EQ(stream.GetBytes().substr(0, 19), std::string("\5First\3\0\0\0\0\0\0\0a\0b\0\0", 19));
  stream.SetPosition(0);
  for (const Blocks& object : objects) {
    Blocks loaded;
    TReader(&stream).ReadProperties(&loaded);
    EXPECT_EQ(loaded.first, object.first);
    EXPECT_EQ(loaded.second, object.second);
  }
}

TEST(Filer, WhatDoesNotFitRaises) {
  const std::pair<std::string, const char*> cases[] = {
      {"", "Stream read error"},
      {"\5Fir", "Stream read error"},
      {"\5first", "Property first does not exist"},
      {std::string("\5First\4\0\0\0\0\0\0\0abc", 17), "Stream read error"},
      {"\5First\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", "Stream read error"}};
  for (const auto& [bytes, message] : cases) {
    TMemoryStream stream;
    stream.WriteBuffer(bytes.data(), bytes.size());
    stream.SetPosition(0);
    Blocks object;
    TReader reader(&stream);
    EXPECT_EQ(MessageOf([&reader, &object] { reader.ReadProperties(&object); }), message);
  }
  TMemoryStream stream;
  TWriter writer(&stream);
  for (const std::string& name : {std::string(), std::string(256, 'n')})
    EXPECT_EQ(MessageOf([&] { writer.DefineBinaryProperty(name, {}, {}, true); }), "Stream write error");
}

}  // namespace
