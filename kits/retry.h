// SPDX-License-Identifier: MIT
// Calls of the system that fail for a moment are made again.
#pragma once

#include <cerrno>

// Makes a call that returns -1 and sets errno when it fails, and returns its result. A call that was only
// interrupted, or would have waited, is made again at once, up to a bound. Another failure is given two more
// chances, unless the answer is that there is no such file or no permission.
template <class Call> auto ks_retried(Call call) {
    int chances = 2, interruptions = 1000;
    for (;;) {
        const auto result = call();
        if (result != -1 || errno == ENOENT || errno == EACCES)
            return result;
        int& left = errno == EINTR || errno == EAGAIN ? interruptions : chances;
        if (left-- == 0)
            return result;
    }
}
