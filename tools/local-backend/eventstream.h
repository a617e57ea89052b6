// SPDX-License-Identifier: MIT
#pragma once

#include "httpserver.h"
#include "pollablesemaphore.h"
#include "routing.h"

#include <functional>

namespace tolvane::backend {

/// Answers with server-sent events until the client disconnects or the server shuts down.
/// `writeEvents` is called at first and after each release of the semaphore. It returns false once
/// the client is gone, and has to own the object that `semaphore` is part of.
void respondWithEvents(const RequestContext &context, const HttpServer &server,
                       const PollableSemaphore &semaphore,
                       std::function<bool(httplib::DataSink &)> writeEvents);

bool write(httplib::DataSink &sink, const std::string &text);

} // namespace tolvane::backend
