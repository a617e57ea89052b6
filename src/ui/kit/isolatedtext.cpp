// SPDX-License-Identifier: MIT
#include "ui/kit/isolatedtext.h"

namespace tolvane {

QString isolatedText(const QString &name)
{
    QString text;
    for (const QChar c : name.simplified()) {
        const bool isBidiControl = (c >= QChar(0x202a) && c <= QChar(0x202e)) ||
                                   (c >= QChar(0x2066) && c <= QChar(0x2069));
        if (!isBidiControl)
            text += c;
    }
    constexpr qsizetype maximumLength = 100;
    return text.isEmpty()
               ? text
               : QChar(0x2068) + text.first(qMin(text.size(), maximumLength)) + QChar(0x2069);
}

} // namespace tolvane
