// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/errortext.h"

#include <tolvane/loadingstate.h>

#include <QtCore/QString>

#include <array>

// What QML is told of a LoadingState.

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

/// Why it failed, in the customer's language; empty where it did not.
template <typename Value>
QString errorText(const LoadingState<Value> &state)
{
    const ErrorPtr error = state.failure();
    return error ? errorText(*error) : QString();
}

} // namespace tolvane
