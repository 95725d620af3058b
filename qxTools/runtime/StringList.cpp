#include <qxTools/base/Exceptions.h>
#include <qxTools/base/Lines.h>
#include <qxTools/platform/Files.h>
#include <qxTools/runtime/StringList.h>

#include <algorithm>
#include <utility>

namespace qxTools {

namespace {

constexpr std::string_view kLineBreak = "\r\n";

// Room for further lines is made in steps that double up to a limit.
constexpr std::size_t kSmallestStep = 64;
constexpr std::size_t kLargestStep = 1 << 16;

}  // namespace

TStrings::TStrings(std::initializer_list<std::string> lines) : lines_(lines.begin(), lines.end()) {
  Gather();
}

TStrings::TStrings(const TStrings& other)
    : TObject(other),
      lines_(other.lines_),
      texts_(other.texts_),
      size_(other.size_),
      abandoned_(other.abandoned_) {}

TStrings::~TStrings() = default;

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): Assign copies the lines first.
TStrings& TStrings::operator=(const TStrings& other) {
  Assign(other);
  return *this;
}

std::string TStrings::GetText() const {
  std::size_t size = 0;
  for (const std::string_view line : lines_) size += line.size() + kLineBreak.size();
  std::string text;
  text.reserve(size);
  for (const std::string_view line : lines_) text.append(line).append(kLineBreak);
  return text;
}

void TStrings::SetText(std::string_view text) { SetWholeText(std::string(text)); }

void TStrings::LoadFromFile(const std::string& fileName) { SetWholeText(ReadWholeFile(fileName)); }

// The lines are where they are in the text, none is copied.
void TStrings::SetWholeText(std::string&& text) {
  const auto kept = std::make_shared<std::string>(std::move(text));
  const std::string_view whole = *kept;
  std::vector<std::string_view> lines;
  lines.reserve(CountByte(whole, '\n') + 1);
  ForEachLine(whole, [&](std::string_view line) { lines.push_back(line); });
  Texts texts{kept};
  lines_ = std::move(lines);
  texts_ = std::move(texts);
  hasRoom_ = false;
  size_ = whole.size();
  abandoned_ = 0;
  Changed();
}

void TStrings::Assign(const TStrings& source) {
  TStrings copy(source);  // first: without memory for it nothing changes
  lines_.swap(copy.lines_);
  texts_.swap(copy.texts_);
  hasRoom_ = false;
  size_ = copy.size_;
  abandoned_ = copy.abandoned_;
  Changed();
}

void TStrings::SaveToFile(const std::string& fileName) const { SaveWholeFile(fileName, GetText()); }

// --- Texts of lines ----------------------------------------------------------

// Copies a line, which may be one of the list's own, to where it stays.
std::string_view TStrings::Keep(std::string_view line) {
  Texts replaced;
  if (!hasRoom_ || texts_.front()->capacity() - texts_.front()->size() < line.size()) {
    if (abandoned_ > size_ / 2) replaced = Gather();
    auto text = std::make_shared<std::string>();
    text->reserve(std::max(line.size(), std::clamp(size_, kSmallestStep, kLargestStep)));
    texts_.push_front(std::move(text));
    hasRoom_ = true;
  }
  std::string& text = *texts_.front();
  text.append(line);
  size_ += line.size();
  return std::string_view(text).substr(text.size() - line.size());
}

// Copies all lines into one text of this list. Returns the texts that they were in.
TStrings::Texts TStrings::Gather() {
  std::size_t size = 0;
  for (const std::string_view line : lines_) size += line.size();
  Texts texts{std::make_shared<std::string>()};
  std::string& text = *texts.front();
  text.reserve(size);
  for (std::string_view& line : lines_) {
    text.append(line);
    line = std::string_view(text).substr(text.size() - line.size());
  }
  size_ = size;
  abandoned_ = 0;
  hasRoom_ = false;
  texts_.swap(texts);
  return texts;
}

// --- Lines -------------------------------------------------------------------

void TStrings::SetStrings(Integer index, std::string_view line) {
  std::string_view& place = lines_[Checked(index)];
  const std::string_view kept = Keep(line);
  abandoned_ += place.size();
  place = kept;
  Changed();
}

Integer TStrings::Add(std::string_view line) {
  lines_.push_back(Keep(line));
  Changed();
  return GetCount() - 1;
}

Integer TStrings::Add(std::string&& line) {
  if (line.size() < kLargestStep) return Add(std::string_view(line));
  texts_.push_front(std::make_shared<std::string>(std::move(line)));
  hasRoom_ = false;
  size_ += texts_.front()->size();
  lines_.push_back(*texts_.front());
  Changed();
  return GetCount() - 1;
}

void TStrings::Insert(Integer index, std::string_view line) {
  if (index != GetCount()) Checked(index);
  const std::string_view kept = Keep(line);
  lines_.insert(lines_.begin() + index, kept);
  Changed();
}

void TStrings::Delete(Integer index) {
  const auto place = lines_.begin() + static_cast<std::ptrdiff_t>(Checked(index));
  abandoned_ += place->size();
  lines_.erase(place);
  Changed();
}

void TStrings::Clear() {
  if (lines_.empty()) return;
  lines_ = {};
  texts_.clear();
  hasRoom_ = false;
  size_ = abandoned_ = 0;
  Changed();
}

void TStrings::SetOnChange(TNotifyEvent event) {
  onChange_ = event ? std::make_shared<TNotifyEvent>(std::move(event)) : nullptr;
}

void TStrings::EndUpdate() {
  if (updates_ > 0) --updates_;
  Changed();
}

std::size_t TStrings::Checked(Integer index) const {
  if (index < 0 || index >= GetCount()) RaiseListIndex(index);
  return static_cast<std::size_t>(index);
}

void TStrings::Changed() {
  ++changes_;
  if (updates_ != 0 || onChange_ == nullptr) return;
  const std::shared_ptr<TNotifyEvent> event = onChange_;  // it may set another one while it runs
  (*event)(this);
}

StringsUpdate::~StringsUpdate() {
  if (list_ == nullptr) return;
  try {
    End();
  } catch (...) {
    // Another exception is on its way already.
  }
}

void StringsUpdate::End() { std::exchange(list_, nullptr)->EndUpdate(); }

}  // namespace qxTools
