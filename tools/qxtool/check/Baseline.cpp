#include "Baseline.h"

#include <qxTools/base/Exceptions.h>

#include <nlohmann/json.hpp>

#include "Report.h"

namespace qxtool::check {

using Json = nlohmann::ordered_json;

Baseline ReadBaseline(const std::string& text) {
  try {
    Baseline baseline;
    const Json all = Json::parse(text);
    for (const Json& entry : all.at("known")) {
      const std::uint64_t hash = std::stoull(entry.at("line").get<std::string>(), nullptr, 16);
      baseline[entry.at("path").get<std::string>()][{entry.at("rule").get<std::string>(), hash}] =
          entry.at("count").get<std::size_t>();
    }
    return baseline;
  } catch (const std::exception&) {
    throw qxTools::Exception("this is no baseline that --write-baseline has written");
  }
}

std::string WriteBaseline(const Baseline& baseline) {
  std::string lines;
  for (const auto& [path, counts] : baseline)
    for (const auto& [key, count] : counts) {
      const Json entry = {{"path", path}, {"rule", key.first}, {"line", HexOf(key.second)}, {"count", count}};
      lines += (lines.empty() ? "\n" : ",\n") + entry.dump();
    }
  return "{\"known\": [" + lines + "\n]}\n";
}

}  // namespace qxtool::check
