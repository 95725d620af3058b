#include <qxTools/base/Exceptions.h>
#include <qxTools/painting/MessageDialog.h>

#include <array>
#include <bit>
#include <cstddef>
#include <utility>

namespace qxTools {

namespace {

constexpr auto kCaptions = std::to_array<const char*>({"Warning", "Error", "Information", "Confirm", ""});

// In the order of the buttons' bits.
constexpr auto kResults = std::to_array<Integer>({6, 7, 1, 2, 3, 4, 5, 8, 9, 10, 0});
constexpr Integer kCancelled = 2;

DialogService* pluggedInDialogs = nullptr;

}  // namespace

MessageDialog::~MessageDialog() = default;
DialogService::~DialogService() = default;

const char* GetDialogCaption(TDialogType type) {
  const auto i = static_cast<std::size_t>(type);
  return i < kCaptions.size() ? kCaptions[i] : "";
}

Integer GetDialogResult(TDialogButton button) {
  const auto i = static_cast<std::size_t>(std::countr_zero(static_cast<TDialogButtons>(button)));
  return i < kResults.size() ? kResults[i] : 0;
}

Integer GetCloseResult(TDialogButtons buttons) {
  const TDialogButtons answering = buttons & ~TDialogButtons{dbHelp};
  return std::has_single_bit(answering) ? GetDialogResult(static_cast<TDialogButton>(answering)) : kCancelled;
}

DialogService* SetDialogService(DialogService* service) { return std::exchange(pluggedInDialogs, service); }

DialogService& GetDialogService() {
  if (pluggedInDialogs == nullptr) throw Exception("No dialog service");
  return *pluggedInDialogs;
}

}  // namespace qxTools
