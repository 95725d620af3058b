// qxtool store: what a store file holds, and data into and out of one.
#include <qxTools/base/Exceptions.h>
#include <qxTools/data/qxStore.h>
#include <qxTools/platform/Files.h>

#include <memory>

#include "Commands.h"
#include "TextIo.h"
#include "TextTable.h"

namespace qxtool {

namespace {

using namespace qxTools;
using qxStore::TQXFileStore;

constexpr std::size_t kLongestComment = 50;

struct Options {
  std::string data;
  std::string store;
  std::string comment;
};

void Put(TStream& stream, const std::string& bytes) { stream.WriteBuffer(bytes.data(), bytes.size()); }

/// A store passes over a file that begins with another flag; a user wants to know.
void CheckFlag(const TQXFileStore& store, const std::string& bytes) {
  const std::string flag = store.GetFlag().Text();
  if (!bytes.starts_with(static_cast<char>(flag.size()) + flag))
    throw Exception("This is no store, it does not begin with " + flag);
}

/// @return the number of bytes behind the data, which belong to nothing.
std::int64_t Load(TQXFileStore& store, const std::string& fileName) {
  return WithSubject(fileName, [&] {
    const std::string bytes = ReadWholeFile(fileName);
    CheckFlag(store, bytes);
    TMemoryStream file;
    Put(file, bytes);
    file.SetPosition(0);
    store.LoadFromStream(&file);
    return file.GetSize() - file.GetPosition();
  });
}

void Info(const Options& options) {
  TQXFileStore store;
  const std::int64_t behind = Load(store, options.store);
  std::vector<TextRow> rows = {{"Flag", store.GetFlag().Text()},
                               {"Comment", store.GetComment()},
                               {"Data", std::to_string(store.GetStream()->GetSize()) + " bytes"}};
  if (behind != 0) rows.push_back({"Behind it", std::to_string(behind) + " bytes, not read"});
  Display(AlignRows({"Field", "Value"}, rows));
}

void Pack(const Options& options) {
  TQXFileStore store;
  store.SetComment(FromArgument(options.comment));
  if (store.GetComment().size() > kLongestComment)
    throw Failure("--comment: longer than " + std::to_string(kLongestComment) + " bytes");
  Put(*store.GetStream(), WithSubject(options.data, [&] { return ReadWholeFile(options.data); }));
  WithSubject(options.store, [&] { store.SaveToFile(options.store); });
}

void Unpack(const Options& options) {
  TQXFileStore store;
  Load(store, options.store);
  WithSubject(options.data, [&] { SaveWholeFile(options.data, store.GetStream()->GetBytes()); });
}

}  // namespace

void AddStoreCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command store = program.Add("store", "Look into store files, pack and unpack them");

  store.Example("store info backup.qxf");

  Command info = store.Add("info", "Show flag, comment and size", options, Info);
  info.Example("store info backup.qxf");
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
