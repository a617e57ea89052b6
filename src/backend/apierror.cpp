// SPDX-License-Identifier: MIT
#include "backend/apierror.h"

#include <QtCore/QStringDecoder>

namespace tolvane {

namespace {

QString bodyText(const QByteArray &body)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(body);
    return decoder.hasError() ? QStringLiteral("No response") : text;
}

QString description(APIError::Case failure, const QByteArray &body)
{
    switch (failure) {
    case APIError::clientError:
        return QStringLiteral("Client error: ") + bodyText(body);
    case APIError::serverError:
        return QStringLiteral("Server error: ") + bodyText(body);
    case APIError::unknownError:
        break;
    }
    return QStringLiteral("Unknown error");
}

} // namespace

APIError::APIError(Case failure, const QByteArray &body)
    : Error(ErrorDomain::api, failure, description(failure, body))
    , m_body(failure == unknownError ? QByteArray() : body)
{
}

} // namespace tolvane
