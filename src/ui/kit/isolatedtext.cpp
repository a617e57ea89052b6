// SPDX-License-Identifier: MIT
#include "ui/kit/isolatedtext.h"

namespace tolvane {

QString isolatedText(const QString &name)
{
    constexpr qsizetype maximumSourceLength = 1000;
    QString text;
    for (const QChar c : withoutMarkStacks(name.left(maximumSourceLength)).simplified()) {
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

QString withoutMarkStacks(const QString &text)
{
    constexpr int maximumMarks = 6;
    QString result;
    result.reserve(text.size());
    int marks = 0;
    for (qsizetype at = 0; at < text.size();) {
        const bool isPair = at + 1 < text.size() && text.at(at).isHighSurrogate() &&
                            text.at(at + 1).isLowSurrogate();
        const char32_t c = isPair ? QChar::surrogateToUcs4(text.at(at), text.at(at + 1))
                                  : char32_t(text.at(at).unicode());
        // An invisible character between two marks does not end the stack.
        if (QChar::isMark(c))
            ++marks;
        else if (QChar::category(c) != QChar::Other_Format)
            marks = 0;
        if (marks <= maximumMarks)
            result += QStringView(text).sliced(at, isPair ? 2 : 1);
        at += isPair ? 2 : 1;
    }
    return result;
}

} // namespace tolvane
