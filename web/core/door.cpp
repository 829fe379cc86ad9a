#include <cstdlib>
#include <emscripten/emscripten.h>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "cli/commands.h"

// The one way from the page to the core: a command of `tavplan` with its arguments, which end with a 0 each.

namespace {

std::string output;
std::string errors;

}  // namespace

extern "C" {

/// Runs a command on the files in memory and returns its exit status; what it printed stays until the next one.
EMSCRIPTEN_KEEPALIVE int tav_run(const char* words, int length) {
  std::vector<std::string> arguments;
  for (const char* word = words; word < words + length; word += arguments.back().size() + 1) {
    arguments.emplace_back(word);
  }
  ::umask(S_IWGRP | S_IWOTH);  // files in memory begin with rights for nobody
  std::ostringstream out;
  std::ostringstream err;
  int status = 0;
  try {
    status = tav::RunTavplan(arguments, tav::ProgramFolders("/tav", "/home/tav"), out, err);
  } catch (const std::exception& error) {
    err << "tavplan: " << error.what() << "\n";
    status = tav::ExitStatus::kUnusableInput;
  }
  output = std::move(out).str();
  errors = std::move(err).str();
  return status;
}

EMSCRIPTEN_KEEPALIVE const char* tav_output() { return output.c_str(); }
EMSCRIPTEN_KEEPALIVE const char* tav_errors() { return errors.c_str(); }

}  // extern "C"
