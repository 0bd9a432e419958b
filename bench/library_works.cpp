#include <ktpnaips/core/request_document.h>
#include <ktpnaips/ktpnaips.h>

#include <filesystem>

#include "answers.h"
#include "measuring.h"

/// The works, with the library.
namespace {

using bench::measure;

std::wstring wide(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

/// Lets requests of this thread go to the service that gives the answer.
void askFor(const std::string& answer, bool securely = false) {
  ktpnaips::Deployment deployment;
  deployment.developerHost = wide(answer + ".bench.example");
  deployment.testHost = deployment.developerHost;
  deployment.schemaNamespace = wide(bench::schemaNamespace);
  deployment.connectTo = wide(securely ? bench::httpsAddress() : bench::httpAddress());
  deployment.caFile = wide(bench::issuers());
  ktpnaips::Deployment::use(deployment);
  ktpnaips::NAIPSConfig config;
  config.Mode(securely ? 2 : 0);
  config.UserName(L"pilot1");
  config.Password(L"secret");
  config.NewFPLFormat(true);
}

void stopOnError(benchmark::State& state, const ktpnaips::AbstractResponse* response) {
  if (response != nullptr && !response->Error()) return;
  state.SkipWithError("the call failed");
}

void logIn(benchmark::State& state) {
  const auto response = ktpnaips::AuthenticateRqs().submit();
  stopOnError(state, response.get());
  benchmark::DoNotOptimize(response->Name().size() + response->MOTD().size() +
                           response->Email().size() + response->AvfaxId().size());
}

void login(benchmark::State& state) {
  askFor("login");
  measure(state, [&] { logIn(state); });
}
BENCHMARK(login)->Name("login/http")->Apply(bench::manually);

void loginSecurely(benchmark::State& state) {
  askFor("login", true);
  measure(state, [&] { logIn(state); });
}
BENCHMARK(loginSecurely)->Name("login/https")->Apply(bench::manually);

/// The work on one of several threads, which share what `askFor` has set but the account.
template <void (*work)(benchmark::State&)>
void onThread(benchmark::State& state) {
  ktpnaips::NAIPSConfig().UserName(L"pilot1");
  bench::repeatOnThread(state, [&] { work(state); });
}

BENCHMARK(onThread<logIn>)
    ->Name("threads/login")
    ->Apply(bench::threads)
    ->Setup([](const benchmark::State&) { askFor("login"); });

/// The first call of a process and its second; runs alone in a process.
void firstCall(benchmark::State& state) {
  using Clock = std::chrono::steady_clock;
  askFor("login");
  for (auto _ : state) {
    const auto start = Clock::now();
    logIn(state);
    const auto second = Clock::now();
    logIn(state);
    const auto end = Clock::now();
    state.counters["first_us"] = std::chrono::duration<double>(second - start).count() * 1e6;
    state.counters["second_us"] = std::chrono::duration<double>(end - second).count() * 1e6;
  }
}
BENCHMARK(firstCall)->Name("first")->Iterations(1);

std::shared_ptr<ktpnaips::BriefingResponse> brief(benchmark::State& state) {
  ktpnaips::LocationBriefingRqs request;
  request.addLocation(L"YSSY");
  auto briefing = request.submit();
  stopOnError(state, briefing.get());
  benchmark::DoNotOptimize(briefing->Content().size());
  return briefing;
}

void removeFiles(const ktpnaips::BriefingResponse& briefing) {
  for (const auto& item : briefing) std::filesystem::remove(item->File());
}

void readBriefing(benchmark::State& state, const std::string& answer) {
  askFor(answer);
  std::shared_ptr<ktpnaips::BriefingResponse> briefing;
  measure(
      state, [&] { briefing = brief(state); },
      [&] {
        removeFiles(*briefing);
        briefing = nullptr;
      });
}

void briefing(benchmark::State& state) {
  readBriefing(state, "briefing");
}
BENCHMARK(briefing)->Apply(bench::manually);

void briefAndRemove(benchmark::State& state) {
  removeFiles(*brief(state));
}
BENCHMARK(onThread<briefAndRemove>)
    ->Name("threads/briefing")
    ->Apply(bench::threads)
    ->Setup([](const benchmark::State&) { askFor("briefing"); });

void product(benchmark::State& state) {
  readBriefing(state, "product-20000000");
}
BENCHMARK(product)->Apply(bench::manually);

void text(benchmark::State& state) {
  readBriefing(state, "text-" + std::to_string(state.range(0)));
}
BENCHMARK(text)->Apply(bench::sizes);

void readRoutes(benchmark::State& state) {
  ktpnaips::RouteDirectoryRqs request;
  request.Depart(L"YSSY");
  request.Destination(L"YMML");
  const auto routes = request.submit();
  stopOnError(state, routes.get());
  std::size_t characters = 0;
  for (const auto& route : *routes) {
    characters += route->Depart().size() + route->Destination().size() + route->RouteCode().size() +
                  route->Description().size();
  }
  benchmark::DoNotOptimize(characters);
}

void readDirectory(benchmark::State& state, const std::string& entries) {
  askFor("directory-" + entries);
  measure(state, [&] { readRoutes(state); });
}

void directory(benchmark::State& state) {
  readDirectory(state, "5000");
}
BENCHMARK(directory)->Apply(bench::manually);

BENCHMARK(onThread<readRoutes>)
    ->Name("threads/directory")
    ->Apply(bench::threads)
    ->Setup([](const benchmark::State&) { askFor("directory-5000"); });

void entries(benchmark::State& state) {
  readDirectory(state, std::to_string(state.range(0)));
}
BENCHMARK(entries)->Apply(bench::entries);

std::shared_ptr<ktpnaips::ICAOOtherInfo> otherInfo() {
  auto info = std::make_shared<ktpnaips::ICAOOtherInfo>();
  info->STS(L"Medevac, Hosp");
  info->PBN(L"B2C2D2");
  info->DEP(L"Sydney Kingsford Smith");
  info->RMK(L"Please advise of delays");
  return info;
}

std::shared_ptr<ktpnaips::ICAOSupplInfo> supplementary() {
  auto info = std::make_shared<ktpnaips::ICAOSupplInfo>();
  info->Endurance(330);
  info->POB(7);
  for (const int flag : {0, 1, 2, 5, 10, 13}) info->setFlag(flag, true);
  info->DinghyCount(1);
  info->DinghyCapacity(8);
  info->DinghyCovered(true);
  info->DinghyColour(L"Orange");
  info->AircraftColour(L"White and blue");
  info->Remarks(L"First-aid kit behind the last row");
  info->Pilot()->Name(L"A. Citizen");
  info->Pilot()->Phone(L"0400 000 000");
  return info;
}

std::shared_ptr<ktpnaips::ICAOFlightNotifStage> stage() {
  using namespace std::chrono;
  auto plan = std::make_shared<ktpnaips::ICAOFlightNotifStage>();
  plan->Aircraft(L"VHABC");
  plan->Registration(L"VHABC");
  plan->FlightRules(L"IFR");
  plan->AircraftType(L"C441");
  plan->NavComEquip(L"SDFGHRWY");
  plan->SSREquip(L"EB1");
  plan->Depart(L"YSSY");
  plan->Destination(L"YMML");
  plan->ETD(local_days{2026y / 12 / 1} + 22h);
  plan->TEET(95);
  plan->Route(std::make_shared<ktpnaips::ICAORoute>());
  plan->Route()->Speed(L"N0290");
  plan->Route()->Level(L"F250");
  auto segment = std::make_shared<ktpnaips::ICAORouteSegment>();
  segment->ATSRouteId(L"H65");
  segment->NewLevel(L"F260");
  plan->Route()->Add(segment);
  plan->OtherInfo(otherInfo());
  plan->SupplInfo(supplementary());
  return plan;
}

void notification(benchmark::State& state) {
  askFor("login");
  ktpnaips::SubmitICAOFlightNotifRqs request;
  for (int i = 0; i < 10; ++i) request.Notification()->Add(stage());
  if (bench::environment("BENCH_SHOW") != "") {
    std::puts(ktpnaips::requestDocument(request).c_str());
  }
  measure(state, [&] { benchmark::DoNotOptimize(ktpnaips::requestDocument(request)); });
  state.counters["bytes"] = static_cast<double>(ktpnaips::requestDocument(request).size());
}
BENCHMARK(notification)->Apply(bench::manually);

}  // namespace

BENCHMARK_MAIN();
