#include <iostream>

#include "tools/batch.h"
#include "tools/batch_platform.h"

int main(int argc, char** argv) {
  orvane::PrepareConsole();
  return orvane::RunCompanion(orvane::ProgramArguments(argc, argv), std::cout, std::cerr);
}
