// shell_home DIRECTORY COUNT: makes a home for the benches of the application.
#include <cstdlib>
#include <iostream>

#include "shell/ShellHome.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "use: shell_home DIRECTORY COUNT\n";
        return 2;
    }
    dayward::bench::makeShellHome(argv[1], std::atoi(argv[2]));
}
