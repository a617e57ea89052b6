// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdio>
#include <cstdlib>

namespace tolvane::fuzz {

/// Bytes that somebody else has thought of, taken off from the front.
class Input
{
public:
    explicit Input(QByteArrayView bytes)
        : m_rest(bytes)
    {
    }

    bool isEmpty() const { return m_rest.isEmpty(); }

    /// 0 behind the end.
    unsigned char byte()
    {
        if (m_rest.isEmpty())
            return 0;
        const auto first = static_cast<unsigned char>(m_rest.front());
        m_rest = m_rest.sliced(1);
        return first;
    }

    /// What stands before the next line end, which goes with it.
    QByteArray line()
    {
        const qsizetype end = m_rest.indexOf('\n');
        const QByteArray line = (end < 0 ? m_rest : m_rest.first(end)).toByteArray();
        m_rest = end < 0 ? QByteArrayView() : m_rest.sliced(end + 1);
        return line;
    }

    QByteArray rest() const { return m_rest.toByteArray(); }

private:
    QByteArrayView m_rest;
};

/// Ends the program where what must hold does not.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

} // namespace tolvane::fuzz
