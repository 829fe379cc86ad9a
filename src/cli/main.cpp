#include <iostream>

#include "cli/commands.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  try {
    return tav::RunTavplan(arguments, tav::ProgramFolders::OfThisProgram(), std::cout, std::cerr);
  } catch (const std::exception& error) {
    std::cerr << "tavplan: " << error.what() << "\n";
    return tav::ExitStatus::kUnusableInput;
  }
}
