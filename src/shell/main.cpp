#include "shell/Program.h"

int main(int argc, char** argv) { return dayward::runApplication(argc, argv); }
