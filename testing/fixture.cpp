// SPDX-License-Identifier: MIT
#include "testing/fixture.h"

#include "analytics/manager.h"
#include "backend/configuration.h"
#include "base/errors.h"
#include "base/sharedinstance.h"
#include "platform/logger.h"
#include "state/pollingservice.h"

namespace tolvane::test {

using namespace Qt::StringLiterals;

Fixture::Fixture()
{
    auto installed = std::make_unique<Platform>(makeProductionPlatform());
    installed->pictureWorkers = std::make_unique<InlineExecutor>();
    installed->pollingThread = makeMainExecutor();
    installed->notificationCenter =
        std::make_unique<RecordingCenter>(*installed->mainThread, broadcasts);
    const auto install = [](auto &service, auto replacement) {
        auto *raw = replacement.get();
        service = std::move(replacement);
        return raw;
    };
    workers = install(installed->workers, std::make_unique<InlineExecutor>());
    clock = install(installed->clock, std::make_unique<ManualClock>());
    preferences = install(installed->preferences, std::make_unique<MemoryPreferences>());
    session = install(installed->urlSession, std::make_unique<ScriptedSession>());
    device = install(installed->device, std::make_unique<FakeDevice>());
    bundle = install(installed->bundle, std::make_unique<FakeBundle>());
    installed->makeLogSink = [lines = log](const QString &,
                                           const QString &) -> std::unique_ptr<LogSink> {
        return makeCapturingSink(lines);
    };
    installed->makeUrlCache = [this](UrlCache::Settings settings) {
        settings.diskPath = m_caches.filePath(settings.diskPath);
        return makeUrlCache(settings);
    };
    installed->environmentVariable = [this](const char *name) -> std::optional<QString> {
        const auto found = environment.constFind(QString::fromLatin1(name));
        return found == environment.cend() ? std::nullopt : std::optional(*found);
    };
    m_previousPlatform = exchangePlatform(std::move(installed));
    Logger::shared().setEnabled(true);
    TolvaneAnalyticsManager::shared().setDelegate(delegate);
}

Fixture::~Fixture()
{
    // The objects that the test's handler refers to are destroyed already.
    session->handler = [](const UrlRequest &) -> UrlResponse { throw CancellationError(); };
    session->release();
    const auto polling = PollingService::shared();
    QFuture<QList<QString>> active = polling->activeTickets();
    settle();
    for (const QString &ticketId : active.result())
        polling->stopPolling(ticketId);
    // Wakes sleepers that have no stop token.
    clock->advance(std::chrono::hours(1));
    settle();
    // Except with a push, neither the key nor what people have written is logged, nor their names.
    for (const QString &line : std::as_const(log->lines)) {
        for (const QLatin1String secret : {"secret-key"_L1, "text of "_L1, "name of "_L1}) {
            if (line.contains(secret) && !line.contains("Handle push notification"_L1))
                qFatal("A log line has a secret: %s", qPrintable(line));
        }
    }
    resetSharedInstances();
    exchangePlatform(std::move(m_previousPlatform));
}

void Fixture::setKey(const QString &key)
{
    Configuration::shared().setApiKeyOnce(key);
}

UrlResponse json(const QByteArray &body, int status)
{
    return {.status = status, .headers = {{"Content-Type", "application/json"}}, .body = body};
}

} // namespace tolvane::test
