/// @file
/// What a fuzz target is made of. Each source file beside this one is a target: it names itself with
/// FUZZ_TARGET and says what is done with one input, checking with FUZZ_CHECK.
///
/// With libFuzzer each is a program of its own; Replay.cpp runs them all over stored inputs, under any
/// compiler.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/base/Types.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qxTools::fuzz {

/// Takes values off the front of an input; behind its end there are zeros and empty texts.
class Input {
 public:
  explicit Input(std::string_view bytes) : rest_(bytes) {}

  bool AtEnd() const { return rest_.empty(); }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(Take(1).append(1, '\0')[0]); }
  bool Bit() { return (Byte() & 1) != 0; }

  /// An integer from -128 to 127, of one byte.
  Integer Small() { return (Byte() ^ 0x80) - 0x80; }

  /// An integer, little-endian.
  template <class T = Integer>
  T Number() {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) value |= std::uint64_t{Byte()} << 8 * i;
    return static_cast<T>(value);
  }

  /// A byte with the length, then up to so many bytes; never more than `most`.
  std::string Text(std::size_t most = 255) { return Take(std::min<std::size_t>(Byte(), most)); }

  /// All that is left, or the first `most` bytes of it.
  std::string Rest(std::size_t most = std::string_view::npos) { return Take(most); }

 private:
  std::string Take(std::size_t count) {
    std::string taken(rest_.substr(0, count));
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
};

[[noreturn]] inline void Fail(const char* file, int line, const char* what) {
  std::fprintf(stderr, "%s:%d: not so: %s\n", file, line, what);
  std::abort();
}

/// Ends the program with a message unless the condition holds.
#define FUZZ_CHECK(...) ((__VA_ARGS__) ? void() : ::qxTools::fuzz::Fail(__FILE__, __LINE__, #__VA_ARGS__))

/// The result of `call`, or nothing when it raises one of the library's exceptions, whose kind is then in
/// `error`: the text before any name or number differs from kind to kind. Other exceptions pass.
template <class Call>
auto Try(Call&& call, std::string* error = nullptr) -> std::optional<decltype(call())> {
  try {
    return call();
  } catch (const Exception& e) {
    if (error != nullptr) *error = e.what();
    return std::nullopt;
  }
}

/// A message as `error` above has it: what() ends at the first NUL.
inline std::string Message(const std::string& text) { return text.c_str(); }

/// For calls without a result. @return whether it came to its end.
template <class Call>
bool Completes(Call&& call, std::string* error = nullptr) {
  return Try([&] { return call(), true; }, error).has_value();
}

using Target = void (*)(Input& input);

#ifdef QXTOOLS_FUZZ_REPLAY
/// Known to Replay.cpp by its name.
bool Register(const char* name, Target target);
#define FUZZ_TARGET(name)                                                                       \
  static void name(::qxTools::fuzz::Input& input);                                              \
  [[maybe_unused]] static const bool name##Registered = ::qxTools::fuzz::Register(#name, name); \
  static void name([[maybe_unused]] ::qxTools::fuzz::Input& input)
#else
#define FUZZ_TARGET(name)                                                             \
  static void name(::qxTools::fuzz::Input& input);                                    \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) { \
    ::qxTools::fuzz::Input input({reinterpret_cast<const char*>(data), size});        \
    name(input);                                                                      \
    return 0;                                                                         \
  }                                                                                   \
  static void name([[maybe_unused]] ::qxTools::fuzz::Input& input)
#endif

}  // namespace qxTools::fuzz
