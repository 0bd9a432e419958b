// Interrupts itself as Ctrl+C does. Called with "told" it has told before that nothing is left to
// announce.
#include <ktpnaips/platform/interruption.h>

#include <windows.h>

#include <cstring>
#include <thread>

int main(int argc, char** argv) {
  ktpnaips::interruption::announce("It may have been filed.");
  if (argc > 1 && std::strcmp(argv[1], "told") == 0) ktpnaips::interruption::announce(nullptr);
  // The program may end before the call returns, whose result then says nothing.
  std::thread([] { GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0); }).detach();
  Sleep(60'000);
  return 3;
}
