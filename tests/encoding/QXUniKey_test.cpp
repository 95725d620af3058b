#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/platform/NetworkAdapter.h>

#include "support/Sources.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXUniKey;
using namespace qxTools::test;
using namespace std::string_literals;

// The draw that RandomBelow turns into `value` of `range`.
std::uint32_t DrawOf(std::uint32_t value, std::uint32_t range) {
  return static_cast<std::uint32_t>(((std::uint64_t{value} << 32) + range - 1) / range);
}

std::vector<std::uint32_t> Draws(std::vector<std::uint32_t> copies, std::uint32_t first, std::uint32_t step) {
  for (auto& draw : copies) draw = DrawOf(draw, 12);
  for (std::uint32_t i = 0; i < 16; ++i) copies.push_back(DrawOf(first + step * i, 30));
  return copies;
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

TEST(QXUniKey, AKeyIsSeedPlusStampPlusDraws) {
  const struct {
    TDateTime now;
    const char* seed;
    std::vector<std::uint32_t> draws;
    const char* want;
  } cases[] = {
      {0.0, "0123456789ab", Draws({0, 1, 2, 11}, 0, 0), "0123456789AB001A"},
      {0.0, "0123456789abXYZ", Draws({0, 1, 2, 11}, 0, 1), "02468ACEGIKMCDFP"},
      {0.0, "FFFFFFFFFFFF", Draws({3, 3, 3, 3}, 29, 0), "iiiiiiiiiiiiiiii"},
      {0.0, "g:/@ G`-\x80\xFF..", Draws({1, 1, 1, 1}, 0, 0), "0000000000000000"},
      {1.0, "000000000000", Draws({0, 0, 0, 0}, 0, 0), "00000002540BE400"},      // 10^10 steps a day
      {1e-10, "000000000000", Draws({0, 0, 0, 0}, 0, 0), "0000000000000001"},    // rounded, not cut
      {0x1p-11, "000000000000", Draws({0, 0, 0, 0}, 0, 0), "00000000004A817C"},  // 4882812.5: to even
      {0x3p-11, "000000000000", Draws({0, 0, 0, 0}, 0, 0), "0000000000DF8476"},
      {-1e-10, "000000000000", Draws({0, 0, 0, 0}, 0, 0), "FFFFFFFFFFFFFFFF"},
      {-1.0, "FFFFFFFFFFFF", Draws({1, 1, 1, 1}, 29, 0), "xxxxxxxvstxmjuii"},
      {0.0, "0123456789a", Draws({0, 0, 0, 0}, 0, 0), ""},  // too short a seed
  };
  for (const auto& c : cases) {
    const FixedClock clock(c.now);
    FixedDraws draws(c.draws);
    EXPECT_EQ(UniKey(c.seed), c.want) << c.now << " " << c.seed;
  }
}

TEST(QXUniKey, KeysDifferAndStayInTheirAlphabet) {
  std::string last;
  for (int i = 0; i < 10000; ++i) {
    const std::string key = UniKey();
    ASSERT_TRUE(key.size() == 16 && key != last);
    ASSERT_EQ(key.find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwx"),
              key.npos);
    last = key;
  }
}

TEST(QXUniKey, TheMachineKeyIsReadOnceAndFallsBack) {
  ExpectRows<AdapterStatus, std::string>(
      [](AdapterStatus status) {
        const Adapter adapter(status);
        return UniKeyInit();
      },
      {{AdapterStatus::kNone, "FFFFFFFFFFFF"}, {AdapterStatus::kUnreadable, "EEEEEEEEEEEE"}});
  const Adapter found(AdapterStatus::kFound);
  EXPECT_EQ(UniKeyInit(), "001fa00bc4ff");
  FUKI = "";
  EXPECT_EQ(UKI(), "001fa00bc4ff");
  FUKI = "000000000001";
  EXPECT_EQ(UKI(), "000000000001");
  const FixedClock clock(0);
  FixedDraws draws({0});
  EXPECT_EQ(UniKey(), "0000000000010000");
  FUKI = "00000000001";
  EXPECT_EQ(UniKey(), "");
  FUKI = "";
}

TEST(QXUniKey, KeysConvertToHexadecimalAndBack) {
  EXPECT_EQ(UniKey16To32(std::string("\x0A\xFF\0", 3)), "0AFF00");
  ExpectRows(
      [](const std::string& text) { return UniKey32To16(text); },
      {{"0aFF", "\x0A\xFF"}, {"0AF", "\x0A"}, {"F", ""}, {"G7?!7G", "\7\0\7"s}});  // digits alone count
}

}  // namespace
