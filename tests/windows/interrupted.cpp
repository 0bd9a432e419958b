// Interrupts itself as Ctrl+C does. Called with "told" it has told before that nothing is left to
// announce.
#include <ktpnaips/platform/interruption.h>

#include <windows.h>

#include <cstring>

int main(int argc, char** argv) {
  ktpnaips::interruption::announce("It may have been filed.");
  if (argc > 1 && std::strcmp(argv[1], "told") == 0) ktpnaips::interruption::announce(nullptr);
  if (GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) == 0) return 2;
  Sleep(60'000);
  return 3;
}
