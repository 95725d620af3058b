// What a save of a settings file loses, moves or reads otherwise: for the rules and for `qxtool ini`.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace qxtool::check {

enum class LossKind { kLine, kEndOfLoad, kMarker };

struct SettingsLoss {
  LossKind kind;
  const char* what;
  int line;           // from 1
  std::size_t begin;  // of the line in the text, in bytes from 0
  std::size_t end;
};

/// Reports each loss, in the order of the lines. One line may have several.
void ForEachLoss(std::string_view text, const std::function<void(const SettingsLoss& loss)>& report);

}  // namespace qxtool::check
