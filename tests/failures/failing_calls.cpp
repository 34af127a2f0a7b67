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
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool is_ours[1024];  // by descriptor
DIR* directories[8];
thread_local bool is_short;

bool IsOurs(const char* path) {
    return std::strstr(path, "Nymbrel_settings") || std::strstr(path, "Catalogs");
}
bool IsOurs(int descriptor) {
    return descriptor >= 0 && descriptor < 1024 && is_ours[descriptor];
}
DIR** Place(DIR* directory) {
    for (DIR*& place : directories)
        if (place == directory)
            return &place;
    return nullptr;
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
    is_short = false;
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
DIR* Remembered(DIR* directory) {
    if (DIR** place = directory ? Place(nullptr) : nullptr)
        *place = directory;
    return directory;
}

template <class Function> Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define REAL(call) static auto* const real = Real(&call, #call)
// A call that concerns its first argument.
#define FAILING(Result, call, failed, parameters, arguments, first)                                          \
    extern "C" Result call parameters {                                                                      \
        REAL(call);                                                                                          \
        return IsOurs(first) && Fails(#call) ? failed : real arguments;                                      \
    }

FAILING(int, fstat, -1, (int file, struct stat* about), (file, about), file)
FAILING(int, stat, -1, (const char* path, struct stat* about), (path, about), path)
FAILING(int, lstat, -1, (const char* path, struct stat* about), (path, about), path)
FAILING(int, mkdir, -1, (const char* path, mode_t mode), (path, mode), path)
FAILING(int, symlink, -1, (const char* target, const char* path), (target, path), path)
FAILING(int, remove, -1, (const char* path), (path), path)
FAILING(ssize_t, readlink, -1, (const char* path, char* to, size_t most), (path, to, most), path)
FAILING(int, fallocate, -1, (int file, int mode, off_t at, off_t length), (file, mode, at, length), file)
FAILING(int, ftruncate, -1, (int file, off_t length), (file, length), file)

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

extern "C" ssize_t read(int file, void* to, size_t most) {
    REAL(read);
    if (!IsOurs(file))
        return real(file, to, most);
    return Fails("read") ? -1 : real(file, to, is_short && most > 1 ? most / 2 : most);
}

extern "C" ssize_t write(int file, const void* from, size_t most) {
    REAL(write);
    if (!IsOurs(file))
        return real(file, from, most);
    return Fails("write") ? -1 : real(file, from, is_short && most > 1 ? most / 2 : most);
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
    return Fails("opendir") ? nullptr : Remembered(real(path));
}

extern "C" dirent* readdir(DIR* directory) {
    REAL(readdir);
    return Place(directory) && Fails("readdir") ? nullptr : real(directory);
}

extern "C" int closedir(DIR* directory) {
    REAL(closedir);
    if (DIR** place = Place(directory))
        *place = nullptr;
    return real(directory);
}

extern "C" int eventfd(unsigned count, int flags) {
    static auto* const real = reinterpret_cast<int (*)(unsigned, int)>(dlsym(RTLD_NEXT, "eventfd"));
    return Fails("eventfd") ? -1 : real(count, flags);
}

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* how, void* (*start)(void*),
                              void* with) {
    REAL(pthread_create);
    return Fails("pthread_create") ? errno : real(thread, how, start, with);
}
