// SPDX-License-Identifier: MIT
#include "io/output.h"

#include <QtCore/QJsonDocument>

#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <unistd.h>

namespace tolvane::console {

void writeOut(const QByteArray &bytes)
{
    static auto *mutex = new std::mutex;
    const std::scoped_lock lock(*mutex);
    for (qsizetype written = 0; written < bytes.size();) {
        const auto size = static_cast<std::size_t>(bytes.size() - written);
        const ssize_t result = ::write(STDOUT_FILENO, bytes.constData() + written, size);
        if (result < 0 && errno != EINTR)
            std::_Exit(EXIT_SUCCESS); // The reader has closed its end.
        written += std::max<ssize_t>(result, 0);
    }
}

void writeLine(const QJsonObject &object)
{
    writeOut(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace tolvane::console
