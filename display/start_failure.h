// SPDX-License-Identifier: MIT
// Why Qt cannot start, in one sentence.
#pragma once

// Throws std::bad_alloc or std::system_error unless there is the memory and are the descriptors that a start
// takes: Qt, fontconfig and the graphics libraries crash without.
void RequireRoomToStart();

// Where Qt would abort the process, one sentence on standard error says why and the process ends with status
// 1. While one lives, which is meant for Qt's start, the sentence tells Qt's first warning; without a failure
// the warnings are written at the end.
class StartFailure {
public:
    StartFailure();
    ~StartFailure();
    StartFailure(const StartFailure&) = delete;
    StartFailure& operator=(const StartFailure&) = delete;
};
