#include <qxTools/base/Exceptions.h>
#include <qxTools/base/Lines.h>
#include <qxTools/platform/Files.h>
#include <qxTools/runtime/StringList.h>

#include <utility>

namespace qxTools {

namespace {

constexpr std::string_view kLineBreak = "\r\n";

}  // namespace

TStrings::~TStrings() = default;

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): Assign copies the lines first.
TStrings& TStrings::operator=(const TStrings& other) {
  Assign(other);
  return *this;
}

std::string TStrings::GetText() const {
  std::size_t size = 0;
  for (const std::string& line : lines_) size += line.size() + kLineBreak.size();
  std::string text;
  text.reserve(size);
  for (const std::string& line : lines_) text.append(line).append(kLineBreak);
  return text;
}

void TStrings::SetText(std::string_view text) {
  std::vector<std::string> lines;
  lines.reserve(CountByte(text, '\n') + 1);
  ForEachLine(text, [&](std::string_view line) { lines.emplace_back(line); });
  lines_ = std::move(lines);
  Changed();
}

void TStrings::Assign(const TStrings& source) {
  lines_ = std::vector(source.lines_);  // a copy first: without memory for it nothing changes
  Changed();
}

void TStrings::LoadFromFile(const std::string& fileName) { SetText(ReadWholeFile(fileName)); }

void TStrings::SaveToFile(const std::string& fileName) const { SaveWholeFile(fileName, GetText()); }

const std::string& TStrings::GetStrings(Integer index) const { return lines_[Checked(index)]; }

void TStrings::SetStrings(Integer index, std::string_view line) {
  lines_[Checked(index)] = line;
  Changed();
}

Integer TStrings::Add(std::string&& line) {
  lines_.push_back(std::move(line));
  Changed();
  return GetCount() - 1;
}

void TStrings::Insert(Integer index, std::string_view line) {
  if (index != GetCount()) Checked(index);
  lines_.emplace(lines_.begin() + index, line);
  Changed();
}

void TStrings::Delete(Integer index) {
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(Checked(index)));
  Changed();
}

void TStrings::Clear() {
  if (lines_.empty()) return;
  lines_ = {};
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
