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

/// An INI file in the format of QSettings, shared with other processes. Unlike QSettings it never
/// waits for a process that is gone, and replaces the file as a whole. Safe from any thread.
class SettingsFile
{
public:
    /// The instance of this process for a path, which is never destroyed.
    static SettingsFile &at(const QString &path);

    /// Invalid for a missing key. Blocks as setValue() does, if the file has changed.
    QVariant value(const QString &key);

    /// An invalid value removes the key. Blocks for some milliseconds at most: while another
    /// process holds the lock, the write goes on on a thread, and what cannot be written is kept
    /// until the process ends. Readers of this process see it at once.
    void setValue(const QString &key, const QVariant &value);

    /// Sets a value unless another process has changed it. Returns the value that counts.
    QVariant exchange(const QString &key, const QVariant &expected, const QVariant &value);

private:
    /// Tells whether the file has changed.
    struct Stamp
    {
        QDateTime time;
        qint64 size = -1;
        bool operator==(const Stamp &) const = default;
    };

    explicit SettingsFile(const QString &path);
    Stamp stamp() const;
    void read();
    QVariant known(const QString &key) const;
    QVariant change(const QString &key, const std::optional<QVariant> &expected,
                    const QVariant &value);
    void writePending();
    void settleStamp(const QString &newPath) const;
    bool replaceWith(const QVariantMap &values) const;
    void writeLater();
    void writeNow(std::chrono::milliseconds patience);

    const QString m_path;
    const QString m_folder;
    std::mutex m_mutex;
    /// What the file contained at m_stamp.
    QVariantMap m_values;
    Stamp m_stamp;
    /// Not in the file yet. Invalid values are removals.
    QVariantMap m_pending;
    bool m_isPosted = false;
    ShutdownHook m_shutdownHook;
    EventLoopThread m_thread{QStringLiteral("tolvane-settings")};
};

} // namespace tolvane
