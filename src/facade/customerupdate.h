// SPDX-License-Identifier: MIT
#pragma once

#include "platform/async/shutdownhook.h"

#include <QCoroTask>
#include <QtCore/QFuture>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>
#include <optional>

/// Tolvane::updateCustomer(). Main thread.
namespace tolvane {

/// The promise of an update. Finishes when its last owner is destroyed, whatever happened to the
/// work. At the end of the application the work stays suspended, and the promise is cancelled: a
/// thread of the host may wait for it.
class UpdatePromise
{
public:
    UpdatePromise();
    ~UpdatePromise();
    UpdatePromise(const UpdatePromise &) = delete;
    UpdatePromise &operator=(const UpdatePromise &) = delete;

    QFuture<void> future() const;

private:
    struct State;

    const std::shared_ptr<State> m_state;
    ShutdownHook m_shutdownHook;
    QMetaObject::Connection m_quitting;
};

namespace customerupdate {

/// Stores the host's id and sends both values to the backend. Owns the promise until then.
QCoro::Task<> send(std::optional<QString> email, std::optional<QString> originalId,
                   std::shared_ptr<UpdatePromise> promise);

} // namespace customerupdate

} // namespace tolvane
