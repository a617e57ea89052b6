// SPDX-License-Identifier: MIT
#pragma once

#include "backend/endpoint.h"
#include "backend/wire/multipartbody.h"
#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "platform/network/urlsession.h"

#include <QtCore/QString>

#include <optional>

namespace tolvane {

/// A query item; with an absent value, only the name is written.
using QueryItem = QPair<QString, std::optional<QString>>;

/// A text as one segment of a path.
QByteArray encodedSegment(const QString &text);

// These functions build a request for a path below the endpoint, with the stored customer id. The
// session rejects an invalid URL. Safe from any thread.

UrlRequest getRequest(const Endpoint &endpoint, const QString &path,
                      const QList<QueryItem> &query = {});
UrlRequest jsonRequest(const Endpoint &endpoint, const QString &path, const QByteArray &json);
UrlRequest multipartRequest(const Endpoint &endpoint, const QString &path,
                            const MultipartBody &body);

/// The forms of a new ticket and of a further message, each with a new boundary.
MultipartBody ticketForm(const CreateTicketDto &ticket,
                         const std::optional<QList<AttachmentDto>> &attachments);
TOLVANE_AUTOTEST_EXPORT MultipartBody messageForm(const SendMessageDto &message);

} // namespace tolvane
