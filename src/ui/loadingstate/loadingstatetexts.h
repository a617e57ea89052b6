// SPDX-License-Identifier: MIT
#pragma once

#include "ui/loadingstate/errortext.h"

#include <tolvane/loadingstate.h>

#include <QtCore/QString>

namespace tolvane {

/// The reason for the failure, in the customer's language; empty without a failure.
template <typename Value>
QString errorText(const LoadingState<Value> &state)
{
    const ErrorPtr error = state.failure();
    return error ? errorText(*error) : QString();
}

} // namespace tolvane
