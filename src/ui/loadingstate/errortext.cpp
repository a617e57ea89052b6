// SPDX-License-Identifier: MIT
#include "ui/loadingstate/errortext.h"

#include "base/errors.h"
#include "platform/platform.h"

#include <QtCore/QStringView>

namespace tolvane {

namespace {

const char *translationKey(const Error &error)
{
    if (error.domain() != ErrorDomain::transport)
        return "error_response";
    switch (error.code()) {
    case UrlError::notConnectedToInternet:
    case UrlError::networkConnectionLost:
        return "error_offline";
    case UrlError::timedOut:
        return "error_timeout";
    default:
        return "error_unreachable";
    }
}

/// Whether a body is for developers: JSON, a page of HTML, a long text, or nothing at all.
bool isForDevelopers(QStringView body)
{
    constexpr qsizetype longestBody = 4096;
    const QStringView text = body.trimmed();
    return text.isEmpty() || text.size() > longestBody ||
           QStringView(u"<{[").contains(text.front());
}

/// The text in one paragraph.
QString paragraph(const QString &text)
{
    constexpr qsizetype longestParagraph = 200;
    const QString line = text.simplified();
    return line.size() <= longestParagraph ? line : line.first(longestParagraph - 1) + u'…';
}

} // namespace

QString errorText(const Error &error)
{
    const QString text = error.localizedDescription();
    // A backend may word its errors for people, behind the kind of the failure.
    const qsizetype colon = text.indexOf(u':');
    if (error.domain() == ErrorDomain::api && colon >= 0 &&
        !isForDevelopers(QStringView(text).sliced(colon + 1)))
        return paragraph(text);
    return platform().bundle->string(QString::fromLatin1(translationKey(error)));
}

} // namespace tolvane
