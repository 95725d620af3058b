// qxtool convert: Chinese text from one encoding to another.
#include <qxTools/platform/Files.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include "Commands.h"
#include "TextIo.h"
#include "Transcoder.h"

namespace qxtool {

namespace {

struct Options {
  std::string from;
  std::string to;
  std::string file = "-";
  std::string output;
  bool report = false;
};

class Input {
 public:
  explicit Input(const std::string& name)
      : name_(name), file_(name == "-" ? stdin : std::fopen(name.c_str(), "rb"), Close) {
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
    const auto size = std::filesystem::file_size(fileName, ignored);
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

  bool terminal_ = isatty(STDERR_FILENO) != 0;
  Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
  double done_ = 0;
  double total_ = 0;
  bool shown_ = false;
};

std::string Hex(std::string_view bytes) {
  std::string hex;
  for (const char c : bytes) {
    char digits[4];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    hex += digits;
  }
  return hex;
}

void Run(const Options& options) {
  std::uint64_t missing = 0;
  const auto transcoder =
      MakeTranscoder(options.from, options.to, [&](std::uint64_t offset, std::string_view character) {
        ++missing;
        if (options.report)
          PrintReport("offset " + std::to_string(offset) + ": " + Hex(character) + " became two spaces");
      });
  Input input(options.file);
  WithSubject(options.output.empty() ? "standard output" : options.output, [&] {
    Output output(options.output);
    Progress progress(options.file);
    for (std::string_view piece = input.Read(); !piece.empty(); piece = input.Read()) {
      output.Write(transcoder->Convert(piece));
      progress.Advance(piece.size());
    }
    output.Write(transcoder->Finish());
    output.Commit();
  });
  if (missing > 0 && !options.report)
    std::fprintf(stderr, "qxtool: %llu character%s became two spaces; --report lists them\n",
                 static_cast<unsigned long long>(missing), missing == 1 ? "" : "s");
}

}  // namespace

void AddConvertCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command command = program.Add("convert", "Convert text between big5, gb2312 and utf8", options, Run);
  command.Example("convert --from gb2312 --to utf8 letter.txt -o letter.utf8");
  const std::vector<std::string> encodings{"big5", "gb2312", "utf8"};
  command.Text("--from", options->from, "Encoding of the input").Required().OneOf(encodings);
  command.Text("--to", options->to, "Encoding of the output").Required().OneOf(encodings);
  command.Text("FILE", options->file, "Input; - or nothing is standard input");
  command.Text("-o,--output", options->output, "File that is written, whole, in place of standard output")
      .Placeholder("OUTPUT");
  command.Flag("--report", options->report, "List each character without a counterpart on standard error");
}

}  // namespace qxtool
