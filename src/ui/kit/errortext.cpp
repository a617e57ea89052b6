// SPDX-License-Identifier: MIT
#include "ui/kit/errortext.h"

#include "base/errors.h"
#include "platform/platform.h"

#include <algorithm>

namespace tolvane {

namespace {

const char *translationKey(int code)
{
    switch (code) {
    case UrlError::notConnectedToInternet:
    case UrlError::networkConnectionLost:
        return "error_offline";
    case UrlError::timedOut:
        return "error_timeout";
    default:
        return "error_unreachable";
    }
}

/// The text of an error for people: one paragraph of plain text. If the text quotes a page of HTML
/// or a long body, which are for developers, only the kind of the failure in front of it remains.
QString paragraph(const QString &text)
{
    constexpr qsizetype longestBody = 4096;
    constexpr qsizetype longestParagraph = 200;
    const qsizetype colon = text.indexOf(QLatin1String(": "));
    const bool isMarkup = text.mid(colon + 2, longestBody).trimmed().startsWith(u'<');
    if (colon >= 0 && (isMarkup || text.size() > longestBody))
        return text.first(colon);
    const QString line = text.first(std::min(text.size(), longestBody)).simplified();
    return line.size() <= longestParagraph ? line : line.first(longestParagraph - 1) + u'…';
}

} // namespace

QString errorText(const Error &error)
{
    if (error.domain() != ErrorDomain::transport)
        return paragraph(error.localizedDescription());
    return platform().bundle->string(QString::fromLatin1(translationKey(error.code())));
}

} // namespace tolvane
