#include "CheckedText.h"

#include <qxTools/base/AsciiFastPath.h>
#include <qxTools/base/CodePage950.h>

#include "Characters.h"

namespace qxtool::check {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsAscii(std::string_view text) { return qxTools::IsAllAscii(text.data(), text.data() + text.size()); }

bool HasUtf16Mark(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

/// The first byte that is no UTF-8, or npos.
std::size_t FindInvalidUtf8(std::string_view bytes) {
  for (std::size_t place = 0; place < bytes.size();) {
    const std::size_t size = Utf8Size(bytes, place);
    if (size == 0) return place;
    place += size;
  }
  return kNowhere;
}

struct GbRow {
  unsigned first;
  unsigned last;
};

/// The columns of a row that hold characters; none if `first` is 0. Two rows have a gap, which is let pass.
constexpr GbRow GbRowOf(unsigned lead) {
  constexpr GbRow kRows[] = {{0xA1, 0xFE}, {0xB1, 0xFC}, {0xA1, 0xFE}, {0xA1, 0xF3}, {0xA1, 0xF6},
                             {0xA1, 0xD8}, {0xA1, 0xF1}, {0xA1, 0xE9}, {0xA4, 0xEF}};
  if (lead >= 0xA1 && lead <= 0xA9) return kRows[lead - 0xA1];
  if (lead == 0xD7) return {0xA1, 0xF9};
  return lead >= 0xB0 && lead <= 0xF7 ? GbRow{0xA1, 0xFE} : GbRow{0, 0};
}

bool IsGbPair(unsigned lead, unsigned second) {
  const GbRow row = GbRowOf(lead);
  return row.first != 0 && second >= row.first && second <= row.last;
}

}  // namespace

std::size_t Utf8Size(std::string_view text, std::size_t place) {
  const unsigned lead = Byte(text[place]);
  if (lead < 0x80) return 1;
  const std::size_t size = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
  if (size == 0 || size > text.size() - place) return 0;
  for (std::size_t i = 1; i < size; ++i)
    if ((Byte(text[place + i]) & 0xC0) != 0x80) return 0;
  const unsigned next = Byte(text[place + 1]);
  const bool overlong = (lead == 0xE0 && next < 0xA0) || (lead == 0xF0 && next < 0x90);
  const bool outside = (lead == 0xED && next > 0x9F) || (lead == 0xF4 && next > 0x8F);
  return overlong || outside ? 0 : size;
}

bool LooksLikeGb2312(std::string_view text) {
  std::size_t pairs = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (Byte(text[i]) < 0x80) continue;
    if (i + 1 == text.size() || !IsGbPair(Byte(text[i]), Byte(text[i + 1]))) return false;
    ++pairs;
    ++i;
  }
  return pairs >= 8;
}

CheckedText::CheckedText(std::string bytes, bool utf8) {
  coding_.expectedUtf8 = utf8;
  const bool mark = bytes.starts_with(kUtf8Mark);
  const std::size_t invalid = FindInvalidUtf8(bytes);
  coding_.markSize = mark ? kUtf8Mark.size() : 0;
  if (utf8 && invalid != kNowhere) coding_.firstInvalid = invalid - coding_.markSize;
  const bool isUtf16 = HasUtf16Mark(bytes);
  if (!isUtf16 && invalid == kNowhere && (mark || !IsAscii(bytes))) {
    coding_.coding = TextCoding::kUtf8;
    utf8_ = std::move(bytes);
    TakeUtf8();
  } else {
    if (isUtf16)
      coding_.coding = TextCoding::kOther;
    else if (LooksLikeGb2312(bytes))
      coding_.coding = TextCoding::kGb2312;
    text_ = std::move(bytes);
    text_.erase(0, coding_.markSize);
  }
  if (!text_.ends_with('\n') && !text_.ends_with('\r')) text_ += '\n';
}

void CheckedText::TakeUtf8() {
  text_.reserve(utf8_.size() + 1);
  for (std::size_t place = coding_.markSize; place < utf8_.size();) {
    const std::size_t size = Utf8Size(utf8_, place);
    const std::string_view character = std::string_view(utf8_).substr(place, size);
    if (size == 1) {
      text_ += character[0];
    } else {
      const std::string bytes = qxTools::Utf8ToBytes(character);
      if (bytes == "?") coding_.lacking.push_back(text_.size());
      text_ += bytes;
    }
    place += size;
  }
}

std::size_t CheckedText::FilePlaces::Of(std::size_t place) {
  if (text_.utf8_.empty()) return place + text_.coding_.markSize;
  while (place_ < place && file_ < text_.utf8_.size()) {
    place_ += CharacterSize(text_.text_, place_);
    file_ += Utf8Size(text_.utf8_, file_);
  }
  return file_;
}

}  // namespace qxtool::check
