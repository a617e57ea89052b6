// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

namespace tolvane::console {

/// Emits the lines of standard input as they arrive.
class LineSource final : public QObject
{
    Q_OBJECT

public:
    LineSource();

Q_SIGNALS:
    void line(const QByteArray &line);
    void ended();

private:
    void read();

    QSocketNotifier m_notifier;
    QByteArray m_buffer;
    qsizetype m_scanned = 0;
};

} // namespace tolvane::console
