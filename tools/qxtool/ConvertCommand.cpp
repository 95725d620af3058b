// qxtool convert: Chinese text from one encoding to another.
#include <qxTools/base/CodePage950.h>
#include <qxTools/platform/Files.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include "Commands.h"
#include "PathOf.h"
#include "TextIo.h"
#include "Transcoder.h"
#include "Utf8Width.h"
#include "platform/System.h"

namespace qxtool {

namespace {

struct Options {
  std::string from;
  std::string to;
  std::string file = "-";
  std::string output;
  bool report = false;
  bool strict = false;
};

/// The file in pieces.
class Input {
 public:
  explicit Input(const std::string& name)
      : name_(name), file_(name == "-" ? stdin : OpenToRead(name), Close) {
    if (file_ == nullptr) Raise();
  }

  /// The next bytes; none at the end.
  std::string_view Read() {
    const std::size_t got = std::fread(piece_, 1, sizeof piece_, file_.get());
    if (got == 0 && std::ferror(file_.get()) != 0) Raise();
    return {piece_, got};
  }

 private:
  static void Close(std::FILE* file) {
    if (file != nullptr && file != stdin) std::fclose(file);
  }
  [[noreturn]] void Raise() const {
    throw Failure(Visible(name_) + ": " + std::generic_category().message(errno));
  }

  std::string name_;
  std::unique_ptr<std::FILE, void (*)(std::FILE*)> file_;
  char piece_[1 << 16];
};

/// Standard output, or a file that is replaced when all of it is there.
class Output {
 public:
  explicit Output(const std::string& name) {
    if (!name.empty()) file_.emplace(name);
  }
  void Write(std::string_view bytes) {
    if (file_)
      file_->Write(bytes);
    else
      PrintBytes(bytes);
  }
  void Commit() {
    if (file_) file_->Commit();
  }

 private:
  std::optional<qxTools::WholeFileWriter> file_;
};

/// A line on the terminal that says how far the work is, once it takes longer than a second.
class Progress {
 public:
  explicit Progress(const std::string& fileName) {
    std::error_code ignored;
    const auto size = std::filesystem::file_size(PathOf(fileName), ignored);
    if (!ignored) total_ = static_cast<double>(size) / kMegabyte;
  }
  ~Progress() {
    if (shown_) std::fprintf(stderr, "\r\x1B[K");
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Advance(std::size_t bytes) {
    done_ += static_cast<double>(bytes) / kMegabyte;
    const auto now = Clock::now();
    if (!terminal_ || now < next_) return;
    next_ = now + std::chrono::milliseconds(200);
    shown_ = true;
    if (total_ > 0)
      std::fprintf(stderr, "\r\x1B[K%.0f of %.0f MB", done_, total_);
    else
      std::fprintf(stderr, "\r\x1B[K%.0f MB", done_);
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr double kMegabyte = 1e6;

  bool terminal_ = IsTerminal(stderr);
  Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
  double done_ = 0;
  double total_ = 0;
  bool shown_ = false;
};

// --- The report ----------------------------------------------------------------------------------------

std::string Hex(std::string_view bytes) {
  std::string hex;
  for (const char c : bytes) {
    char digits[4];
    std::snprintf(digits, sizeof digits, " %02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    hex += digits;
  }
  return hex.substr(1);
}

/// Counts what was lost, and lists it if that is wanted.
class LossReport {
 public:
  LossReport(const Options& options, TextEncoding from, TextEncoding to)
      : options_(options), from_(from), to_(to) {}

  void Add(const Loss& loss) {
    ++count_;
    if (!options_.report) return;
    const std::string utf8 = CharacterOf(loss.bytes);
    const std::string why = utf8.empty() ? NoCharacter() : NameOf(to_) + " lacks it";
    PrintReport(FileName() + ":" + std::to_string(loss.line) + ":" + std::to_string(loss.column) + ": " +
                Hex(loss.bytes) + ", " + Shown(utf8) + why);
  }

  std::uint64_t Count() const { return count_; }

  void PrintCount() const {
    if (count_ == 0) return;
    PrintError(FileName() + ": " + std::to_string(count_) +
               (count_ == 1 ? " character was" : " characters were") + " lost" +
               (options_.report ? "" : "; --report lists them"));
  }

 private:
  std::string FileName() const { return options_.file == "-" ? "standard input" : Visible(options_.file); }

  std::string NoCharacter() const {
    const char* const hint = from_ == TextEncoding::kGb2312 ? " (if gbk has it, use --from gbk)" : "";
    return "not a character of " + NameOf(from_) + hint;
  }

  /// The character as the terminal has it, if it has it, and a comma.
  static std::string Shown(const std::string& utf8) {
    const std::string bytes = GetEncoding().utf8Terminal ? utf8 : qxTools::Utf8ToBytes(utf8);
    return bytes.empty() || bytes == "?" ? "" : bytes + ", ";
  }

  /// The character in UTF-8, or "" if the bytes are not one.
  std::string CharacterOf(std::string_view bytes) {
    if (from_ == TextEncoding::kUtf8) return VisibleUtf8(bytes) == bytes ? std::string(bytes) : "";
    if (units_.empty()) units_ = MakeCodeMap(from_, TextEncoding::kUtf8);
    if (bytes.size() != 2) return "";
    const auto byte = [&](std::size_t i) {
      return static_cast<std::size_t>(static_cast<unsigned char>(bytes[i]));
    };
    const std::uint16_t unit = units_[byte(0) << 8 | byte(1)];
    return unit != 0 ? Utf8Of(unit) : "";
  }

  const Options& options_;
  TextEncoding from_;
  TextEncoding to_;
  CodeMap units_;  // of the source, once it is needed
  std::uint64_t count_ = 0;
};

void Transcode(Transcoder& transcoder, const Options& options, Output& output) {
  Input input(options.file);
  Progress progress(options.file);
  for (std::string_view piece = input.Read(); !piece.empty(); piece = input.Read()) {
    output.Write(transcoder.Convert(piece));
    progress.Advance(piece.size());
  }
  output.Write(transcoder.Finish());
}

ExitStatus Run(const Options& options) {
  const TextEncoding from = FindEncoding(options.from);
  const TextEncoding to = FindEncoding(options.to);
  LossReport report(options, from, to);
  const auto transcoder = MakeTranscoder(from, to, [&](const Loss& loss) { report.Add(loss); });
  bool refused = false;
  WithSubject(options.output.empty() ? "standard output" : options.output, [&] {
    Output output(options.output);
    Transcode(*transcoder, options, output);
    refused = options.strict && report.Count() > 0;
    if (!refused) output.Commit();
  });
  report.PrintCount();
  return refused ? kFound : kDone;
}

}  // namespace

void AddConvertCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command command = program.Add("convert", "Convert text between big5, gb2312, gbk and utf8", options, Run);
  command.Example("convert --from gb2312 --to utf8 letter.txt -o letter.utf8");
  const std::string names = "big5 (cp950), gb2312 or utf8";
  command.Text("--from", options->from, "Encoding of the input: " + names + ", or gbk (cp936)")
      .Required()
      .Suggests(EncodingNames());
  command.Text("--to", options->to, "Encoding of the output: " + names).Required().Suggests(EncodingNames());
  command.Text("FILE", options->file, "Input; - or nothing is standard input");
  command.Text("-o,--output", options->output, "File that is written, whole, in place of standard output")
      .Placeholder("OUTPUT");
  command.Flag("--report", options->report,
               "List each loss on standard error: FILE:LINE:COLUMN, bytes and reason");
  command.Flag("--strict", options->strict,
               "End with exit status 1, and write no OUTPUT, if something is lost");
}

}  // namespace qxtool
