// SPDX-License-Identifier: MIT
// listener: another application on the session bus. Prints "ready", the code of each message that it
// receives, and "end", one a line. `listener <code>` broadcasts a code of four characters and ends.
#include "kits/BApplication.h"
#include "kits/BMessage.h"
#include "kits/BRoster.h"

#include <cstdio>
#include <cstring>

namespace {

class Listener : public BApplication {
public:
    explicit Listener(const char* code) : BApplication("application/x-vnd.NymbrelListener"), _code(code) {}

    void ReadyToRun() override {
        if (_code) {
            char code[5] = {};
            std::strncpy(code, _code, 4);
            const BMessage message(ks_message_code(code));
            be_roster->Broadcast(&message);
            PostMessage(B_QUIT_REQUESTED);
        } else {
            std::puts("ready");
        }
    }
    void MessageReceived(BMessage* message) override {
        const std::uint32_t code = message->what;
        std::printf("%c%c%c%c\n", code >> 24, code >> 16 & 255, code >> 8 & 255, code & 255);
    }

private:
    const char* _code;
};

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    Listener(argc > 1 ? argv[1] : nullptr).Run();
    std::puts("end");
}
