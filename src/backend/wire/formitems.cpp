// SPDX-License-Identifier: MIT
#include "backend/wire/formitems.h"

#include "backend/wire/jsonwriter.h"

#include <QtCore/QLocale>

#include <cmath>

namespace tolvane {

QList<FormItem> formItems(const QString &name, bool value)
{
    return formItems(name, value ? 1 : 0);
}

QList<FormItem> formItems(const QString &name, int number)
{
    return {{name, QString::number(number)}};
}

QList<FormItem> formItems(const QString &name, float number)
{
    if (!std::isfinite(number))
        return {};
    // The shortest decimal of the 32-bit number, which as a double has more digits.
    QByteArray shortest;
    json::write(shortest, number);
    return {{name, QString::number(shortest.toDouble(), 'f', QLocale::FloatingPointShortest)}};
}

} // namespace tolvane
