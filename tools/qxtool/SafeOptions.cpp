#include "SafeOptions.h"

#include <qxTools/runtime/Numbers.h>

#include <algorithm>

namespace qxtool {

namespace {

using namespace qxTools::qxSqlSafeCall;

const std::vector<std::string> kTexts = {"nvarchar", "varchar", "content"};
const std::vector<std::string> kDates = {"datetime", "datetime2", "date"};

/// The place of a word that is one of these, as the enumeration that has them in this order.
template <class Choice>
Choice ChoiceOf(const std::string& word, const std::vector<std::string>& words) {
  return static_cast<Choice>(std::ranges::find(words, word) - words.begin());
}

std::vector<qxTools::Integer> ReadLengths(const std::string& text) {
  std::vector<qxTools::Integer> lengths;
  for (std::size_t start = 0, end = 0; start <= text.size(); start = end + 1) {
    end = std::min(text.find(',', start), text.size());
    try {
      lengths.push_back(qxTools::StrToInt(text.substr(start, end - start)));
    } catch (const qxTools::Exception& e) {
      throw Failure(e.what());
    }
    if (lengths.back() < 1) throw Failure("a length is at least 1");
  }
  return lengths;
}

}  // namespace

Option AddSafeOptions(Command& command, SafeOptions& options) {
  Option safe = command.Flag("--safe", options.isOn,
                             "Write exact types and Unicode literals; a value that has none is a failure");
  command.Text("--text", options.text, "How --safe declares texts").OneOf(kTexts).Needs(safe).ShowDefault();
  command
      .Parsed(
          "--lengths", [&options](const std::string& text) { options.call.Lengths = ReadLengths(text); },
          "The lengths that --safe declares texts with, as in 64,256,4000; longer ones are (max)")
      .Placeholder("N,N...")
      .Needs(safe);
  command.Text("--date", options.date, "How --safe declares dates").OneOf(kDates).Needs(safe).ShowDefault();
  return safe;
}

TSafeCallOptions CallOptions(const SafeOptions& options) {
  TSafeCallOptions call = options.call;
  call.Text = ChoiceOf<TSafeText>(options.text, kTexts);
  call.Date = ChoiceOf<TSafeDate>(options.date, kDates);
  return call;
}

}  // namespace qxtool
