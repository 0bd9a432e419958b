#include "tests/torture/fresh_processes.h"

#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/torture/message.h"

namespace ktpnaips::test {
namespace {

constexpr unsigned secondsUntilItHangs = 120;
constexpr std::size_t longestMessage = 100'000;

void send(int socket, std::string_view message) {
  if (message.size() > longestMessage || ::send(socket, message.data(), message.size(), 0) < 0) {
    throw std::runtime_error("a message between processes was not sent");
  }
}

/// Empty once the other side is gone.
std::string receive(int socket) {
  std::string message(longestMessage, '\0');
  message.resize(static_cast<std::size_t>(
      std::max<ssize_t>(::recv(socket, message.data(), message.size(), 0), 0)));
  return message;
}

/// What a new process is to do, in the order in which it is told.
void makeCalls(int socket, MessageReader order, const std::vector<Scenario>& all) {
  ::alarm(secondsUntilItHangs);
  const std::string name = order.text();
  const auto scenario =
      std::find_if(all.begin(), all.end(), [&](const Scenario& each) { return each.name == name; });
  Deployment deployment;
  deployment.productionHost = text::fromUtf8(order.text());
  deployment.proxyHost = text::fromUtf8(order.text());
  deployment.connectTo = text::fromUtf8(order.text());
  deployment.caFile = text::fromUtf8(order.text());
  const std::filesystem::path dataFolder = order.text();
  ::setenv("XDG_DATA_HOME", dataFolder.parent_path().c_str(), 1);
  ::setenv("TMPDIR", order.text().c_str(), 1);
  Failure failure;
  failure.step = static_cast<long>(order.number());
  failure.way = order.number();
  failure.isLasting = order.number() != 0;
  prepareCalls(*scenario, deployment);
  MessageWriter done;
  Seen failed;
  StepsTaken steps;
  Seen after;
  std::thread([&] {  // whose files go with it
    failed = call(*scenario, dataFolder, failure);
    steps = stepsTaken();
    after = call(*scenario, dataFolder, {});
  })
      .join();
  writeSeen(failed, done);
  done.add(steps.deniedTo.library);
  done.add({reinterpret_cast<const char*>(&steps), sizeof steps});  // NOLINT: the same program
  writeSeen(after, done);
  send(socket, done.bytes());
}

/// Forks for each order, and says how the process ended.
void serve(int socket) {
  const std::vector<Scenario> all = scenarios();
  for (;;) {
    const std::string order = receive(socket);
    if (order.empty()) return;
    const pid_t child = ::fork();
    if (child == 0) {
      makeCalls(socket, MessageReader(order), all);
      ::_exit(EXIT_SUCCESS);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    send(socket, std::to_string(status));
  }
}

class Forked : public testing::Environment {
 public:
  void SetUp() override { processes = std::make_unique<FreshProcesses>(); }
  void TearDown() override { processes.reset(); }

  std::unique_ptr<FreshProcesses> processes;
};

Forked* const forked = [] {
  auto made = std::make_unique<Forked>();
  Forked* const environment = made.get();
  testing::AddGlobalTestEnvironment(made.release());
  return environment;
}();

}  // namespace

void prepareCalls(const Scenario& scenario, const Deployment& deployment) {
  Deployment::use(deployment);
  winInet::timeLimits() = {20'000, 20'000, 20'000};
  if (scenario.isObserved) {
    setCallObserver([](const ServiceCall& call) { static_cast<void>(call.request()); });
  }
}

FreshProcesses::FreshProcesses() {
  std::array<int, 2> sockets{};
  if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets.data()) != 0) std::abort();
  origin_ = ::fork();
  socket_ = sockets[0];
  if (origin_ != 0) {
    ::close(sockets[1]);
    return;
  }
  ::close(sockets[0]);
  serve(sockets[1]);
  ::_exit(EXIT_SUCCESS);
}

FreshProcesses::~FreshProcesses() {
  ::close(socket_);
  ::waitpid(origin_, nullptr, 0);
}

FirstCalls FreshProcesses::calls(const Scenario& scenario, const Deployment& deployment,
                                 const std::filesystem::path& dataFolder, const Failure& failure) {
  MessageWriter order;
  order.add(scenario.name);
  for (const std::wstring* each : {&deployment.productionHost, &deployment.proxyHost,
                                   &deployment.connectTo, &deployment.caFile}) {
    order.add(text::toUtf8(*each));
  }
  order.add(dataFolder.string());
  order.add(std::filesystem::temp_directory_path().string());
  order.addNumber(static_cast<std::size_t>(failure.step));
  order.addNumber(failure.way);
  order.addNumber(failure.isLasting ? 1 : 0);
  send(socket_, order.bytes());
  FirstCalls made;
  const std::string message = receive(socket_);
  const bool isStatus = message.find(':') == std::string::npos;
  if (!isStatus) {
    MessageReader done(message);
    made.failed = readSeen(done);
    made.deniedTo = done.text();
    const std::string steps = done.text();
    std::copy(steps.begin(), steps.end(), reinterpret_cast<char*>(&made.steps));  // NOLINT
    made.steps.deniedTo = {};  // it points into the other process
    made.after = readSeen(done);
  }
  const int status = std::stoi(isStatus ? message : receive(socket_));
  if (WIFSIGNALED(status)) made.end = "signal " + std::to_string(WTERMSIG(status));
  if (WIFEXITED(status) && WEXITSTATUS(status) != 0) {
    made.end = "status " + std::to_string(WEXITSTATUS(status));
  }
  return made;
}

FreshProcesses& freshProcesses() {
  return *forked->processes;
}

}  // namespace ktpnaips::test
