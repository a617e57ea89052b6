// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/loadingstate.h>

#include <QtCore/QString>

#include <array>

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

} // namespace tolvane
