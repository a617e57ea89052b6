// SPDX-License-Identifier: MIT
#include "ui/markdown/linktext.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUrl>

#include <algorithm>

namespace tolvane::markdown {

namespace {

/// Direction marks and other invisible characters could hide an address from its comparison.
QString visibleText(const QString &text)
{
    QString visible = text;
    visible.removeIf([](QChar c) {
        return c.category() == QChar::Other_Format || c.category() == QChar::Other_Control;
    });
    return visible.simplified().toLower();
}

/// The host of an address in a text, with or without a scheme; empty without one.
QString hostIn(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("(?:^|://)(?:[^/\\s@]*@)?([\\p{L}\\p{N}-]+(?:\\.[\\p{L}\\p{N}-]+)*"
                       "\\.\\p{L}[\\p{L}\\p{N}-]+)(?::\\d+)?(?:[/?#]\\S*)?(?:\\s|$)"));
    const auto match = form.match(text);
    const bool isWhole = match.capturedLength() == text.size() || text.contains(u"://");
    return isWhole ? QString::fromLatin1(QUrl::toAce(match.captured(1))) : QString();
}

QString withoutWww(const QString &host)
{
    return host.startsWith(u"www.") ? host.sliced(4) : host;
}

} // namespace

QString linkAddition(const QString &text, const QString &address)
{
    const QString visible = visibleText(text);
    if (visible.isEmpty())
        return address;
    const QUrl url(address);
    const QString shown = withoutWww(hostIn(visible));
    const QString real = url.host().isEmpty() ? url.path().section(u'@', -1) : url.host();
    const QString host = withoutWww(QString::fromLatin1(QUrl::toAce(real)));
    if (shown.isEmpty() || host == shown || host.endsWith(u'.' + shown))
        return {};
    return QStringLiteral(" (%1)").arg(real);
}

} // namespace tolvane::markdown
