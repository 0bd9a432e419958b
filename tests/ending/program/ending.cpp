// The program whose end tests look at: `ending HOW FOLDER`, its temporary files in the folder.
#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>

#include "tests/support/soap.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

using ktpnaips::terminal::environment;
using ktpnaips::text::fromUtf8;

void useTemporaryFolder(const std::string& folder) {
#ifdef _WIN32
  _putenv_s("TMP", folder.c_str());
#else
  ::setenv("TMPDIR", folder.c_str(), 1);
#endif
}

/// Loads an answer with a chart; the path of its file, or an empty text.
std::wstring chart() {
  ktpnaips::GetChartRsp response;
  ktpnaips::test::load(response,
                       ktpnaips::test::success(
                           "<n:desc key='k'/><n:content type='PNG' product-res='LO'><n:content>QUJD"
                           "</n:content></n:content>"));
  return response.Count() == 1 ? response.Item(1)->FilePath() : L"";
}

bool isThere(const std::wstring& file) {
  return !file.empty() && std::filesystem::exists(file);
}

void keepSubmitting(bool overHttp) {
  ktpnaips::NAIPSConfig config;
  config.Mode(1);
  config.UseProxy(overHttp);
  for (;;) ktpnaips::AuthenticateRqs().submit();
}

/// Starts what works on while the program ends: charts, and requests to the service beside it.
void startWork() {
  ktpnaips::Deployment deployment;
  deployment.connectTo = fromUtf8(environment("NAIPS_SIMULATOR").value());
  deployment.caFile = fromUtf8(environment("NAIPS_SIMULATOR_CA").value());
  ktpnaips::Deployment::use(deployment);
  std::atomic<int> started{0};
  const auto start = [&started](const std::function<void()>& work) {
    std::thread([&started, work] {
      ++started;
      work();
    }).detach();
  };
  start([] { keepSubmitting(false); });
  start([] { keepSubmitting(true); });
  start([] {
    for (;;) chart();
  });
  while (started < 3) std::this_thread::yield();
}

int endWithThreadsAtWork() {
  startWork();
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  return isThere(chart()) ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// A thread that lives on has a chart.
int endWithAThread() {
  std::atomic<bool> isReady{false};
  std::thread([&isReady] {
    if (isThere(chart())) isReady = true;
    for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
  }).detach();
  while (!isReady) std::this_thread::yield();
  return EXIT_SUCCESS;
}

#ifndef _WIN32
/// Whether a child that does this ends as programs do, and well.
bool childSucceeds(const std::function<bool()>& action) {
  const pid_t child = ::fork();
  if (child == 0) std::exit(action() ? EXIT_SUCCESS : EXIT_FAILURE);
  int status = 0;
  return ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
         WEXITSTATUS(status) == EXIT_SUCCESS;
}

/// A child leaves the files of its parent, takes its own with it, and may itself have children.
int endWithChildren() {
  const std::wstring own = chart();
  const std::filesystem::path folder = std::filesystem::path(own).parent_path();
  const auto files = [&folder] {
    return std::distance(std::filesystem::directory_iterator(folder), {});
  };
  const bool areRight = childSucceeds([&] {
    const std::wstring ofChild = chart();
    const bool canFork = childSucceeds([&] { return isThere(chart()) && files() == 3; });
    return canFork && isThere(own) && isThere(ofChild) && files() == 2;
  });
  return areRight && isThere(own) && files() == 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Children end while a thread of their parent is in the middle of making a file. (In the middle of
/// a parse, libxml2's own end can wait for ever.)
int forkWithAThreadAtWork() {
  const std::wstring own = chart();
  std::atomic<bool> isStarted{false};
  std::thread([&isStarted] {
    isStarted = true;
    for (;;) ktpnaips::TempFileManager().CreateTempFile(L"KTP");
  }).detach();
  while (!isStarted) std::this_thread::yield();
  for (int i = 0; i < 100; ++i) {
    if (!childSucceeds([] { return true; })) return EXIT_FAILURE;
  }
  return isThere(own) ? EXIT_SUCCESS : EXIT_FAILURE;
}
#endif

}  // namespace

int main(int argc, char** argv) {
  const auto arguments = ktpnaips::terminal::arguments(argc, argv);
  const std::string& how = arguments.at(0);
  useTemporaryFolder(arguments.at(1));
  ktpnaips::setFailureReporter([](std::wstring_view) {});
  if (how == "threads-at-work") return endWithThreadsAtWork();
  if (how == "thread") return endWithAThread();
#ifndef _WIN32
  if (how == "fork") return endWithChildren();
  if (how == "fork-with-a-thread-at-work") return forkWithAThreadAtWork();
#endif
  return EXIT_FAILURE;
}
