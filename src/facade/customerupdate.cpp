// SPDX-License-Identifier: MIT
#include "facade/customerupdate.h"

#include "analytics/manager.h"
#include "backend/apiclient.h"
#include "backend/persistentstore.h"
#include "base/errors.h"
#include "platform/logger.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPromise>

#include <mutex>

namespace tolvane {

using Keys = TolvaneAnalyticsEvent::PropertyKeys;

namespace {

QString textOrNil(const std::optional<QString> &text)
{
    return text.value_or(QStringLiteral("nil"));
}

} // namespace

struct UpdatePromise::State
{
    /// Finishes once: QPromise would run continuations again.
    void finish(bool isCancelled)
    {
        std::call_once(once, [&] {
            if (isCancelled)
                promise.future().cancel();
            promise.finish();
        });
    }

    QPromise<void> promise;
    std::once_flag once;
};

UpdatePromise::UpdatePromise()
    : m_state(std::make_shared<State>())
{
    m_state->promise.start();
    const auto cancel = [state = m_state] { state->finish(true); };
    m_shutdownHook = onShutdown(cancel);
    if (const QCoreApplication *app = QCoreApplication::instance())
        m_quitting = QObject::connect(app, &QCoreApplication::aboutToQuit, cancel);
}

UpdatePromise::~UpdatePromise()
{
    QObject::disconnect(m_quitting);
    m_state->finish(false);
}

QFuture<void> UpdatePromise::future() const
{
    return m_state->promise.future();
}

QCoro::Task<> customerupdate::send(std::optional<QString> email, std::optional<QString> originalId,
                                   std::shared_ptr<UpdatePromise> promise)
{
    // A local variable is destroyed when the work is done, a parameter with the coroutine's frame.
    const auto owner = std::move(promise);
    try {
        persistentstore::setCustomerOriginalId(originalId);
        const APIClient client = APIClient::live();
        const UpdateCustomerDto customer{.email = email, .originalId = originalId};
        co_await client.updateCustomer(customer);
        Logger::shared().log(LogLevel::info, QStringLiteral("Customer updated: %1 %2 %3")
                                                 .arg(textOrNil(email), textOrNil(originalId),
                                                      textOrNil(persistentstore::customerId())));
        TolvaneAnalyticsManager::shared().track(
            TolvaneAnalyticsEvent::Lifecycle::customerUpdated,
            {{QStringLiteral("has_email"), email.has_value()},
             {QStringLiteral("has_original_id"), originalId.has_value()},
             {Keys::actionType, QStringLiteral("lifecycle")}});
    } catch (...) {
        const ErrorPtr error = currentError();
        Logger::shared().log(LogLevel::error, QStringLiteral("Error updating customer: ") +
                                                  error->localizedDescription());
        TolvaneAnalyticsManager::shared().trackError(QStringLiteral("updateCustomer"), {}, *error);
    }
}

} // namespace tolvane
