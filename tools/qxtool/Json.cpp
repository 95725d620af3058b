#include "Json.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "TextIo.h"
#include "database/Charset.h"

namespace qxtool {

namespace {

using Json = nlohmann::ordered_json;

std::string Utf8(const std::string& text) {
  const auto utf8 = database::Convert(text, database::Charset::kCodePage950, database::Charset::kUtf8);
  if (!utf8) throw Failure("the list holds bytes that are not characters, so it has no form in JSON");
  return *utf8;
}

/// The key of a new value in `object`.
std::string KeyOf(const Json& object, const TextRow& head, std::size_t column) {
  std::string key = column < head.size() ? Utf8(head[column]) : "";
  if (key.empty() || object.contains(key)) key = "#" + std::to_string(column + 1);
  while (object.contains(key)) key += '#';
  return key;
}

Json ValueOf(const std::string& text, bool isNumber) {
  if (!isNumber) return Utf8(text);
  return text.empty() ? Json() : Json(std::stoll(text));
}

std::string ObjectOf(const TextList& list, const TextRow& row) {
  Json object = Json::object();
  for (std::size_t i = 0; i < row.size(); ++i) {
    const bool isNumber = std::ranges::find(list.numbers, i) != list.numbers.end();
    object[KeyOf(object, list.head, i)] = ValueOf(row[i], isNumber);
  }
  return object.dump();
}

}  // namespace

void PrintJsonList(const TextList& list) {
  const char* separator = "[\n";
  list.rows([&](const TextRow& row) {
    PrintBytes(separator + ObjectOf(list, row));
    separator = ",\n";
  });
  PrintBytes(*separator == '[' ? "[]\n" : "\n]\n");
}

void PrintJsonObject(const TextList& list) {
  list.rows([&](const TextRow& row) { PrintBytes(ObjectOf(list, row) + "\n"); });
}

}  // namespace qxtool
