// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "httpserver.h"
#include "routing.h"

#include <functional>

namespace tolvane::backend {

/// Answers with server-sent events until the client disconnects or the server shuts down.
/// `writeNews` is called at first and after each event; it returns false once the client is gone,
/// and has to own the object that `news` is part of.
void answerWithEvents(const Call &call, const HttpServer &server, const Event &news,
                      std::function<bool(httplib::DataSink &)> writeNews);

bool write(httplib::DataSink &sink, const std::string &text);

} // namespace tolvane::backend
