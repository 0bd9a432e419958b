#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;

// The naips-simulator program, run with arguments.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    process_ = ::fork();
    if (process_ == 0) {
      ::dup2(ends[1], STDOUT_FILENO);
      ::dup2(ends[1], STDERR_FILENO);
      ::close(ends[0]);
      std::vector<char*> pointers{const_cast<char*>(NAIPS_SIMULATOR)};
      for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
      }
      pointers.push_back(nullptr);
      ::execv(NAIPS_SIMULATOR, pointers.data());
      ::_exit(127);
    }
    ::close(ends[1]);
    output_ = ends[0];
  }
  ~Program() { ::close(output_); }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  std::string readLine() {
    std::string line;
    char c = 0;
    while (::read(output_, &c, 1) == 1 && c != '\n') {
      line.push_back(c);
    }
    return line;
  }

  void signal(int number) const { ::kill(process_, number); }

  int exitStatus() const {
    int status = 0;
    ::waitpid(process_, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t process_ = -1;
  int output_ = -1;
};

TEST(SimulatorProgram, TellsItsPortAndEndsOnATerminationSignal) {
  const TemporaryFolder folder;
  for (const int number : {SIGTERM, SIGINT}) {
    Program program({"--dir", folder.path().string(), "--account", "me:pw"});
    const std::string line = program.readLine();
    ASSERT_THAT(line, MatchesRegex("listening on 127\\.0\\.0\\.1:[0-9]+"));
    const auto port = static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':') + 1)));
    const std::string login =
        envelope("<ndd:authenticate-rqs source='x' requestor='ME' password='pw'/>");
    EXPECT_THAT(roundTrip(port, httpRequest("POST", "/account-service", login)).body(),
                HasSubstr("status=\"SUCCESS\""));
    program.signal(number);
    EXPECT_EQ(program.exitStatus(), 0);
  }
}

TEST(SimulatorProgram, AnswersAsAtTheGivenTime) {
  const TemporaryFolder folder;
  Program program({"--dir", folder.path().string(), "--now", "2027-01-02T03:30:00Z"});
  const std::string line = program.readLine();
  const auto port = static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':') + 1)));
  const std::string body =
      envelope(request("met-brief-rqs", "<ndd:loc>YSSY</ndd:loc><ndd:types/>"));
  EXPECT_THAT(roundTrip(port, httpRequest("POST", "/briefing-service", body)).body(),
              HasSubstr("PREPARED 2027-01-02 0330 UTC"));
  program.signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0);
}

TEST(SimulatorProgram, SaysWhatIsWrongWithItsOptions) {
  Program time({"--now", "yesterday"});
  EXPECT_THAT(time.readLine(), HasSubstr("--now takes a time such as 2026-11-20T06:00:00Z"));
  EXPECT_NE(time.exitStatus(), 0);
  Program fault({"--fault", "gremlins"});
  EXPECT_THAT(fault.readLine(), HasSubstr("--fault"));
  EXPECT_NE(fault.exitStatus(), 0);
  Program account({"--account", "nocolon"});
  EXPECT_THAT(account.readLine(), HasSubstr("USER:PASSWORD"));
  EXPECT_NE(account.exitStatus(), 0);
}

}  // namespace
}  // namespace simtest
