// SPDX-License-Identifier: MIT
#include "host/eventstream.h"

#include <utility>

namespace tolvane::console {

QList<QByteArray> EventStream::read(const QByteArray &bytes)
{
    QList<QByteArray> events;
    for (const char byte : bytes) {
        const bool wasAfterReturn = std::exchange(m_isAfterReturn, byte == '\r');
        if (byte == '\r' || (byte == '\n' && !wasAfterReturn))
            endLine(events);
        else if (byte != '\n' && m_line.size() < maximumSize)
            m_line += byte;
        else
            m_isTooLong |= byte != '\n';
    }
    return events;
}

void EventStream::endLine(QList<QByteArray> &events)
{
    QByteArray line = std::exchange(m_line, {});
    if (std::exchange(m_isFirstLine, false) && line.startsWith("\xEF\xBB\xBF"))
        line.remove(0, 3);
    if (line.isEmpty())
        return endEvent(events);
    // A field without a colon has an empty value; a line that starts with a colon is a comment.
    const qsizetype colon = line.indexOf(':');
    const QByteArray name = colon < 0 ? line : line.left(colon);
    QByteArray value = line.mid(name.size() + 1);
    if (value.startsWith(' '))
        value.remove(0, 1);
    if (name == "data")
        addData(value);
    else if (name == "id" && !value.contains('\0'))
        m_nextId = value;
}

void EventStream::endEvent(QList<QByteArray> &events)
{
    m_lastId = m_nextId;
    if (m_data)
        events += m_isTooLong ? QByteArray() : *m_data;
    m_data.reset();
    m_isTooLong = false;
}

void EventStream::addData(const QByteArray &value)
{
    const bool isFirst = !m_data;
    if (isFirst)
        m_data.emplace();
    m_isTooLong |= m_data->size() + value.size() >= maximumSize;
    if (!m_isTooLong)
        *m_data += isFirst ? value : '\n' + value;
}

} // namespace tolvane::console
