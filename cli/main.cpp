#include "cli/application.h"
#include "cli/exit_status.h"
#include "cli/messages.h"

#include <ktpnaips/platform/terminal.h>

#include <exception>

int main(int argc, char** argv) {
  ktpnaips::terminal::keepStreamsApart();
  try {
    return cli::run(ktpnaips::terminal::arguments(argc, argv));
  } catch (const std::exception& failure) {
    cli::complainOfError(failure.what());
    return cli::internalFailure;
  }
}
