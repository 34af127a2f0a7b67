// SPDX-License-Identifier: MIT
// nymbrel-settings: the settings of the toolkit's programs, from the shell.
#include "shell/commands.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    try {
        const std::vector<std::string> arguments(argv + (argc > 0), argv + argc);
        const int status = shell::Run(arguments, std::cout, std::cerr);
        if (std::cout.flush())
            return status;
        std::cerr << "nymbrel-settings: the output cannot be written\n";
    } catch (const std::exception& error) {
        std::cerr << "nymbrel-settings cannot go on: " << error.what() << '\n';
    }
    return shell::kFailed;
}
