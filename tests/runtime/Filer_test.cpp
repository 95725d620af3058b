#include <qxTools/runtime/Filer.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

/// Blocks of bytes by their names, each written when it is not empty.
class Blocks : public TPersistent {
 public:
  void DefineProperties(TFiler& filer) override {
    for (auto& [name, block] : blocks) {
      const auto read = [&block = block](TStream* stream) {
        block.resize(static_cast<std::size_t>(stream->GetSize()));
        stream->ReadBuffer(block.data(), block.size());
      };
      const auto write = [&block = block](TStream* stream) {
        stream->WriteBuffer(block.data(), block.size());
      };
      filer.DefineBinaryProperty(name, read, write, !block.empty());
    }
  }
  std::map<std::string, std::string> blocks;
};

TEST(Filer, PropertiesComeBackAsWrittenOrRaise) {
  Blocks object, loaded, other;
  object.blocks = {{"Empty", ""}, {"First", std::string("a\0b", 3)}, {"Second", std::string(300, 's')}};
  TMemoryStream stream;
  TWriter writer(&stream);
  writer.WriteProperties(&object);
  EXPECT_EQ(stream.GetBytes().substr(0, 18), std::string("\5First\3\0\0\0\0\0\0\0a\0b\6", 18));
  stream.SetPosition(0);
  loaded.blocks = {{"Empty", ""}, {"First", ""}, {"Second", ""}};
  TReader(&stream).ReadProperties(&loaded);
  EXPECT_EQ(loaded.blocks, object.blocks);
  EXPECT_EQ(stream.GetPosition(), stream.GetSize());
  stream.SetPosition(0);
  other.blocks = {{"first", ""}};
  EXPECT_EQ(MessageOf([&] { TReader(&stream).ReadProperties(&other); }), "Property First does not exist");
  for (const std::string& name : {std::string(), std::string(256, 'n')})
    EXPECT_EQ(MessageOf([&] { writer.DefineBinaryProperty(name, {}, {}, true); }), "Stream write error");
}

}  // namespace
