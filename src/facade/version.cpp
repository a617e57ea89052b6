// SPDX-License-Identifier: MIT
#include <tolvane/version.h>

const double TolvaneSdkVersionNumber = 1.0;
const char TolvaneSdkVersionString[] = "@(#)PROGRAM:TolvaneSdk  PROJECT:Tolvane-1\n";
