// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"

class QNetworkReply;

namespace tolvane {

/// True if the reply is a complete HTTP response. Qt reports statuses such as 404 as errors, too.
bool isHttpResponse(const QNetworkReply &reply);

/// The error of a reply that is no HTTP response.
UrlError transportError(const QNetworkReply &reply);

} // namespace tolvane
