// SPDX-License-Identifier: MIT
#include "ui/markdown/links.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUrl>
#include <QtCore/QUrlQuery>

#include <algorithm>

namespace tolvane::markdown {

namespace {

/// A mail program could attach a file from the customer's device.
QUrl withoutAttachments(QUrl url)
{
    QUrlQuery query(url);
    for (const auto &[name, value] : query.queryItems()) {
        if (name.startsWith(u"attach", Qt::CaseInsensitive))
            query.removeAllQueryItems(name);
    }
    url.setQuery(query.isEmpty() ? QString() : query.query(QUrl::FullyEncoded));
    return url;
}

/// Removes direction marks and other invisible characters, which would defeat the comparison of
/// addresses.
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

QString allowedLink(const QString &address)
{
    const QUrl url(address, QUrl::StrictMode);
    const QString scheme = url.scheme();
    const bool isWeb = scheme == QLatin1String("https") || scheme == QLatin1String("http");
    const bool isMail = scheme == QLatin1String("mailto");
    if (!url.isValid() || !((isWeb && !url.host().isEmpty()) || (isMail && !url.path().isEmpty())))
        return {};
    return QString::fromLatin1((isMail ? withoutAttachments(url) : url).toEncoded());
}

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
