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

constexpr std::chrono::milliseconds patienceOfMainThread = 20ms;
constexpr std::chrono::milliseconds patienceOfThreads = 1s;
constexpr std::chrono::milliseconds patienceAtExit = 200ms;

/// How long a call may wait for other processes.
std::chrono::milliseconds patience()
{
    return isMainThread() ? patienceOfMainThread : patienceOfThreads;
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
        return known(key);
    FolderLock others(m_folder);
    const bool isBusy = others.lock(patience()) == FolderLock::Result::busy;
    const std::scoped_lock lock(m_mutex);
    // What was read before is a moment old only.
    if (!isBusy || m_stamp == Stamp())
        read();
    return known(key);
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

QVariant SettingsFile::known(const QString &key) const
{
    const auto pending = m_pending.constFind(key);
    return pending != m_pending.cend() ? *pending : m_values.value(key);
}

QVariant SettingsFile::change(const QString &key, const std::optional<QVariant> &expected,
                              const QVariant &newValue)
{
    // Every answer of the backend contains the customer id, which rarely changes.
    if (value(key) == newValue)
        return newValue;
    QDir().mkpath(m_folder);
    FolderLock others(m_folder);
    // Readers, such as the main thread, must not wait meanwhile.
    const bool isBusy = others.lock(patience()) == FolderLock::Result::busy;
    const std::scoped_lock lock(m_mutex);
    if (!isBusy)
        read();
    if (const QVariant now = known(key); expected && now != *expected)
        return now;
    m_pending.insert(key, newValue);
    if (isBusy)
        writeLater();
    else
        writePending();
    return newValue;
}

/// Needs the folder's lock. What cannot be written stays pending.
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
void SettingsFile::settleStamp(const QString &newPath) const
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
    settleStamp(path);
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
    m_shutdownHook = onShutdown([this] { writeNow(patienceAtExit); });
    m_thread.post([this] { writeNow(patienceOfThreads); });
}

void SettingsFile::writeNow(std::chrono::milliseconds patience)
{
    FolderLock others(m_folder);
    const bool isBusy = others.lock(patience) == FolderLock::Result::busy;
    const std::scoped_lock lock(m_mutex);
    m_isPosted = false;
    if (isBusy)
        writeLater();
    else if (!m_pending.isEmpty())
        writePending();
}

} // namespace tolvane
