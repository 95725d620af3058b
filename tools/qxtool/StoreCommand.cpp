// qxtool store: what a store file holds, and data into and out of one.
#include <qxTools/base/Exceptions.h>
#include <qxTools/base/LittleEndian.h>
#include <qxTools/data/qxStore.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/Files.h>

#include <algorithm>
#include <array>
#include <memory>

#include "Commands.h"
#include "Json.h"
#include "TextIo.h"
#include "TextTable.h"

namespace qxtool {

namespace {

using namespace qxTools;
using qxStore::TQXFileStore;

constexpr std::size_t kLongestComment = 50;
constexpr std::size_t kHeaderSize = 72;  // flag, size of the data, comment
constexpr std::size_t kDataSizeAt = 8;

struct Options {
  std::string data;
  std::string store;
  std::string comment;
  bool json = false;
};

/// A store's file, of which only the header is in memory.
class StoreFile {
 public:
  explicit StoreFile(const std::string& fileName) : file_(fileName, fmOpenRead) {
    std::string header(kHeaderSize, '\0');
    header.resize(file_.Read(header.data(), header.size()));
    CheckFlag(header);
    if (header.size() < kHeaderSize) throw EReadError("Stream read error");
    std::array<char, 8> size;
    std::copy_n(header.data() + kDataSizeAt, size.size(), size.data());
    dataSize_ = FromLittleEndian(size);
    if (dataSize_ < 0 || Behind() < 0) throw EReadError("Stream read error");
    header.replace(kDataSizeAt, size.size(), size.size(), '\0');
    TMemoryStream withoutData;
    withoutData.WriteBuffer(header.data(), header.size());
    withoutData.SetPosition(0);
    store_.LoadFromStream(&withoutData);
  }

  std::string Flag() const { return store_.GetFlag().Text(); }
  std::string Comment() const { return store_.GetComment(); }
  std::int64_t DataSize() const { return dataSize_; }
  /// The number of bytes behind the data, which belong to nothing.
  std::int64_t Behind() const { return file_.GetSize() - static_cast<std::int64_t>(kHeaderSize) - dataSize_; }

  /// Writes the data, piece by piece.
  void CopyTo(WholeFileWriter& target) {
    char piece[1 << 16];
    for (std::int64_t left = dataSize_; left > 0;) {
      const std::size_t count = static_cast<std::size_t>(std::min<std::int64_t>(left, sizeof piece));
      file_.ReadBuffer(piece, count);
      target.Write({piece, count});
      left -= static_cast<std::int64_t>(count);
    }
  }

 private:
  /// A store ignores a file that begins with another flag; a user wants to know.
  void CheckFlag(const std::string& header) const {
    const std::string flag = Flag();
    if (!header.starts_with(static_cast<char>(flag.size()) + flag))
      throw Exception("This is not a store, it does not begin with " + flag);
  }

  TFileStream file_;
  TQXFileStore store_;
  std::int64_t dataSize_ = 0;
};

void Info(const Options& options) {
  WithSubject(options.store, [&] {
    const StoreFile store(options.store);
    const std::string size = std::to_string(store.DataSize());
    const std::string behind = std::to_string(store.Behind());
    const TextRow row = {store.Flag(), store.Comment(), size, behind};
    if (options.json)
      return PrintJsonObject({{"Flag", "Comment", "Data", "Behind it"}, RowsOf({row}), {2, 3}});
    std::vector<TextRow> rows = {{"Flag", row[0]}, {"Comment", row[1]}, {"Data", size + " bytes"}};
    if (store.Behind() != 0) rows.push_back({"Behind it", behind + " bytes, not read"});
    PrintList({{"Field", "Value"}, RowsOf(rows)}, false);
  });
}

void Pack(const Options& options) {
  TQXFileStore store;
  store.SetComment(FromArgument(options.comment));
  if (store.GetComment().size() > kLongestComment)
    throw Failure("--comment: longer than " + std::to_string(kLongestComment) + " bytes");
  const std::string data = WithSubject(options.data, [&] { return ReadWholeFile(options.data); });
  store.GetStream()->WriteBuffer(data.data(), data.size());
  WithSubject(options.store, [&] { store.SaveToFile(options.store); });
}

void Unpack(const Options& options) {
  WithSubject(options.store, [&] {
    StoreFile store(options.store);
    WithSubject(options.data, [&] {
      WholeFileWriter data(options.data);
      store.CopyTo(data);
      data.Commit();
    });
  });
}

}  // namespace

void AddStoreCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command store = program.Add("store", "Look into store files, pack and unpack them");

  store.Example("store info backup.qxf");

  Command info = store.Add("info", "Show flag, comment and size", options, Info);
  info.Example("store info backup.qxf");
  info.Json(options->json);
  info.Text("STORE", options->store, "Store file").Required();

  Command pack = store.Add("pack", "Put the bytes of a file into a store", options, Pack);
  pack.Example("store pack orders.xml backup.qxf --comment Orders");
  pack.Text("DATA", options->data, "File with the data").Required();
  pack.Text("STORE", options->store, "Store file to be written, whole or not at all").Required();
  pack.Text("--comment", options->comment, "Comment, at most 50 bytes").Placeholder("TEXT");

  Command unpack = store.Add("unpack", "Take the bytes out of a store", options, Unpack);
  unpack.Example("store unpack backup.qxf orders.xml");
  unpack.Text("STORE", options->store, "Store file").Required();
  unpack.Text("DATA", options->data, "File to be written, whole or not at all").Required();
}

}  // namespace qxtool
