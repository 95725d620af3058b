#include <qxTools/base/Exceptions.h>
#include <qxTools/base/LittleEndian.h>
#include <qxTools/data/qxStore.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/Files.h>

#include <algorithm>
#include <typeinfo>

namespace qxTools::qxStore {

namespace {

constexpr std::size_t kHeaderSize = 72;
constexpr std::size_t kFlagAt = 0;
constexpr std::size_t kDataSizeAt = 8;
constexpr std::size_t kCommentAt = 16;
constexpr std::size_t kLongestComment = 50;

using Header = std::array<char, kHeaderSize>;

/// A length byte and the text, as it stands in a header.
void PutText(Header& header, std::size_t at, std::string_view text) {
  header[at] = static_cast<char>(text.size());
  text.copy(header.data() + at + 1, text.size());
}

/// A length beyond what there is room for counts as that much.
std::string_view TextAt(const Header& header, std::size_t at, std::size_t longest) {
  const std::size_t length = static_cast<unsigned char>(header[at]);
  return {header.data() + at + 1, std::min(length, longest)};
}

bool HasFlag(const Header& header, std::string_view flag) {
  const bool sameLength = static_cast<unsigned char>(header[kFlagAt]) == flag.size();
  return sameLength && TextAt(header, kFlagAt, flag.size()) == flag;
}

}  // namespace

// --- TQXCustomStore ----------------------------------------------------------------------------------

TQXCustomStore::~TQXCustomStore() = default;

void TQXCustomStore::Changed(TObject*) {
  modified_ = true;
  if (const TNotifyEvent event = onChange_) event(this);  // a copy: the handler may set another
}

bool TQXCustomStore::Equals(TQXCustomStore* other) {
  if (other == nullptr) return false;
  if (GetEmpty() || other->GetEmpty()) return GetEmpty() && other->GetEmpty();
  if (typeid(*this) != typeid(*other)) return false;
  TMemoryStream mine;
  TMemoryStream others;
  WriteData(&mine);
  other->WriteData(&others);
  return mine.GetBytes() == others.GetBytes();
}

void TQXCustomStore::ReadData(TStream* stream) { LoadFromStream(stream); }

void TQXCustomStore::WriteData(TStream* stream) { SaveToStream(stream); }

void TQXCustomStore::Progress(TObject* sender, TProgressStage stage, std::uint8_t percentDone, bool redrawNow,
                              const TRect& r, const std::string& msg) {
  if (const TProgressEvent event = onProgress_) event(sender, stage, percentDone, redrawNow, r, msg);
}

void TQXCustomStore::LoadFromFile(const std::string& fileName) {
  TFileStream file(fileName, fmOpenRead);
  LoadFromStream(&file);
}

void TQXCustomStore::SaveToFile(const std::string& fileName) {
  WholeFileWriter file(fileName);
  SaveToStream(&file);
  file.Commit();
}

void TQXCustomStore::DefineProperties(TFiler& filer) {
  TPersistent* const ancestor = filer.GetAncestor();
  auto* const store = dynamic_cast<TQXCustomStore*>(ancestor);
  const bool differs = store != nullptr ? !Equals(store) : ancestor != nullptr || !GetEmpty();
  filer.DefineBinaryProperty(
      "Data", [this](TStream* stream) { ReadData(stream); }, [this](TStream* stream) { WriteData(stream); },
      differs);
}

void TQXCustomStore::SetModified(bool value) {
  if (value)
    Changed(this);
  else
    modified_ = false;
}

void* TQXCustomStore::FindInterface(const GUID& iid) {
  const bool known = iid == IStreamPersist::IID || iid == IInterface::IID;
  return known ? static_cast<IStreamPersist*>(this) : nullptr;
}

// --- TQXFileStore ------------------------------------------------------------------------------------

TQXFileStore::~TQXFileStore() = default;

TFileFlag TQXFileStore::GetFlag() const { return "QXF"; }

void TQXFileStore::LoadFromStream(TStream* stream) {
  Header header;
  stream->ReadBuffer(header.data(), header.size());
  if (!HasFlag(header, GetFlag())) return;
  comment_ = TextAt(header, kCommentAt, kLongestComment);
  data_.Clear();
  std::array<char, 8> size;
  std::copy_n(header.data() + kDataSizeAt, size.size(), size.data());
  try {
    data_.CopyFrom(*stream, FromLittleEndian(size));
  } catch (...) {
    data_.Clear();
    throw;
  }
  data_.SetPosition(0);
}

void TQXFileStore::SaveToStream(TStream* stream) {
  if (stream == &data_) throw EWriteError("Stream write error");  // it would overwrite what it reads
  Header header{};
  const auto size = ToLittleEndian(data_.GetSize());
  PutText(header, kFlagAt, GetFlag());
  std::copy(size.begin(), size.end(), header.data() + kDataSizeAt);
  PutText(header, kCommentAt, std::string_view(comment_).substr(0, kLongestComment));
  data_.SetPosition(0);
  stream->WriteBuffer(header.data(), header.size());
  stream->WriteBuffer(data_.GetBytes().data(), data_.GetBytes().size());
}

}  // namespace qxTools::qxStore
