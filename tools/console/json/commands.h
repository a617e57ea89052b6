// SPDX-License-Identifier: MIT
#pragma once

#include "host/host.h"
#include "json/arguments.h"

#include <QCoroTask>

namespace tolvane::console {

/// A command of the protocol. The task returns the results of the reply; an exception becomes a
/// reply with `"ok": false`.
struct Command
{
    const char *name;
    bool needsInitialization;
    QCoro::Task<QJsonObject> (*run)(Host &host, Arguments arguments);
};

/// Returns null for an unknown name.
const Command *findCommand(const QString &name);

} // namespace tolvane::console
