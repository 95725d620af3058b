// The settings file beside SimpleIni and GLib's key file: loading and saving the same names and texts, as
// safely; finding sections and values, and setting new ones. A size is the number of values, or of sections.
#define SI_NO_CONVERSION  // bytes as they are, as we take them
#include <SimpleIni.h>
#include <benchmark/benchmark.h>
#include <glib.h>
#include <malloc.h>
#include <qxTools/stores/qxIniTools.h>

#include <memory>

#include "support/Files.h"

namespace {

using qxTools::Integer;
using qxTools::qxIniTools::TQXIniFile;

std::string NameOf(Integer i) { return "Name" + std::to_string(i); }
std::string TextOf(Integer i) { return "Text of value " + std::to_string(i); }

// Values by tens: in sections of their own, or in one section.
std::string OurText(Integer count, bool oneSection) {
  std::string text;
  for (Integer i = 0; i < count; ++i) {
    const std::string section = "Section" + std::to_string(i / 10) + ":[%RootKey%]\r\n";
    if (i % 10 == 0) text += (i > 0 ? "%]\r\n\r\n" : "") + (oneSection && i > 0 ? "" : section) + "[%\r\n";
    text += "  " + NameOf(i) + ":" + TextOf(i) + "\r\n";
  }
  return text + "%]\r\n";
}

std::string PeerText(Integer count, bool oneSection) {
  std::string text;
  for (Integer i = 0; i < count; ++i) {
    if (i == 0 || (i % 10 == 0 && !oneSection)) text += "[Section" + std::to_string(i / 10) + "]\r\n";
    text += NameOf(i) + "=" + TextOf(i) + "\r\n";
  }
  return text;
}

class Ours {
 public:
  static std::string Text(Integer count, bool oneSection) { return OurText(count, oneSection); }
  void Load(const std::string& name) { file_.LoadFromFile(name); }
  void Save(const std::string& name) { file_.SaveToFile(name); }
  bool Has(const std::string& section) const {
    qxTools::qxTreeList::pQXTreeNode node = nullptr;
    return file_.FindRootKey(section, node);
  }
  void Open(const std::string& section) { file_.SetRootKey(section); }
  void Begin(const std::string& section) {
    file_.SetRootKey(section);
    file_.AppendKey();
  }
  void Set(const std::string& name, const std::string& text) { file_.SetValue(name, text); }
  // The last value of all.
  std::string Last(Integer count, bool oneSection) {
    file_.SetRootKey("Section" + std::to_string(oneSection ? 0 : (count - 1) / 10));
    file_.OpenFirstKey();
    file_.OpenLastKey();
    return file_.GetValue(NameOf(count - 1));
  }
  std::string Get(const std::string& name) const { return file_.GetValue(name); }

 private:
  TQXIniFile file_;
};

class SimpleIni {
 public:
  static std::string Text(Integer count, bool oneSection) { return PeerText(count, oneSection); }
  void Load(const std::string& name) { file_.LoadFile(name.c_str()); }
  void Save(const std::string& name) {
    std::string text;
    file_.Save(text);
    SaveSafely(name, {text});
  }
  bool Has(const std::string& section) const { return file_.GetSection(section.c_str()) != nullptr; }
  void Open(const std::string& section) const { benchmark::DoNotOptimize(Has(section)); }
  void Begin(const std::string& section) { section_ = section; }
  void Set(const std::string& name, const std::string& text) {
    file_.SetValue(section_.c_str(), name.c_str(), text.c_str());
  }
  std::string Last(Integer count, bool oneSection) {
    section_ = "Section" + std::to_string(oneSection ? 0 : (count - 1) / 10);
    return Get(NameOf(count - 1));
  }
  std::string Get(const std::string& name) const {
    return file_.GetValue(section_.c_str(), name.c_str(), "");
  }

 private:
  CSimpleIniA file_;
  std::string section_;
};

class KeyFile {
 public:
  static std::string Text(Integer count, bool oneSection) { return PeerText(count, oneSection); }
  void Load(const std::string& name) {
    g_key_file_load_from_file(file_.get(), name.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr);
  }
  void Save(const std::string& name) {
    gsize size = 0;
    gchar* const text = g_key_file_to_data(file_.get(), &size, nullptr);
    SaveSafely(name, {{text, size}});
    g_free(text);
  }
  bool Has(const std::string& section) const {
    return g_key_file_has_group(file_.get(), section.c_str()) != FALSE;
  }
  void Open(const std::string& section) const { benchmark::DoNotOptimize(Has(section)); }
  void Begin(const std::string& section) { section_ = section; }
  void Set(const std::string& name, const std::string& text) {
    g_key_file_set_string(file_.get(), section_.c_str(), name.c_str(), text.c_str());
  }
  std::string Last(Integer count, bool oneSection) {
    section_ = "Section" + std::to_string(oneSection ? 0 : (count - 1) / 10);
    return Get(NameOf(count - 1));
  }
  std::string Get(const std::string& name) const {
    gchar* const text = g_key_file_get_string(file_.get(), section_.c_str(), name.c_str(), nullptr);
    const std::string copy = text != nullptr ? text : "";
    g_free(text);
    return copy;
  }

 private:
  std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file_{g_key_file_new(), &g_key_file_free};
  std::string section_;
};

template <class File, bool oneSection>
void Load(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  const TemporaryFile disk(File::Text(count, oneSection));
  for (auto _ : state) {
    auto file = std::make_unique<File>();
    file->Load(disk.Name());
    state.PauseTiming();
    if (file->Last(count, oneSection) != TextOf(count - 1)) return state.SkipWithError("wrong text");
    file.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * count);
  const std::size_t before = mallinfo2().uordblks;
  File file;
  file.Load(disk.Name());
  state.counters["bytes_per_value"] = static_cast<double>(mallinfo2().uordblks - before) / count;
}

template <class File>
void Save(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  const TemporaryFile disk(File::Text(count, false));
  File file;
  file.Load(disk.Name());
  for (auto _ : state) file.Save(disk.Name());
  File again;
  again.Load(disk.Name());
  if (again.Last(count, false) != TextOf(count - 1)) return state.SkipWithError("wrong text");
  state.SetItemsProcessed(state.iterations() * count);
}

// Each section is opened once, in an order that skips about.
template <class File>
void OpenSections(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  const TemporaryFile disk(File::Text(count * 10, false));
  File file;
  file.Load(disk.Name());
  std::vector<std::string> names;
  for (Integer i = 0; i < count; ++i) names.push_back("Section" + std::to_string(i * 7 % count));
  for (const std::string& name : names)
    if (!file.Has(name)) return state.SkipWithError("no such section");
  for (auto _ : state)
    for (const std::string& name : names) file.Open(name);
  state.SetItemsProcessed(state.iterations() * count);
}

// New values in a new record.
template <class File>
void SetNewValues(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  std::vector<std::string> names;
  for (Integer i = 0; i < count; ++i) names.push_back(NameOf(i));
  const std::string text = TextOf(count);
  for (auto _ : state) {
    File file;
    file.Begin("Section0");
    for (const std::string& name : names) file.Set(name, text);
    if (file.Get(names.back()) != text) return state.SkipWithError("wrong text");
  }
  state.SetItemsProcessed(state.iterations() * count);
}

// One record of that many values; each is asked for once, in an order that skips about.
std::string OneRecord(const Ours*, Integer count) {
  std::string text = "Section0:[%RootKey%]\r\n[%\r\n";
  for (Integer i = 0; i < count; ++i) text += "  " + NameOf(i) + ":" + TextOf(i) + "\r\n";
  return text + "%]\r\n";
}
template <class Peer>
std::string OneRecord(const Peer*, Integer count) {
  return PeerText(count, true);
}

template <class File>
void Get(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  File file;
  const TemporaryFile disk(OneRecord(&file, count));
  file.Load(disk.Name());
  file.Last(count, true);  // opens the record
  std::vector<std::string> names;
  std::size_t size = 0;
  for (Integer i = 0; i < count; ++i) {
    names.push_back(NameOf(i * 7 % count));
    size += TextOf(i).size();
  }
  for (auto _ : state) {
    std::size_t sum = 0;
    for (const std::string& name : names) sum += file.Get(name).size();
    if (sum != size) return state.SkipWithError("wrong texts");
  }
  state.SetItemsProcessed(state.iterations() * count);
}

template <class File>
void Register(const std::string& who) {
  const auto add = [&](const std::string& work, void (*run)(benchmark::State&),
                       std::initializer_list<Integer> sizes) {
    auto* const row = benchmark::RegisterBenchmark((work + "/" + who).c_str(), run);
    for (const Integer size : sizes) row->Arg(size);
  };
  add("ini.load", Load<File, false>, {10000, 100000, 1000000});
  add("ini.load_records", Load<File, true>, {10000, 100000, 1000000});
  add("ini.save", Save<File>, {10000, 100000, 1000000});
  add("ini.section", OpenSections<File>, {100, 1000, 10000});
  add("ini.get", Get<File>, {10, 100, 1000});
  add("ini.new_value", SetNewValues<File>, {10, 100, 1000});
}

[[maybe_unused]] const bool registered = [] {
  Register<Ours>("qxTools");
  Register<SimpleIni>("SimpleIni");
  Register<KeyFile>("GKeyFile");
  return true;
}();

}  // namespace
