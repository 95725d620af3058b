// A packet from a client to a server, a list of values, and a block of bytes kept in a store.
#include <qxTools/base/Exceptions.h>
#include <qxTools/data/QXValueTools.h>
#include <qxTools/data/qxOleVariant.h>
#include <qxTools/data/qxStore.h>

#include <iostream>

using namespace qxTools;
using qxOleVariant::TQXOleVariant;
using qxStore::TQXFileStore;
using QXValueTools::TQXValueList;

int main() {
  // The client packs named values into one variant array.
  TQXOleVariant request;
  request.SetAction(2);
  request.SetValue(u"Customer", "Lee");
  Variant packet;
  request.SaveToOle(packet);

  // The server unpacks it; names are found in any case.
  TQXOleVariant received;
  received.LoadFromOle(packet);
  std::cout << "elements " << packet.Bounds().High + 1 << ", action " << received.GetAction() << ", customer "
            << received.GetValue(u"CUSTOMER").AsString() << "\n";
  try {
    received.GetValue(u"Phone");
  } catch (const Exception& e) {
    std::cout << e.what() << "\n";
  }

  // A value list makes what is asked for, unless it is told not to.
  TQXValueList settings;
  settings.SetValue("Port", 1433);
  std::cout << settings.GetValue("port").AsInteger()
            << ", new one is null: " << settings.GetValue("Host").IsNull() << ", count "
            << settings.GetCount() << "\n";

  // A store saves bytes and a comment behind a header of 72 bytes, to a file or, as here, to a stream.
  TQXFileStore store;
  store.GetStream()->WriteBuffer("bytes", 5);
  store.SetComment("five");
  TMemoryStream file;
  store.SaveToStream(&file);
  file.SetPosition(0);
  TQXFileStore loaded;
  loaded.LoadFromStream(&file);
  std::cout << file.GetSize() << " bytes, " << loaded.GetComment() << ": " << loaded.GetStream()->GetBytes()
            << ", equal: " << loaded.Equals(&store) << "\n";
}
