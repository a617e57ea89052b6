// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>

#include <chrono>

namespace tolvane {

/// A lock on a folder between processes. The system releases it when the holding process ends, in
/// whatever way, so no process waits for a dead one.
class TOLVANE_AUTOTEST_EXPORT FolderLock
{
public:
    enum class Result {
        locked,
        /// Another process, or another FolderLock in this one, held the lock until the time-out.
        busy,
        /// The folder does not exist, or cannot be locked.
        failed,
    };

    explicit FolderLock(const QString &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    /// Blocks for at most `timeout`.
    Result lock(std::chrono::milliseconds timeout);

private:
    Result tryLock();

    const QString m_folder;
#ifdef Q_OS_WIN
    void *m_handle = nullptr;
#else
    int m_descriptor = -1;
#endif
};

} // namespace tolvane
