// SPDX-License-Identifier: MIT
#pragma once

#include "platform/async/eventloopthread.h"
#include "platform/async/shutdownhook.h"

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <chrono>
#include <mutex>
#include <optional>

namespace tolvane {

/// An INI file in the format of QSettings, shared with other processes. Unlike QSettings, it never
/// waits for the lock of a dead process, and replaces the file as a whole. Safe from any thread.
class SettingsFile
{
public:
    /// The instance of this process for a path, which is never destroyed.
    static SettingsFile &at(const QString &path);

    /// Invalid for a missing key. Blocks as setValue() does, if the file has changed.
    QVariant value(const QString &key);

    /// An invalid value removes the key. This process sees the new value immediately. The call
    /// blocks for some milliseconds on the main thread, and for two seconds at most on others. If
    /// another process holds the lock for longer, a thread of this object writes the value later. A
    /// value that cannot be written is kept until the process ends.
    void setValue(const QString &key, const QVariant &value);

    /// Sets a value if it still is `expected`: another process may have changed it. Returns the
    /// value after the call.
    QVariant exchange(const QString &key, const QVariant &expected, const QVariant &value);

private:
    /// Differs if the file has changed.
    struct Stamp
    {
        QDateTime time;
        qint64 size = -1;
        bool operator==(const Stamp &) const = default;
    };

    explicit SettingsFile(const QString &path);
    Stamp stamp() const;
    void read();
    QVariant currentValue(const QString &key) const;
    QVariant change(const QString &key, const std::optional<QVariant> &expected,
                    const QVariant &value);
    void writePending();
    void makeStampUnique(const QString &newPath) const;
    bool replaceWith(const QVariantMap &values) const;
    void writeLater();
    void writeNow(std::chrono::milliseconds timeout);

    const QString m_path;
    const QString m_folder;
    std::mutex m_mutex;
    /// The content of the file at m_stamp.
    QVariantMap m_values;
    Stamp m_stamp;
    /// Not in the file yet. Invalid values are removals.
    QVariantMap m_pending;
    bool m_isPosted = false;
    ShutdownHook m_shutdownHook;
    EventLoopThread m_thread{QStringLiteral("tolvane-settings")};
};

} // namespace tolvane
