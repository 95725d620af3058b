#include <qxTools/base/Exceptions.h>
#include <qxTools/base/LittleEndian.h>
#include <qxTools/runtime/Filer.h>

namespace qxTools {

namespace {

constexpr std::size_t kLongestName = 255;

/// The ancestor is known for one call only, however that ends.
struct ForgetAtEnd {
  TPersistent*& ancestor;
  ~ForgetAtEnd() { ancestor = nullptr; }
};

}  // namespace

TFiler::~TFiler() = default;

// --- TWriter -----------------------------------------------------------------------------------------

TWriter::~TWriter() = default;

void TWriter::WriteProperties(TPersistent* object, TPersistent* ancestor) {
  const ForgetAtEnd forget{ancestor_ = ancestor};
  object->DefineProperties(*this);
  stream_->WriteBuffer("", 1);
}

void TWriter::DefineBinaryProperty(std::string_view name, const TStreamProc&, const TStreamProc& writeData,
                                   bool hasData) {
  if (!hasData) return;
  if (name.empty() || name.size() > kLongestName) throw EWriteError("Stream write error");
  TMemoryStream data;
  writeData(&data);
  const std::string head = static_cast<char>(name.size()) + std::string(name);
  stream_->WriteBuffer(head.data(), head.size());
  const auto size = ToLittleEndian(data.GetSize());
  stream_->WriteBuffer(size.data(), size.size());
  stream_->WriteBuffer(data.GetBytes().data(), data.GetBytes().size());
}

// --- TReader -----------------------------------------------------------------------------------------

TReader::~TReader() = default;

void TReader::ReadProperties(TPersistent* object) {
  for (name_ = ReadName(); !name_.empty(); name_ = ReadName()) {
    object->DefineProperties(*this);
    if (!name_.empty()) throw EReadError("Property " + name_ + " does not exist");
  }
}

void TReader::DefineBinaryProperty(std::string_view name, const TStreamProc& readData, const TStreamProc&,
                                   bool) {
  if (name_.empty() || name != name_) return;
  name_.clear();
  std::array<char, 8> size;
  stream_->ReadBuffer(size.data(), size.size());
  TMemoryStream data;
  data.CopyFrom(*stream_, FromLittleEndian(size));
  data.SetPosition(0);
  readData(&data);
}

std::string TReader::ReadName() {
  std::uint8_t length = 0;
  stream_->ReadBuffer(&length, 1);
  std::string name(length, '\0');
  stream_->ReadBuffer(name.data(), name.size());
  return name;
}

}  // namespace qxTools
