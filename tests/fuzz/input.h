// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdio>
#include <cstdlib>

namespace tolvane::fuzz {

/// Untrusted bytes, consumed from the front.
class Input
{
public:
    explicit Input(QByteArrayView bytes)
        : m_rest(bytes)
    {
    }

    bool isEmpty() const { return m_rest.isEmpty(); }

    /// The next byte; 0 after the end.
    unsigned char byte()
    {
        if (m_rest.isEmpty())
            return 0;
        const auto first = static_cast<unsigned char>(m_rest.front());
        m_rest = m_rest.sliced(1);
        return first;
    }

    /// The text before the next line end, which is consumed too.
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

/// Aborts the program when a property does not hold.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Violated: %s\n", what);
    std::abort();
}

} // namespace tolvane::fuzz
