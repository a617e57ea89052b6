// SPDX-License-Identifier: MIT
#include "base/isodatetime.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTimeZone>

namespace tolvane {

QDateTime isoDateTime(const QString &text, IsoZone zone)
{
    static const QRegularExpression format(QRegularExpression::anchoredPattern(
        QStringLiteral("([0-9]{4})-([0-9]{2})-([0-9]{2})T([0-9]{2}):([0-9]{2}):([0-9]{2})"
                       "(?:Z|([+-])([01][0-9]|2[0-3])(:?)([0-5][0-9]))")));
    const auto match = format.match(text);
    const auto number = [&match](int group) { return match.capturedView(group).toInt(); };
    const bool isBasic = match.capturedLength(7) > 0 && match.capturedLength(9) == 0;
    // Not with fromString(), which takes as long as everything else.
    const QDate date(number(1), number(2), number(3));
    const QTime time(number(4), number(5), number(6));
    if (!date.isValid() || !time.isValid() || (zone == IsoZone::BasicOffset && !isBasic))
        return {};
    const qint64 offset = number(8) * 3600 + number(10) * 60;
    const bool isAhead = match.capturedView(7) == u"+";
    return QDateTime(date, time, QTimeZone::utc()).addSecs(isAhead ? -offset : offset);
}

} // namespace tolvane
