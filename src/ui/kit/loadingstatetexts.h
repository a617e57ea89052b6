// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/errortext.h"

#include <tolvane/loadingstate.h>

#include <QtCore/QString>

#include <array>

// LoadingState, as strings for QML.

namespace tolvane {

/// "idle", "loading", "loadingWithPreview", "loaded", "empty" or "error"
template <typename Value>
QString caseName(const LoadingState<Value> &state)
{
    // Indexed by LoadingState's Case.
    constexpr std::array names = {
        "loadingWithPreview", "loaded", "error", "idle", "loading", "empty"};
    return QString::fromLatin1(names.at(static_cast<std::size_t>(state.current())));
}

/// The reason for the failure, in the customer's language; empty without a failure.
template <typename Value>
QString errorText(const LoadingState<Value> &state)
{
    const ErrorPtr error = state.failure();
    return error ? errorText(*error) : QString();
}

} // namespace tolvane
