#include <filesystem>

#include "floor.h"
#include "measuring.h"

/// The works, by hand.
namespace {

using bench::measure;

hand::Client client() {
  return {bench::httpAddress(), bench::issuers()};
}

std::string url(const std::string& answer, const std::string& service) {
  return "http://" + answer + ".bench.example:8080/" + service;
}

void login(benchmark::State& state) {
  hand::Client service = client();
  const std::string at = url("login", "account-service");
  measure(state, [&] { benchmark::DoNotOptimize(service.login(at)); });
}
BENCHMARK(login)->Name("login/http")->Apply(bench::manually);

void loginSecurely(benchmark::State& state) {
  hand::Client service(bench::httpsAddress(), bench::issuers());
  const std::string at = "https://login.bench.example/naips/account-service";
  measure(state, [&] { benchmark::DoNotOptimize(service.login(at)); });
}
BENCHMARK(loginSecurely)->Name("login/https")->Apply(bench::manually);

void loginOnThreads(benchmark::State& state) {
  hand::Client service = client();
  const std::string at = url("login", "account-service");
  bench::repeatOnThread(state, [&] { benchmark::DoNotOptimize(service.login(at)); });
}
BENCHMARK(loginOnThreads)->Name("threads/login")->Apply(bench::threads);

void removeFiles(const hand::Briefing& briefing) {
  for (const auto& file : briefing.files) std::filesystem::remove(file);
}

void readBriefing(benchmark::State& state, const std::string& answer) {
  hand::Client service = client();
  const std::string at = url(answer, "briefing-service");
  const std::string folder = bench::environment("XDG_DATA_HOME");
  hand::Briefing briefing;
  measure(
      state, [&] { briefing = service.briefing(at, folder); },
      [&] {
        removeFiles(briefing);
        briefing = {};
      });
}

void briefing(benchmark::State& state) {
  readBriefing(state, "briefing");
}
BENCHMARK(briefing)->Apply(bench::manually);

void briefingOnThreads(benchmark::State& state) {
  hand::Client service = client();
  const std::string at = url("briefing", "briefing-service");
  const std::string folder =
      bench::environment("XDG_DATA_HOME") + '/' + std::to_string(state.thread_index());
  std::filesystem::create_directory(folder);
  bench::repeatOnThread(state, [&] { removeFiles(service.briefing(at, folder)); });
}
BENCHMARK(briefingOnThreads)->Name("threads/briefing")->Apply(bench::threads);

void product(benchmark::State& state) {
  readBriefing(state, "product-20000000");
}
BENCHMARK(product)->Apply(bench::manually);

void text(benchmark::State& state) {
  readBriefing(state, "text-" + std::to_string(state.range(0)));
}
BENCHMARK(text)->Apply(bench::sizes);

void readRoutes(hand::Client& service, const std::string& at) {
  std::size_t characters = 0;
  for (const hand::Route& route : service.routes(at)) {
    characters += route.departure.size() + route.destination.size() + route.code.size() +
                  route.description.size();
  }
  benchmark::DoNotOptimize(characters);
}

void readDirectory(benchmark::State& state, const std::string& entries) {
  hand::Client service = client();
  const std::string at = url("directory-" + entries, "reference-service");
  measure(state, [&] { readRoutes(service, at); });
}

void directory(benchmark::State& state) {
  readDirectory(state, "5000");
}
BENCHMARK(directory)->Apply(bench::manually);

void directoryOnThreads(benchmark::State& state) {
  hand::Client service = client();
  const std::string at = url("directory-5000", "reference-service");
  bench::repeatOnThread(state, [&] { readRoutes(service, at); });
}
BENCHMARK(directoryOnThreads)->Name("threads/directory")->Apply(bench::threads);

void entries(benchmark::State& state) {
  readDirectory(state, std::to_string(state.range(0)));
}
BENCHMARK(entries)->Apply(bench::entries);

hand::Stage stage() {
  return {
      .flight = {{"acid", "VHABC"},
                 {"frul", "I"},
                 {"ftyp", "G"},
                 {"num-acft", "1"},
                 {"atyp", "C441"},
                 {"wtc", "L"},
                 {"nav-com-equip", "S D F G H R W Y"},
                 {"surv-equip", "E B1"},
                 {"adep", "YSSY"},
                 {"etd", "2026-12-01T22:00:00Z"},
                 {"ades", "YMML"},
                 {"teet", "PT01H35M"}},
      .route = {{"speed", "N0290"}, {"level", "F250"}},
      .otherInfo = {{"sts", "MEDEVAC HOSP"},
                    {"pbn", "B2 C2 D2"},
                    {"dep", "SYDNEY KINGSFORD SMITH"},
                    {"rmk", "PLEASE ADVISE OF DELAYS"}},
      .people = {{"end", "PT05H30M"}, {"pob", "7"}},
      .dinghies = {{"number", "1"}, {"capacity", "8"}, {"covered", "true"}, {"colour", "ORANGE"}},
      .remarks = {{"acft-col-mark", "WHITE AND BLUE"},
                  {"rmk", "FIRST-AID KIT BEHIND THE LAST ROW"}},
      .segments = {{{"ats-route", "H65"}, {"new-level", "F260"}}},
      .registration = "VHABC",
      .pilot = "A. CITIZEN",
      .phone = "0400 000 000",
      .radios = {{"uhf", "true"}, {"vhf", "true"}, {"elt-406-MHz", "true"}},
      .survival = {{"polar", "false"},
                   {"desert", "false"},
                   {"maritime", "true"},
                   {"jungle", "false"}},
      .jackets = {{"light", "true"}, {"fluor", "false"}, {"uhf", "false"}, {"vhf", "true"}}};
}

void notification(benchmark::State& state) {
  const std::vector<hand::Stage> stages(10, stage());
  if (bench::environment("BENCH_SHOW") != "") std::puts(hand::notification(stages).c_str());
  measure(state, [&] { benchmark::DoNotOptimize(hand::notification(stages)); });
  state.counters["bytes"] = static_cast<double>(hand::notification(stages).size());
}
BENCHMARK(notification)->Apply(bench::manually);

}  // namespace

int main(int argc, char** argv) {
  hand::initialise();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
