// SPDX-License-Identifier: MIT
#include "display/start_failure.h"

#include <QStringList>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>
#include <sys/eventfd.h>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

std::mutex mutex;  // guards what follows
bool is_starting = false;
QString first_warning;
QStringList kept;

void Write(const QString& line) {
    std::fprintf(stderr, "%s\n", qPrintable(line));
}

void Handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const std::lock_guard guard(mutex);
    if (type == QtFatalMsg) {
        const QString reason = first_warning.isEmpty() ? message.section(u'\n', 0, 0) : first_warning;
        Write(QStringLiteral("NymbrelConfig cannot use the display: ") + reason.trimmed());
        std::_Exit(EXIT_FAILURE);
    }
    const QString line = qFormatLogMessage(type, context, message);
    if (!is_starting)
        return Write(line);
    kept += line;
    if (first_warning.isEmpty())
        first_warning = message;
}

constexpr std::size_t kRoom = 224 << 20;  // mostly the stacks of threads, of which little is used
constexpr int kDescriptors = 24;

}  // namespace

void RequireRoomToStart() {
    void* room =
        mmap(nullptr, kRoom, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (room == MAP_FAILED)
        throw std::bad_alloc();
    munmap(room, kRoom);

    int opened[kDescriptors];
    int count = 0;
    while (count < kDescriptors && (opened[count] = eventfd(0, EFD_CLOEXEC)) >= 0)
        ++count;
    const int error = errno;
    for (int i = 0; i < count; ++i)
        close(opened[i]);
    if (count < kDescriptors)
        throw std::system_error(error, std::generic_category(), "eventfd");
}

StartFailure::StartFailure() {
    qInstallMessageHandler(Handle);
    const std::lock_guard guard(mutex);
    is_starting = true;
}

StartFailure::~StartFailure() {
    const std::lock_guard guard(mutex);
    is_starting = false;
    first_warning.clear();
    for (const QString& line : std::exchange(kept, {}))
        Write(line);
}
