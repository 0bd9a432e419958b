#include <ktpnaips/briefing/base64.h>
#include <ktpnaips/briefing/free_paths.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/ktpnaips.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "answers.h"
#include "measuring.h"

/// Parts of the library on their own.
namespace {

void useSchema() {
  ktpnaips::Deployment deployment;
  deployment.schemaNamespace.assign(bench::schemaNamespace.begin(), bench::schemaNamespace.end());
  ktpnaips::Deployment::use(deployment);
}

void countBytes(benchmark::State& state, std::size_t size) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

void base64Sizes(bench::Registered* work) {
  for (const std::int64_t size : {1'000, 200'000, 20'000'000}) work->Arg(size);
}

/// Over the bytes of the text, as the other rates.
template <class Text>
void base64(benchmark::State& state) {
  const std::string narrow =
      bench::base64(bench::someBytes(static_cast<std::size_t>(state.range(0))));
  const Text text(narrow.begin(), narrow.end());
  for (auto _ : state) benchmark::DoNotOptimize(ktpnaips::Enc64::MyDecode(text));
  countBytes(state, text.size());
}
/// Without line ends.
void base64OfOneLine(benchmark::State& state) {
  std::string text = bench::base64(bench::someBytes(static_cast<std::size_t>(state.range(0))));
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
  for (auto _ : state) benchmark::DoNotOptimize(ktpnaips::Enc64::MyDecode(std::string_view(text)));
  countBytes(state, text.size());
}
BENCHMARK(base64OfOneLine)->Name("base64/one_line")->Apply(base64Sizes);
BENCHMARK(base64<std::string>)->Name("base64/utf8")->Apply(base64Sizes);
BENCHMARK(base64<std::wstring>)->Name("base64/wide")->Apply(base64Sizes);

/// What the machine's memory allows, for comparison.
void copying(benchmark::State& state) {
  const std::string from =
      bench::base64(bench::someBytes(static_cast<std::size_t>(state.range(0))));
  std::string to(from.size(), '\0');
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), from.size());
    benchmark::ClobberMemory();
  }
  countBytes(state, from.size());
}
BENCHMARK(copying)->Name("memcpy")->Apply(base64Sizes);

void cleaning(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(ktpnaips::Utils::cleanString(L"  via  Razzi and  Lizzi ", true));
  }
}
BENCHMARK(cleaning)->Name("conversion/cleanString");

void lineEnds(benchmark::State& state) {
  const std::wstring text(60'000, L'\n');
  for (auto _ : state) benchmark::DoNotOptimize(ktpnaips::Utils::lfToCrLf(text));
}
BENCHMARK(lineEnds)->Name("conversion/lfToCrLf_60kB");

void durations(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ktpnaips::Utils::minutesToDuration(330));
}
BENCHMARK(durations)->Name("conversion/minutesToDuration");

void writtenDates(benchmark::State& state) {
  ktpnaips::DateTime time{};
  for (auto _ : state) {
    benchmark::DoNotOptimize(ktpnaips::isoDateTime(time));
    time += std::chrono::seconds(86'399);
  }
}
BENCHMARK(writtenDates)->Name("conversion/isoDateTime");

void readDates(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(ktpnaips::Utilities::convertISODateTime(L"2026-12-01T22:00:00Z"));
  }
}
BENCHMARK(readDates)->Name("conversion/convertISODateTime");

void loginRequest(benchmark::State& state) {
  useSchema();
  const ktpnaips::AuthenticateRqs request;
  for (auto _ : state) benchmark::DoNotOptimize(ktpnaips::requestDocument(request));
}
BENCHMARK(loginRequest)->Name("request/login");

void briefingRequest(benchmark::State& state) {
  useSchema();
  ktpnaips::LocationBriefingRqs request;
  for (int i = 0; i < 12; ++i) request.addLocation(L"YSSY");
  for (auto _ : state) benchmark::DoNotOptimize(ktpnaips::requestDocument(request));
}
BENCHMARK(briefingRequest)->Name("request/briefing_of_12_locations");

/// The first free number for a product of a new answer, with so many earlier files.
void numbering(benchmark::State& state) {
  const std::filesystem::path folder(ktpnaips::FreePaths().folder());
  const std::string start = (folder / "NAIPS").string();
  for (std::int64_t i = 1; i <= state.range(0); ++i) {
    std::ofstream(start + std::to_string(i) + ".PNG");
  }
  for (auto _ : state) {
    ktpnaips::FreePaths paths;
    benchmark::DoNotOptimize(paths.choose(L"NAIPS.PNG"));
  }
  std::filesystem::remove_all(folder);
}
BENCHMARK(numbering)->Arg(0)->Arg(10)->Arg(1'000)->Arg(100'000);

/// One listing of a folder, for comparison.
void listing(benchmark::State& state) {
  const std::filesystem::path folder(ktpnaips::FreePaths().folder());
  for (std::int64_t i = 1; i <= state.range(0); ++i) {
    std::ofstream(folder / ("NAIPS" + std::to_string(i) + ".PNG"));
  }
  for (auto _ : state) {
    std::size_t characters = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      characters += entry.path().native().size();
    }
    benchmark::DoNotOptimize(characters);
  }
  std::filesystem::remove_all(folder);
}
BENCHMARK(listing)->Arg(0)->Arg(10)->Arg(1'000)->Arg(100'000);

/// From an answer's bytes to a filled response.
template <class Response>
void load(benchmark::State& state, const std::string& name) {
  useSchema();
  const std::string body = bench::answer(name + std::to_string(state.range(0)));
  for (auto _ : state) {
    Response response;
    response.ResponseDoc(ktpnaips::xml::Document::parse(body));
    if (response.Error()) state.SkipWithError("the answer was refused");
  }
  countBytes(state, body.size());
}

void loadText(benchmark::State& state) {
  load<ktpnaips::BriefingResponse>(state, "text-");
}
BENCHMARK(loadText)->Name("loading/text")->Arg(1'000)->Arg(60'000)->Arg(1'000'000);

void loadEntries(benchmark::State& state) {
  load<ktpnaips::RouteDirectoryRsp>(state, "directory-");
}
BENCHMARK(loadEntries)->Name("loading/entries")->Arg(1)->Arg(100)->Arg(5'000);

}  // namespace

BENCHMARK_MAIN();
