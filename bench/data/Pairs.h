// What one would keep the fields of a packet in by hand: a vector of names and values, flattened into an
// array of Variants and rebuilt.
#pragma once

#include <qxTools/runtime/Variant.h>

#include <string>
#include <utility>
#include <vector>

using Pairs = std::vector<std::pair<std::u16string, qxTools::Variant>>;

inline qxTools::Variant ArrayOf(const Pairs& pairs) {
  qxTools::Integer i = 0;
  auto array = qxTools::Variant::NewArray(0, static_cast<qxTools::Integer>(2 * pairs.size()) - 1);
  for (const auto& [name, value] : pairs) {
    array.SetElement(i++, name);
    array.SetElement(i++, value);
  }
  return array;
}

inline Pairs PairsIn(const qxTools::Variant& array) {
  Pairs pairs;
  for (qxTools::Integer i = 0; i < array.Bounds().High; i += 2)
    pairs.emplace_back(array.GetElement(i).AsWideString(), array.GetElement(i + 1));
  return pairs;
}
