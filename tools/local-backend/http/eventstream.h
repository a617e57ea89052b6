// SPDX-License-Identifier: MIT
#pragma once

#include "http/routing.h"

namespace tolvane::backend {

/// Responds with server-sent events until the client disconnects or the server shuts down.
/// `nextEvents` returns an empty text while no event is waiting. The server calls it again after
/// each release of the stream's wakeup.
template <typename Stream>
void respondWithEvents(const RequestContext &context, const std::shared_ptr<Stream> &stream,
                       std::function<std::string()> nextEvents)
{
    context.response.setContent({}, "text/event-stream");
    context.response.setHeader("Cache-Control", "no-store");
    context.response.wakeup = std::shared_ptr<const Wakeup>(stream, &stream->wakeup());
    context.response.nextEvents = std::move(nextEvents);
}

} // namespace tolvane::backend
