#include "cli/Program.h"

int main(int argc, char** argv) { return dayward::runProgram(argc, argv); }
