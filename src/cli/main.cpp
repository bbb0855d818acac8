#include "cli/program.h"

int main(int count, char** words) {
  return Cli::run_program(std::vector<std::string>(words + (count > 0 ? 1 : 0), words + count));
}
