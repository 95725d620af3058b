#include <iconv.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/platform/linux/FreedesktopText.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace qxTools {

namespace {

constexpr std::string_view kDefaults = "[Default Applications]";

using Replacements = std::initializer_list<std::pair<char, std::string_view>>;

std::string Escaped(std::string_view text, Replacements replacements) {
  std::string result;
  for (const char c : text) {
    const auto found = std::ranges::find(replacements, c, [](const auto& pair) { return pair.first; });
    if (found == replacements.end())
      result += c;
    else
      result += found->second;
  }
  return result;
}

bool IsUtf8(std::string_view text) {
  const iconv_t converter = ::iconv_open("UCS-4LE", "UTF-8");
  if (converter == reinterpret_cast<iconv_t>(-1)) return false;
  std::string in(text);
  std::string out(text.size() * 4, '\0');
  char* from = in.data();
  char* to = out.data();
  std::size_t left = in.size();
  std::size_t room = out.size();
  const bool converted = ::iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  ::iconv_close(converter);
  return converted;
}

/// An argument of an Exec line.
std::string Quoted(std::string_view argument) {
  return '"' + Escaped(argument, {{'"', "\\\""}, {'`', "\\`"}, {'$', "\\$"}, {'\\', "\\\\"}, {'%', "%%"}}) +
         '"';
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string_view KeyOf(std::string_view line) { return Trimmed(line.substr(0, line.find('='))); }

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(
      line, [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }, ' ');
  return line;
}

std::string DesktopPath(std::string_view path) {
  return IsUtf8(path) ? std::string(path) : BytesToUtf8(path);
}

std::string XmlText(std::string_view text) {
  return Escaped(text, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}});
}

std::string KeyFileText(std::string_view text) {
  return Escaped(text, {{'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}});
}

std::string GlobOf(std::string_view extension) {
  return '*' + Escaped(extension, {{'*', "[*]"}, {'?', "[?]"}, {'[', "[[]"}});
}

std::string ExecLine(const std::string& program) {
  // A "%" or "=" may not stand in the program of an Exec line, but in its arguments.
  const bool needsShell = program.find_first_of("%=") != std::string::npos;
  const std::string shell = needsShell ? "sh -c " + Quoted("exec \"$0\" \"$@\"") + ' ' : "";
  return KeyFileText(shell + Quoted(program) + " %f");
}

std::string WithDefault(std::string_view list, std::string_view mimeType, std::string_view entry) {
  const std::string line = entry.empty() ? "" : std::string(mimeType) + '=' + std::string(entry) + '\n';
  std::string result;
  bool isInside = false;
  bool isWritten = line.empty();
  for (std::size_t start = 0; start < list.size();) {
    const std::size_t end = std::min(list.find('\n', start), list.size() - 1) + 1;
    const std::string_view old = list.substr(start, end - start);
    start = end;
    if (Trimmed(old).starts_with('[')) isInside = Trimmed(old) == kDefaults;
    if (isInside && KeyOf(old) == mimeType) continue;
    result += old;
    if (!isInside || isWritten) continue;
    if (!result.ends_with('\n')) result += '\n';
    result += line;
    isWritten = true;
  }
  if (isWritten) return result;
  if (!result.empty() && !result.ends_with('\n')) result += '\n';
  return result + std::string(kDefaults) + '\n' + line;
}

}  // namespace qxTools
