// Dates from text and back beside the C library and Abseil's civil time; weekdays and distances beside
// Abseil. Each size is so many random dates. The C library stops at the parts of a date: no day number is
// asked of it.
#include <absl/time/civil_time.h>
#include <benchmark/benchmark.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/calendar/QXTimeTools.h>

#include <ctime>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace qxTools::QXDateTools;
using qxTools::Integer;
using qxTools::TDateTime;

struct Sample {
  TDateTime date;
  std::string text;
  std::string minguo;
  std::string time;  // of the day, HH:MM
  std::tm parts;
  absl::CivilDay day;
};

std::vector<Sample> Samples(std::int64_t count) {
  std::mt19937 random;
  std::vector<Sample> samples;
  while (std::ssize(samples) < count) {
    Sample sample{};
    sample.date = static_cast<Integer>(20000 + random() % 40000);
    sample.parts.tm_year = Year(sample.date) - 1900;
    sample.parts.tm_mon = Month(sample.date) - 1;
    sample.parts.tm_mday = Day(sample.date);
    sample.day = absl::CivilDay(Year(sample.date), Month(sample.date), Day(sample.date));
    sample.text = absl::FormatCivilTime(sample.day);
    sample.time = qxTools::QXTimeTools::MintoTime(static_cast<Integer>(random() % 1440), 24);
    sample.minguo = qxTools::QXMinguoDate::MinguoToStr(sample.date, qxTools::QXMinguoDate::mfSlash, true);
    if (CheckStrDate(sample.text)) samples.push_back(sample);  // all but most of the 29 Februaries
  }
  return samples;
}

// Runs `work` over the samples, each answer compared with what `want` says first.
template <class Work, class Want>
void Run(benchmark::State& state, Work work, Want want) {
  const std::vector<Sample> samples = Samples(state.range(0));
  for (const Sample& sample : samples)
    if (!(work(sample) == want(sample))) return state.SkipWithError(sample.text.c_str());
  for (auto _ : state)
    for (const Sample& sample : samples) benchmark::DoNotOptimize(work(sample));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

[[maybe_unused]] const bool registered = [] {
  const auto add = [](const char* name, auto work, auto want) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { Run(state, work, want); })
        ->Arg(100)
        ->Arg(1000)
        ->Arg(10000);
  };
  const auto date = [](const Sample& sample) { return sample.date; };
  const auto day = [](const Sample& sample) { return sample.day; };
  const auto dayOfMonth = [](const Sample& sample) { return sample.parts.tm_mday; };
  const auto text = [](const Sample& sample) { return sample.text; };
  const auto weekday = [](const Sample& sample) { return (static_cast<Integer>(sample.date) + 6) % 7; };
  const auto distance = [](const Sample& sample) { return static_cast<Integer>(sample.date) - 20000; };

  const auto parse = [](const Sample& sample) {
    TDateTime result = 0;
    StrToDateEx(result, sample.text);
    return result;
  };
  const auto parseParts = [](const Sample& sample) {
    std::tm parts{};
    strptime(sample.text.c_str(), "%Y-%m-%d", &parts);
    return parts.tm_mday;
  };
  const auto parseCivil = [](const Sample& sample) {
    absl::CivilDay result;
    absl::ParseCivilTime(sample.text, &result);
    return result;
  };
  add("date.parse/qxTools", parse, date);
  add("date.parse/strptime", parseParts, dayOfMonth);
  add("date.parse/absl", parseCivil, day);

  // The text of a time of day, 90 minutes later.
  const auto later = [](const Sample& sample) { return qxTools::QXTimeTools::AddTime(sample.time, 90, 24); };
  const auto laterWanted = [](const Sample& sample) {
    const int minutes = (std::stoi(sample.time) * 60 + std::stoi(sample.time.substr(3)) + 90) % 1440;
    return qxTools::QXTimeTools::MintoTime(minutes == 0 ? 1440 : minutes, 24);  // midnight stays 24:00
  };
  const auto laterParts = [](const Sample& sample) {
    std::tm parts{};
    strptime(sample.time.c_str(), "%H:%M", &parts);
    const int minutes = (parts.tm_hour * 60 + parts.tm_min + 90) % 1440;
    parts.tm_hour = minutes / 60;
    parts.tm_min = minutes % 60;
    std::string result(5, '\0');
    std::strftime(result.data(), 6, "%H:%M", &parts);
    return result == "00:00" ? std::string("24:00") : result;
  };
  // Only reading, beside strptime alone.
  const auto minutesOf = [](const Sample& sample) {
    return qxTools::QXTimeTools::TimetoMin(sample.time, 24);
  };
  const auto minutesParts = [](const Sample& sample) {
    std::tm parts{};
    strptime(sample.time.c_str(), "%H:%M", &parts);
    return parts.tm_hour * 60 + parts.tm_min;
  };
  add("time.add/qxTools", later, laterWanted);
  add("time.add/strptime+strftime", laterParts, laterWanted);
  add("time.minutes/qxTools", minutesOf, minutesParts);
  add("time.minutes/strptime", minutesParts, minutesOf);

  const auto parseMinguo = [](const Sample& sample) {
    return qxTools::QXMinguoDate::MinguoToDate(sample.minguo);
  };
  const auto parseMinguoParts = [](const Sample& sample) {
    std::tm parts{};
    strptime(sample.minguo.c_str(), "%Y/%m/%d", &parts);
    return parts.tm_mday;
  };
  add("date.minguo/qxTools", parseMinguo, date);
  add("date.minguo/strptime", parseMinguoParts, dayOfMonth);

  const auto format = [](const Sample& sample) { return DateToStrEx(sample.date, '-'); };
  const auto formatParts = [](const Sample& sample) {
    std::string result(10, '\0');
    std::strftime(result.data(), 11, "%Y-%m-%d", &sample.parts);
    return result;
  };
  const auto formatCivil = [](const Sample& sample) { return absl::FormatCivilTime(sample.day); };
  add("date.format/qxTools", format, text);
  add("date.format/strftime", formatParts, text);
  add("date.format/absl", formatCivil, text);

  const auto week = [](const Sample& sample) { return Week(sample.date); };
  const auto weekCivil = [](const Sample& sample) {
    return (static_cast<Integer>(absl::GetWeekday(sample.day)) + 1) % 7;
  };
  add("date.week/qxTools", week, weekday);
  add("date.week/absl", weekCivil, weekday);

  const auto between = [](const Sample& sample) { return DaysOfBetween(20001, sample.date); };
  const auto betweenCivil = [](const Sample& sample) { return sample.day - absl::CivilDay(1954, 10, 3); };
  add("date.days_between/qxTools", between, distance);
  add("date.days_between/absl", betweenCivil, distance);
  return true;
}();

}  // namespace
