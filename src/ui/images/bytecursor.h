// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

#include <algorithm>
#include <cstring>

namespace tolvane::images {

/// A position in bytes, which never passes the end. Does not copy the bytes.
class ByteCursor
{
public:
    explicit ByteCursor(const QByteArray &bytes)
        : m_bytes(bytes)
    {
    }

    qsizetype position() const { return m_position; }
    bool has(qsizetype count) const { return m_bytes.size() - m_position >= count; }
    uchar at(qsizetype offset) const { return uchar(m_bytes[m_position + offset]); }
    const char *data() const { return m_bytes.constData() + m_position; }
    void skip(qint64 count)
    {
        m_position += static_cast<qsizetype>(std::min<qint64>(count, m_bytes.size() - m_position));
    }
    /// Skips to the next byte with this value, or to the end.
    void skipTo(char value)
    {
        const void *found = std::memchr(data(), value, std::size_t(m_bytes.size() - m_position));
        m_position =
            found ? static_cast<const char *>(found) - m_bytes.constData() : m_bytes.size();
    }
    QByteArrayView since(qsizetype start) const
    {
        return QByteArrayView(m_bytes).sliced(start, m_position - start);
    }

private:
    const QByteArray &m_bytes;
    qsizetype m_position = 0;
};

} // namespace tolvane::images
