// SPDX-License-Identifier: MIT
// listener: another application on the session bus. Writes "ready", the code of each message that it
// receives, and "end" to file descriptor 3, one a line.
#include "kits/BMessage.h"
#include "toolkit/KSApplication.h"

#include <string>
#include <unistd.h>

namespace {

void Tell(std::string line) {
    line += '\n';
    if (write(3, line.data(), line.size()) < 0)
        _exit(1);
}

class Listener : public KSApplication {
public:
    Listener() : KSApplication("application/x-vnd.NymbrelListener", "NymbrelListener.catalog") {}

    void ReadyToRun() override { Tell("ready"); }
    void MessageReceived(BMessage* message) override {
        std::string code;
        for (int shift = 24; shift >= 0; shift -= 8)
            code += static_cast<char>(message->what >> shift);
        Tell(code);
    }
};

}  // namespace

int main() {
    Listener().Run();
    Tell("end");
}
