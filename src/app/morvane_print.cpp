#include "app/print_program.h"

int main(int argc, char** argv) {
  return Morvane::RunPrintProgram(argc, argv, nullptr);
}
