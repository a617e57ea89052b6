// SPDX-License-Identifier: MIT
#pragma once

#include "arguments.h"
#include "host.h"

#include <QCoroTask>

namespace tolvane::console {

/// What a request asks for. The task gives the reply's results and throws for `"ok": false`.
struct Command
{
    const char *name;
    bool needsInitialization;
    QCoro::Task<QJsonObject> (*run)(Host &host, Arguments arguments);
};

/// Null for an unknown name.
const Command *findCommand(const QString &name);

} // namespace tolvane::console
