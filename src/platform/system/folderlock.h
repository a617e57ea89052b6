// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>

#include <chrono>

namespace tolvane {

/// A lock on a folder between processes. The system releases it with the process that holds it,
/// however that ends, so nobody waits for a process that is gone.
class TOLVANE_AUTOTEST_EXPORT FolderLock
{
public:
    enum class Result {
        locked,
        /// Another process, or another object in this one, held the lock all the time.
        busy,
        /// The folder does not exist, or cannot be locked.
        failed,
    };

    explicit FolderLock(const QString &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    /// Blocks for at most `patience`.
    Result lock(std::chrono::milliseconds patience);

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
