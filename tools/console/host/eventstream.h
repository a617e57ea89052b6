// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <optional>

namespace tolvane::console {

/// Parses server-sent events incrementally; the input may be split at any byte.
class EventStream
{
public:
    /// In bytes. An event with more data than this is returned empty.
    static constexpr qsizetype maximumSize = 1 << 20;

    explicit EventStream(QByteArray lastId = {})
        : m_lastId(std::move(lastId))
        , m_nextId(m_lastId)
    {
    }

    /// Returns the data of each event that these bytes complete.
    QList<QByteArray> read(const QByteArray &bytes);
    /// A reconnecting client sends it as Last-Event-ID to miss no event. Empty without an event id.
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
