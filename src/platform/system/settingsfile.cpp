// SPDX-License-Identifier: MIT
#include "platform/system/settingsfile.h"

#include "base/mainthread.h"
#include "platform/system/folderlock.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

#include <filesystem>
#include <map>
#include <memory>

namespace tolvane {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds mainThreadTimeout = 20ms;
constexpr std::chrono::milliseconds threadTimeout = 1s;
constexpr std::chrono::milliseconds exitTimeout = 200ms;

/// How long a call may wait for other processes.
std::chrono::milliseconds lockTimeout()
{
    return isMainThread() ? mainThreadTimeout : threadTimeout;
}

constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

} // namespace

SettingsFile &SettingsFile::at(const QString &path)
{
    static auto *mutex = new std::mutex;
    static auto *files = new std::map<QString, std::unique_ptr<SettingsFile>>;
    const std::scoped_lock lock(*mutex);
    std::unique_ptr<SettingsFile> &file = (*files)[path];
    if (!file)
        file.reset(new SettingsFile(path));
    return *file;
}

SettingsFile::SettingsFile(const QString &path)
    : m_path(path)
    , m_folder(QFileInfo(path).path())
{
}

QVariant SettingsFile::value(const QString &key)
{
    if (const std::scoped_lock lock(m_mutex); m_pending.contains(key) || stamp() == m_stamp)
        return currentValue(key);
    FolderLock folderLock(m_folder);
    const bool isBusy = folderLock.lock(lockTimeout()) == FolderLock::Result::busy;
    const std::scoped_lock lock(m_mutex);
    // If another process is writing, the values from before are recent enough.
    if (!isBusy || m_stamp == Stamp())
        read();
    return currentValue(key);
}

void SettingsFile::setValue(const QString &key, const QVariant &value)
{
    change(key, std::nullopt, value);
}

QVariant SettingsFile::exchange(const QString &key, const QVariant &expected, const QVariant &value)
{
    return change(key, expected, value);
}

SettingsFile::Stamp SettingsFile::stamp() const
{
    const QFileInfo info(m_path);
    // Opening anything but a regular file may block for ever.
    return info.isFile() ? Stamp{info.lastModified(), info.size()} : Stamp{};
}

/// Needs the folder's lock: if the file is replaced meanwhile, QSettings may take the old content
/// for that of the new file, and keep it.
void SettingsFile::read()
{
    const Stamp now = stamp();
    if (now == m_stamp)
        return;
    m_values.clear();
    m_stamp = now;
    if (now == Stamp())
        return;
    QSettings settings(m_path, QSettings::IniFormat);
    settings.setFallbacksEnabled(false);
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys)
        m_values.insert(key, settings.value(key));
}

QVariant SettingsFile::currentValue(const QString &key) const
{
    const auto pending = m_pending.constFind(key);
    return pending != m_pending.cend() ? *pending : m_values.value(key);
}

QVariant SettingsFile::change(const QString &key, const std::optional<QVariant> &expected,
                              const QVariant &newValue)
{
    // Every response of the backend contains the customer id, which rarely changes.
    if (value(key) == newValue)
        return newValue;
    QDir().mkpath(m_folder);
    FolderLock folderLock(m_folder);
    // Waits without m_mutex, so that readers such as the main thread do not wait, too.
    const bool isBusy = folderLock.lock(lockTimeout()) == FolderLock::Result::busy;
    const std::scoped_lock lock(m_mutex);
    if (!isBusy)
        read();
    if (const QVariant current = currentValue(key); expected && current != *expected)
        return current;
    m_pending.insert(key, newValue);
    if (isBusy)
        writeLater();
    else
        writePending();
    return newValue;
}

/// Needs the folder's lock. Values that cannot be written stay pending.
void SettingsFile::writePending()
{
    read();
    QVariantMap values = m_values;
    for (auto pending = m_pending.cbegin(); pending != m_pending.cend(); ++pending) {
        if (pending->isValid())
            values.insert(pending.key(), *pending);
        else
            values.remove(pending.key());
    }
    if (!replaceWith(values))
        return;
    m_values = values;
    m_stamp = stamp();
    m_pending.clear();
}

/// Two files of the same size and millisecond would look unchanged to other processes.
void SettingsFile::makeStampUnique(const QString &newPath) const
{
    QFile file(newPath);
    const QDateTime time = QFileInfo(newPath).lastModified();
    const QDateTime earliest = QFileInfo(m_path).lastModified().addMSecs(1);
    if (time < earliest && file.open(QIODevice::ReadWrite))
        file.setFileTime(earliest, QFile::FileModificationTime);
}

bool SettingsFile::replaceWith(const QVariantMap &values) const
{
    if (QFileInfo(m_path).isDir())
        return false;
    const QString path = m_path + QStringLiteral(".new");
    // A process may have been killed in the middle.
    QFile::remove(path);
    QFile::remove(path + QStringLiteral(".lock"));
    if (QFile file(path); !file.open(QIODevice::ReadWrite | QIODevice::NewOnly, ownerOnly))
        return false;
    QSettings settings(path, QSettings::IniFormat);
    settings.setFallbacksEnabled(false);
    settings.clear();
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        settings.setValue(value.key(), *value);
    settings.sync();
    makeStampUnique(path);
    std::error_code error;
    if (settings.status() == QSettings::NoError)
        std::filesystem::rename(QFileInfo(path).filesystemFilePath(),
                                QFileInfo(m_path).filesystemFilePath(), error);
    return settings.status() == QSettings::NoError && !error;
}

void SettingsFile::writeLater()
{
    if (std::exchange(m_isPosted, true))
        return;
    // The thread may stop before it gets the lock.
    m_shutdownHook = onShutdown([this] { writeNow(exitTimeout); });
    m_thread.post([this] { writeNow(threadTimeout); });
}

void SettingsFile::writeNow(std::chrono::milliseconds timeout)
{
    FolderLock folderLock(m_folder);
    const bool isBusy = folderLock.lock(timeout) == FolderLock::Result::busy;
    const std::scoped_lock lock(m_mutex);
    m_isPosted = false;
    if (isBusy)
        writeLater();
    else if (!m_pending.isEmpty())
        writePending();
}

} // namespace tolvane
