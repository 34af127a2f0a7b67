// SPDX-License-Identifier: MIT
// The program's entry point. It has no command line.
#include "app/NymbrelConfig.h"
#include "display/display.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <new>

namespace {

// Says in one sentence why the program ends.
[[noreturn]] void EndWithFailure() noexcept {
    const char* what = "unknown failure";
    const std::exception_ptr failure = std::current_exception();
    try {
        if (failure)
            std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        what = "the memory is used up";
    } catch (const std::exception& error) {
        what = error.what();
    } catch (...) {
    }
    std::fprintf(stderr, "NymbrelConfig cannot go on: %s.\n", what);
    std::_Exit(EXIT_FAILURE);
}

}  // namespace

int main() {
    std::set_terminate(EndWithFailure);
    try {
        const auto server = ks_open_display();
        const auto application = std::make_unique<NCApplication>();
        application->Run(server.get());
    } catch (...) {
        EndWithFailure();
    }
    return 0;
}
