// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/export.h>

extern "C" {
/// Version of the linked library as a number.
extern TOLVANE_EXPORT const double TolvaneSdkVersionNumber;
/// Version of the linked library in the form that `what`(1) finds in a binary.
extern TOLVANE_EXPORT const char TolvaneSdkVersionString[];
}
