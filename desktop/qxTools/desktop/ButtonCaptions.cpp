#include <qxTools/desktop/ButtonCaptions.h>

#include <bit>
#include <iterator>

namespace qxTools::desktop {

namespace {

// In the order of the buttons' bits.
// clang-format off
constexpr ButtonCaption kCaptions[] = {
    {"&Yes",        "\xACO(&Y)"},                           // 是
    {"&No",         "\xA7_(&N)"},                           // 否
    {"OK",          "\xBDT\xA9w"},                          // 確定
    {"Cancel",      "\xA8\xFA\xAE\xF8"},                    // 取消
    {"Abort",       "\xA4\xA4\xA4\xEE(&B)"},                // 中止
    {"Retry",       "\xAD\xAB\xB8\xD5(&R)"},                // 重試
    {"Ignore",      "\xB2\xA4\xB9L(&I)"},                   // 略過
    {"&All",        "\xA5\xFE\xB3\xA1(&A)"},                // 全部
    {"N&o to All",  "\xA5\xFE\xB3\xA1\xAC\xD2\xA7_(&O)"},   // 全部皆否
    {"Yes to A&ll", "\xA5\xFE\xB3\xA1\xAC\xD2\xACO(&L)"},   // 全部皆是
    {"Help",        "\xBB\xA1\xA9\xFA(&H)"},                // 說明
};
// clang-format on

}  // namespace

const ButtonCaption& CaptionOf(TDialogButton button) {
  const int i = std::countr_zero(static_cast<TDialogButtons>(button));
  static_assert(std::size(kCaptions) == std::countr_zero(TDialogButtons{dbHelp}) + 1);
  return kCaptions[i];
}

TDialogButtons DefaultButton(TDialogButtons buttons) {
  for (const TDialogButtons button : {dbOK, dbYes, dbRetry})
    if ((buttons & button) != 0) return button;
  return 0;
}

}  // namespace qxTools::desktop
