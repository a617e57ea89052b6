// SPDX-License-Identifier: MIT
#include "testing/backendprogram.h"

#include <QtCore/QUrl>

namespace tolvane::test {

namespace {

QStringList argumentsFor(const QString &folder, const QString &replyDelay)
{
    const QString database =
        folder.isEmpty() ? QStringLiteral(":memory:") : folder + QStringLiteral("/backend.sqlite");
    return {QStringLiteral("--port"),        QStringLiteral("0"), QStringLiteral("--db"), database,
            QStringLiteral("--reply-delay"), replyDelay};
}

} // namespace

// The first line of the output ends with the URL.
BackendProgram::BackendProgram(const QString &folder, const QString &replyDelay,
                               const QStringList &moreArguments)
    : m_process(QStringLiteral(TOLVANE_BACKEND), argumentsFor(folder, replyDelay) + moreArguments)
    , m_url(QString::fromUtf8(m_process.readLine()).section(QLatin1Char(' '), -1))
{
}

quint16 BackendProgram::port() const
{
    return static_cast<quint16>(QUrl(m_url).port());
}

} // namespace tolvane::test
