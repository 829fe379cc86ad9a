#include <csignal>
#include <iostream>
#include <unistd.h>

#include "cli/commands.h"
#include "start/standard_streams.h"

int main(int argc, char** argv) {
  tav::FillStandardStreams();
  std::signal(SIGPIPE, SIG_IGN);  // a reader that has gone away is told like a full disk
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  try {
    tav::StandardOutput out;
    return tav::RunTavplan(arguments, tav::ProgramFolders::OfThisProgram(), out, std::cerr,
                           ::isatty(STDERR_FILENO) == 1);
  } catch (const std::exception& error) {
    std::cerr << "tavplan: " << error.what() << "\n";
    return tav::ExitStatus::kUnusableInput;
  }
}
