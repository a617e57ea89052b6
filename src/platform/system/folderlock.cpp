// SPDX-License-Identifier: MIT
#include "platform/system/folderlock.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QThread>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace tolvane {

FolderLock::FolderLock(const QString &folder)
    : m_folder(folder)
{
}

FolderLock::Result FolderLock::lock(std::chrono::milliseconds timeout)
{
    const QDeadlineTimer deadline(timeout);
    for (;;) {
        const Result result = tryLock();
        if (result != Result::busy || deadline.hasExpired())
            return result;
        QThread::msleep(1);
    }
}

#ifdef Q_OS_WIN

// Windows cannot lock a folder. The lock is a file in it that is opened without sharing, and that
// Windows deletes when its handle closes.

FolderLock::~FolderLock()
{
    if (m_handle)
        CloseHandle(m_handle);
}

FolderLock::Result FolderLock::tryLock()
{
    const QString file = QDir::toNativeSeparators(m_folder + QStringLiteral("/.lock"));
    const HANDLE handle =
        CreateFileW(reinterpret_cast<const wchar_t *>(file.utf16()), GENERIC_WRITE, 0, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION ? Result::busy : Result::failed;
    m_handle = handle;
    return Result::locked;
}

#else

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

FolderLock::Result FolderLock::tryLock()
{
    if (m_descriptor < 0)
        m_descriptor =
            ::open(QFile::encodeName(m_folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_descriptor < 0)
        return Result::failed;
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0)
        return Result::locked;
    return errno == EWOULDBLOCK || errno == EINTR ? Result::busy : Result::failed;
}

#endif

} // namespace tolvane
