#include <gtest/gtest.h>
#include <qxTools/runtime/Filer.h>

#include "support/MessageOf.h"

namespace {

using namespace qxTools;
using test::MessageOf;

/// Two blocks of bytes, each written when it differs from the ancestor's.
class Blocks : public TPersistent {
 public:
  void DefineProperties(TFiler& filer) override {
    const auto* ancestor = dynamic_cast<Blocks*>(filer.GetAncestor());
    Define(filer, "First", first, ancestor != nullptr ? ancestor->first : "");
    Define(filer, "Second", second, ancestor != nullptr ? ancestor->second : "");
  }

  std::string first;
  std::string second;

 private:
  static void Define(TFiler& filer, const char* name, std::string& block, const std::string& inherited) {
    filer.DefineBinaryProperty(
        name,
        [&block](TStream* stream) {
          block.resize(static_cast<std::size_t>(stream->GetSize()));
          stream->ReadBuffer(block.data(), block.size());
        },
        [&block](TStream* stream) { stream->WriteBuffer(block.data(), block.size()); }, block != inherited);
  }
};

TMemoryStream& Rewound(TMemoryStream& stream) {
  stream.SetPosition(0);
  return stream;
}

TEST(Filer, PropertiesComeBackAsWritten) {
  Blocks object;
  object.first = std::string("a\0b", 3);
  object.second = "in both";
  Blocks ancestor;
  ancestor.second = "in both";
  TMemoryStream stream;
  TWriter(&stream).WriteProperties(&object, &ancestor);
  TWriter(&stream).WriteProperties(&object);
  EXPECT_EQ(stream.GetBytes().substr(0, 18), std::string("\5First\3\0\0\0\0\0\0\0a\0b\0", 18));
  TReader reader(&Rewound(stream));
  Blocks loaded;
  reader.ReadProperties(&loaded);
  EXPECT_EQ(loaded.first, object.first);
  EXPECT_EQ(loaded.second, "");
  reader.ReadProperties(&loaded);
  EXPECT_EQ(loaded.second, "in both");
  EXPECT_EQ(stream.GetPosition(), stream.GetSize());
}

TEST(Filer, WhatDoesNotFitRaises) {
  struct {
    std::string bytes;
    const char* message;
  } const cases[] = {
      {"", "Stream read error"},
      {"\5Fir", "Stream read error"},
      {"\5Third", "Property Third does not exist"},
      {"\5first", "Property first does not exist"},
      {std::string("\5First\4\0\0\0\0\0\0\0abc", 17), "Stream read error"},
      {"\5First\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "Stream read error"},
      {"\5First\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", "Stream read error"},
  };
  for (const auto& c : cases) {
    TMemoryStream stream;
    stream.WriteBuffer(c.bytes.data(), c.bytes.size());
    Blocks object;
    EXPECT_EQ(MessageOf([&] { TReader(&Rewound(stream)).ReadProperties(&object); }), c.message);
  }
  TMemoryStream stream;
  TWriter writer(&stream);
  const auto nothing = [](TStream*) {};
  for (const std::string& name : {std::string(), std::string(256, 'n')})
    EXPECT_EQ(MessageOf([&] { writer.DefineBinaryProperty(name, nothing, nothing, true); }),
              "Stream write error");
}

}  // namespace
