// SPDX-License-Identifier: MIT
#include "base/isodatetime.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTimeZone>

namespace tolvane {

QDateTime isoDateTime(const QString &text, IsoZone zone)
{
    static const QRegularExpression format(QRegularExpression::anchoredPattern(
        QStringLiteral("([0-9]{4}-[0-9]{2}-[0-9]{2})T([0-9]{2}:[0-9]{2}:[0-9]{2})"
                       "(?:(Z)|([+-])([01][0-9]|2[0-3])(:?)([0-5][0-9]))")));
    const auto match = format.match(text);
    const bool isBasic = match.capturedLength(3) + match.capturedLength(6) == 0;
    const QDate date = QDate::fromString(match.captured(1), Qt::ISODate);
    const QTime time = QTime::fromString(match.captured(2), QStringLiteral("HH:mm:ss"));
    if (!date.isValid() || !time.isValid() || (zone == IsoZone::BasicOffset && !isBasic))
        return {};
    const qint64 offset = match.captured(5).toInt() * 3600 + match.captured(7).toInt() * 60;
    const bool isAhead = match.captured(4) == QLatin1String("+");
    return QDateTime(date, time, QTimeZone::utc()).addSecs(isAhead ? -offset : offset);
}

} // namespace tolvane
