// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdio>
#include <cstdlib>

/// Fuzz targets: code that reads untrusted bytes, with the properties that must hold for any bytes.
namespace tolvane::fuzz {

/// Untrusted bytes, consumed from the front.
class Input
{
public:
    explicit Input(QByteArrayView bytes)
        : m_rest(bytes)
    {
    }

    /// The next byte; 0 after the end.
    unsigned char byte()
    {
        const auto first = static_cast<unsigned char>(m_rest.isEmpty() ? 0 : m_rest.front());
        m_rest = m_rest.sliced(m_rest.isEmpty() ? 0 : 1);
        return first;
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

void responses(Input input);
void markdown(Input input);
void pictures(Input input);

} // namespace tolvane::fuzz
