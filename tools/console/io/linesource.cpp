// SPDX-License-Identifier: MIT
#include "io/linesource.h"

#include <array>
#include <cerrno>
#include <unistd.h>

namespace tolvane::console {

LineSource::LineSource()
    : m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &LineSource::read);
}

void LineSource::read()
{
    std::array<char, 65536> chunk{};
    const ssize_t size = ::read(STDIN_FILENO, chunk.data(), chunk.size());
    if (size < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (size <= 0) {
        m_notifier.setEnabled(false);
        if (!m_buffer.isEmpty()) // The last line may lack its newline.
            Q_EMIT line(std::exchange(m_buffer, {}));
        Q_EMIT ended();
        return;
    }
    m_buffer.append(chunk.data(), size);
    for (;;) {
        // The first m_scanned bytes hold no newline: a long line is scanned only once.
        const qsizetype end = m_buffer.indexOf('\n', m_scanned);
        m_scanned = end < 0 ? m_buffer.size() : 0;
        if (end < 0)
            return;
        const QByteArray complete = m_buffer.left(end);
        m_buffer.remove(0, end + 1);
        Q_EMIT line(complete);
    }
}

} // namespace tolvane::console
