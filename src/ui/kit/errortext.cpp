// SPDX-License-Identifier: MIT
#include "ui/kit/errortext.h"

#include "base/errors.h"
#include "platform/platform.h"

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

} // namespace

QString errorText(const Error &error)
{
    if (error.domain() != ErrorDomain::transport)
        return error.localizedDescription();
    return platform().bundle->string(QString::fromLatin1(translationKey(error.code())));
}

} // namespace tolvane
