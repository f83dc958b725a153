// SPDX-License-Identifier: MIT
#include <csignal>

#include "cli/Commands.h"

int main(int argc, char** argv) {
  // A disk quota is reported by the write that meets it, not by a signal.
  std::signal(SIGXFSZ, SIG_IGN);
  return brivolant::cli::RunCommandLine(argc, argv);
}
