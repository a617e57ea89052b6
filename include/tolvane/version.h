// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The version of the loaded library, which may be newer than the headers.

#include <tolvane/export.h>
#include <tolvane/versionnumber.h>

extern "C" {
/// Version of the loaded library as a number: major and minor, 1.0 for 1.0.0. Versions 1.1 and 1.10
/// have the same number; tolvane::Tolvane::version() distinguishes them.
extern TOLVANE_EXPORT const double TolvaneSdkVersionNumber;
/// Version of the loaded library in the format of `what`(1): a text that begins with `@(#)` and
/// ends with a newline.
extern TOLVANE_EXPORT const char TolvaneSdkVersionString[];
}
