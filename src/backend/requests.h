// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/multipartbody.h"
#include "platform/network/urlsession.h"

#include <QtCore/QString>

#include <optional>

namespace tolvane {

/// Where requests go and with which key.
struct Endpoint
{
    QString baseUrl;
    QString apiKey;
};

/// A query item; absent as a value writes the name alone.
using QueryItem = QPair<QString, std::optional<QString>>;

// Each builds the request of its kind for a path below the endpoint, for the customer who is stored
// now. A path that makes no valid URL is left to the session to refuse. Safe from any thread.

UrlRequest getRequest(const Endpoint &endpoint, const QString &path,
                      const QList<QueryItem> &query = {});
UrlRequest jsonRequest(const Endpoint &endpoint, const QString &path, const QByteArray &json);
UrlRequest multipartRequest(const Endpoint &endpoint, const QString &path,
                            const MultipartBody &body);

/// The forms of a new ticket and of a further message, each under a boundary of its own.
MultipartBody ticketForm(const CreateTicketDto &ticket,
                         const std::optional<QList<AttachmentDto>> &attachments);
MultipartBody messageForm(const SendMessageDto &message);

} // namespace tolvane
