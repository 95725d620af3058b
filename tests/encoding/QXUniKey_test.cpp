#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/platform/NetworkAdapter.h>
#include <qxTools/stores/qxTreeList.h>

#include <set>

#include "support/Sources.h"
#include "support/Testing.h"

namespace qxTools::QXUniKey {
namespace {

using namespace test;

TEST(QXUniKey, AKeyIsSeedPlusStampPlusDraws) {
  const std::vector<std::uint32_t> least = {0}, most = {UINT32_MAX};
  std::vector<std::uint32_t> mixed(20);  // copies of nothing and cells 7, 2, 10; then 14, 2, 21, 9 ...
  for (std::uint32_t i = 0; i < 20; ++i) mixed[i] = i * 0x9E3779B9;
  const std::string zeros = "000000000000";
  // clang-format off
  const std::tuple<TDateTime, std::string, std::vector<std::uint32_t>, const char*> cases[] = {
    {0.0, "0123456789abXYZ", mixed, "E3NCWLBUKATJQL4V"}, {0.0, "0123456789ab", most, "TUVWXYZabcdedddd"},
    {0.0, "g:/@ G`-\x80\xFF..", least, "0000000000000000"},
    {1.0, zeros, least, "00000002540BE400"},  // 10^10 steps a day
    {1e-10, zeros, least, "0000000000000001"},  // rounded, not cut
    {0x1p-11, zeros, least, "00000000004A817C"},  // 4882812.5: to even
    {0x3p-11, zeros, least, "0000000000DF8476"}, {-1e-10, zeros, least, "FFFFFFFFFFFFFFFF"},
    {-1.0, "FFFFFFFFFFFF", most, "xxxxxxxvstxmjuii"}, {0.0, "0123456789a", least, ""},  // too short a seed
  };
  // clang-format on
  for (const auto& [now, seed, numbers, want] : cases) {
    const FixedClock clock(now);
    FixedDraws draws(numbers);
    EXPECT_EQ(UniKey(seed), want) << now;
  }
}

/// An adapter with an address, plugged in while it lives.
class Adapter : public AdapterSource {
 public:
  explicit Adapter(AdapterStatus status) : status_(status) { SetAdapterSource(this); }
  ~Adapter() override { SetAdapterSource(nullptr); }
  AdapterStatus Read(AdapterAddress& address) override {
    address = {0x00, 0x1F, 0xA0, 0x0B, 0xC4, 0xFF};
    return status_;
  }

 private:
  AdapterStatus status_;
};

TEST(QXUniKey, TheMachineKeyIsReadOnceAndFallsBack) {
  for (const auto& [status, want] : {std::pair(AdapterStatus::kNone, "FFFFFFFFFFFF"),
                                     {AdapterStatus::kUnreadable, "EEEEEEEEEEEE"},
                                     {AdapterStatus::kFound, "001fa00bc4ff"}}) {
    const Adapter adapter(status);
    EXPECT_EQ(UniKeyInit(), want);
    FUKI = "";
    EXPECT_EQ(UKI(), want);
  }
  FUKI = "000000000001";
  const FixedClock clock(0);
  FixedDraws draws({0});
  EXPECT_EQ(UKI() + UniKey(), "0000000000010000000000010000");
  FUKI = "00000000001";
  EXPECT_EQ(UniKey(), "");
  qxTreeList::TQXTreeNodes tree;  // takes its keys without a string between
  tree.OpenRootNode();
  EXPECT_EQ(tree.Add()->Key, qxTreeList::TNodeKey());
  FUKI = "";
}

TEST(QXUniKey, KeysDifferAndConvertToHexadecimalAndBack) {
  std::set<std::string> keys;
  for (int i = 0; i < 10000; ++i) keys.insert(UniKey());
  EXPECT_EQ(keys.size(), 10000u);
  EXPECT_EQ(UniKey16To32(std::string("\x0A\xFF\0", 3)), "0AFF00");
  // clang-format off
  Rows([](const std::string& text) { return UniKey32To16(text); })
      ("0aFF", "\x0A\xFF")("0AF", "\x0A")("F", "")("G77G", "\7\7");  // digits alone count
  // clang-format on
}

}  // namespace
}  // namespace qxTools::QXUniKey
