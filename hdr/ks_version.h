// SPDX-License-Identifier: MIT
// The version of the imaging library whose headers these are.
#pragma once

// Versions with the same major number are compatible: a program that was linked against an older one runs
// with a newer one. The sizes of the classes and of the tables of modes are compiled into programs, so a new
// mode or a new member of a class needs a new major number.
#define KS_IMAGING_VERSION_MAJOR 1
// Grows with new functions and types.
#define KS_IMAGING_VERSION_MINOR 1
// Grows with corrections.
#define KS_IMAGING_VERSION_PATCH 0

// The version as one number that grows: 10203 for version 1.2.3.
#define KS_IMAGING_VERSION                                                                                   \
    (KS_IMAGING_VERSION_MAJOR * 10000 + KS_IMAGING_VERSION_MINOR * 100 + KS_IMAGING_VERSION_PATCH)
