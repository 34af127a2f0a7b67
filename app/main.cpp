// SPDX-License-Identifier: MIT
// The program's entry point. It has no command line.
#include "app/NymbrelConfig.h"
#include "display/display.h"

int main() {
    const auto server = ks_open_display();
    auto* application = new NCApplication();
    application->Run(server.get());
    delete application;
    return 0;
}
