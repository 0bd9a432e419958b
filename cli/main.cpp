#include "cli/application.h"
#include "cli/exit_status.h"

#include <ktpnaips/platform/terminal.h>

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
  try {
    return cli::run(ktpnaips::terminal::arguments(argc, argv));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "naips: %s\n", failure.what());
    return cli::internalFailure;
  }
}
