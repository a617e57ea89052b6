// SPDX-License-Identifier: MIT
#include "ui/markdown/emoji.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>

namespace tolvane {

const QString &emojiFamily()
{
    static const QString family = [] {
        if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
            return QString();
        for (const char *name : {"Apple Color Emoji", "Segoe UI Emoji", "Noto Color Emoji"}) {
            if (QFontDatabase::hasFamily(QLatin1String(name)))
                return QString::fromLatin1(name);
        }
        return QString();
    }();
    return family;
}

QString withEmojiFont(const QString &html, const QString &family)
{
    if (family.isEmpty())
        return html;
    // An emoji is a character that is one by default, or one with a variation selector. A skin tone
    // or tags of a region may follow, and joiners connect several to a sequence. Flags are pairs,
    // and keycaps are digits with a mark.
    static const QRegularExpression emoji(QStringLiteral(
        R"((?(DEFINE)(?<one>(?:)"
        R"([\x{231a}\x{231b}\x{23e9}-\x{23ec}\x{23f0}\x{23f3}\x{25fd}\x{25fe}\x{2614}\x{2615})"
        R"(\x{2648}-\x{2653}\x{267f}\x{2693}\x{26a1}\x{26aa}\x{26ab}\x{26bd}\x{26be}\x{26c4})"
        R"(\x{26c5}\x{26ce}\x{26d4}\x{26ea}\x{26f2}\x{26f3}\x{26f5}\x{26fa}\x{26fd}\x{2705})"
        R"(\x{270a}\x{270b}\x{2728}\x{274c}\x{274e}\x{2753}-\x{2755}\x{2757}\x{2795}-\x{2797})"
        R"(\x{27b0}\x{27bf}\x{2b1b}\x{2b1c}\x{2b50}\x{2b55}\x{1f004}\x{1f0cf}\x{1f18e})"
        R"(\x{1f191}-\x{1f19a}\x{1f201}\x{1f21a}\x{1f22f}\x{1f232}-\x{1f23a}\x{1f250}\x{1f251})"
        R"(\x{1f300}-\x{1f64f}\x{1f680}-\x{1f6ff}\x{1f7e0}-\x{1f7f0}\x{1f90c}-\x{1f9ff})"
        R"(\x{1fa70}-\x{1faff}](?!\x{fe0e})\x{fe0f}?+)"
        R"(|[\x{a9}\x{ae}\x{203c}-\x{3299}\x{1f170}-\x{1f251}]\x{fe0f})"
        R"()[\x{1f3fb}-\x{1f3ff}]?+[\x{e0020}-\x{e007f}]*+)))"
        R"(((?:[\x{1f1e6}-\x{1f1ff}]{2}|[0-9#*]\x{20e3}|(?&one)(?:\x{200d}(?:(?&one)|[\x{2640}\x{2642}\x{2764}]))*+)++))"));
    QString result = html;
    // With the selector, Qt would draw the digit and the key apart.
    result.replace(QStringLiteral("\ufe0f\u20e3"), QStringLiteral("\u20e3"));
    return result.replace(
        emoji, QStringLiteral("<span style=\"font-family:'%1'\">\\2</span>").arg(family));
}

} // namespace tolvane
