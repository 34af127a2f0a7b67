// SPDX-License-Identifier: MIT
// To be preloaded: makes calls of the system fail that concern the settings file or catalogs, or start
// threads and events.
//
// NYMBREL_CALLS names a file to which the name of each such call is added, one a line. NYMBREL_FAILURE is
// "<call> <which> <error> <how often>": of the calls with this name, so many fail from the first-th (0) on.
// The error is a number of errno, "short" for a read or write of half the bytes, or "kill"; behind a comma
// stands another one for all but the first.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace {

bool is_ours[1024];  // by descriptor
thread_local bool is_short;

bool IsOurs(const char* path) {
    return std::strstr(path, "Nymbrel_settings") || std::strstr(path, "Catalogs");
}
bool IsOurs(int descriptor) {
    return descriptor >= 0 && descriptor < 1024 && is_ours[descriptor];
}
bool IsOurs(DIR* directory) {
    return IsOurs(dirfd(directory));
}

void Log(const char* call) {
    static const char* const path = std::getenv("NYMBREL_CALLS");
    if (!path)
        return;
    char line[64];
    const int length = std::snprintf(line, sizeof line, "%s\n", call);
    const long log = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    syscall(SYS_write, log, line, length);
    syscall(SYS_close, log);
}

// Returns whether this call is to fail, with errno set; a call that is to be short does not fail.
bool Fails(const char* call) {
    static const char* const failure = std::getenv("NYMBREL_FAILURE");
    static int seen = 0;
    char name[32], error[16];
    int first = 0, count = 0;
    const int before = errno;
    Log(call);
    errno = before;
    if (!failure || std::sscanf(failure, "%31s %d %15s %d", name, &first, error, &count) != 4 ||
        std::strcmp(name, call) != 0)
        return false;
    const int number = __atomic_fetch_add(&seen, 1, __ATOMIC_RELAXED);
    if (number < first || number >= first + count)
        return false;
    char* const comma = std::strchr(error, ',');
    const char* const now = comma && number > first ? comma + 1 : error;
    if (std::strcmp(now, "kill") == 0)
        kill(getpid(), SIGKILL);
    if (std::strcmp(now, "pause") == 0) {
        usleep(300'000);
        return false;
    }
    is_short = std::strncmp(now, "short", 5) == 0;
    if (!is_short)
        errno = std::atoi(now);
    return !is_short;
}

int Remembered(int descriptor) {
    if (descriptor >= 0 && descriptor < 1024)
        is_ours[descriptor] = true;
    return descriptor;
}
// Half of a read or write that is to be short.
std::size_t Shortened(std::size_t most) {
    return std::exchange(is_short, false) && most > 1 ? most / 2 : most;
}

template <class Function> Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define REAL(call) static auto* const real = Real(&call, #call)
#define FAILING(Result, call, failed, parameters, arguments, is_concerned)                                   \
    extern "C" Result call parameters {                                                                      \
        REAL(call);                                                                                          \
        return is_concerned && Fails(#call) ? failed : real arguments;                                       \
    }

FAILING(int, fstat, -1, (int file, struct stat* about), (file, about), IsOurs(file))
FAILING(int, stat, -1, (const char* path, struct stat* about), (path, about), IsOurs(path))
FAILING(int, lstat, -1, (const char* path, struct stat* about), (path, about), IsOurs(path))
FAILING(int, symlink, -1, (const char* target, const char* path), (target, path), IsOurs(path))
FAILING(int, remove, -1, (const char* path), (path), IsOurs(path))
FAILING(ssize_t, readlink, -1, (const char* path, char* to, size_t most), (path, to, most), IsOurs(path))
FAILING(int, fallocate, -1, (int file, int mode, off_t at, off_t size), (file, mode, at, size), IsOurs(file))
FAILING(int, ftruncate, -1, (int file, off_t length), (file, length), IsOurs(file))
FAILING(ssize_t, read, -1, (int file, void* to, size_t most), (file, to, Shortened(most)), IsOurs(file))
FAILING(ssize_t, write, -1, (int file, const void* from, size_t most), (file, from, Shortened(most)),
        IsOurs(file))
FAILING(dirent*, readdir, nullptr, (DIR * directory), (directory), IsOurs(directory))
FAILING(int, eventfd, -1, (unsigned count, int flags), (count, flags), true)
FAILING(int, pthread_create, errno,
        (pthread_t * thread, const pthread_attr_t* how, void* (*start)(void*), void* with),
        (thread, how, start, with), true)

extern "C" int open(const char* path, int flags, ...) {
    REAL(open);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    if (!IsOurs(path))
        return real(path, flags, mode);
    return Fails("open") ? -1 : Remembered(real(path, flags, mode));
}

extern "C" int openat(int directory, const char* path, int flags, ...) {
    REAL(openat);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return IsOurs(path) && Fails("openat") ? -1 : real(directory, path, flags, mode);
}

// The descriptor is gone, whatever close() returns.
extern "C" int close(int file) {
    REAL(close);
    if (!IsOurs(file))
        return real(file);
    is_ours[file] = false;
    const bool fails = Fails("close");
    const int error = errno, result = real(file);
    errno = fails ? error : errno;
    return fails ? -1 : result;
}

extern "C" DIR* opendir(const char* path) {
    REAL(opendir);
    if (!IsOurs(path))
        return real(path);
    DIR* const directory = Fails("opendir") ? nullptr : real(path);
    if (directory)
        Remembered(dirfd(directory));
    return directory;
}

extern "C" int closedir(DIR* directory) {
    REAL(closedir);
    is_ours[dirfd(directory)] = false;
    return real(directory);
}
