// SPDX-License-Identifier: MIT
// A second application for the roster's tests. Alone it prints "ready" and then the code of each message it
// receives, one line each; with a four-character code as argument it broadcasts that and quits.
#include "kits/BApplication.h"
#include "kits/BMessage.h"
#include "kits/BRoster.h"

#include <cstdio>
#include <cstring>

namespace {

class Peer : public BApplication {
public:
    explicit Peer(const char* code) : BApplication("application/x-vnd.Nymbrel-peer"), _code(code) {}

    void ReadyToRun() override {
        if (_code) {
            char text[5] = {};
            std::strncpy(text, _code, 4);
            const BMessage message(ks_message_code(text));
            be_roster->Broadcast(&message);
            PostMessage(B_QUIT_REQUESTED);
        } else {
            std::puts("ready");
        }
    }
    void MessageReceived(BMessage* message) override { std::printf("%08x\n", message->what); }

private:
    const char* _code;
};

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    Peer(argc > 1 ? argv[1] : nullptr).Run();
    return 0;
}
