// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <optional>

namespace tolvane::console {

/// Reads server-sent events from a stream that comes in pieces, wherever it is cut.
class EventStream
{
public:
    /// An event that has more data than this comes without any.
    static constexpr qsizetype longest = 1 << 20;

    explicit EventStream(QByteArray lastId = {})
        : m_lastId(std::move(lastId))
        , m_nextId(m_lastId)
    {
    }

    /// The data of the events that the bytes complete.
    QList<QByteArray> read(const QByteArray &bytes);
    /// What a client that comes back names, so that it misses nothing; empty when there is none.
    const QByteArray &lastId() const { return m_lastId; }

private:
    void endLine(QList<QByteArray> &events);
    void endEvent(QList<QByteArray> &events);
    void addData(const QByteArray &value);

    QByteArray m_lastId;
    QByteArray m_nextId;
    QByteArray m_line;
    std::optional<QByteArray> m_data;
    bool m_isFirstLine = true;
    bool m_isAfterReturn = false;
    bool m_isTooLong = false;
};

} // namespace tolvane::console
