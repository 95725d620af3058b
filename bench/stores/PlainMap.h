// What one would keep nodes in by hand: a hash map that holds them by keys of 16 bytes.
#pragma once

#include <qxTools/encoding/QXUniKey.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

using Key = std::array<char, 16>;

struct KeyHash {
  std::size_t operator()(const Key& key) const {
    return std::hash<std::string_view>()(std::string_view(key.data(), key.size()));
  }
};

struct Record {
  Key parent;
  Key key;
  void* data;
  int level;
};

using Map = std::unordered_map<Key, Record, KeyHash>;

inline Key FreshKey() {
  const std::string text = qxTools::QXUniKey::UniKey();
  Key key;
  std::copy_n(text.begin(), key.size(), key.begin());
  return key;
}
