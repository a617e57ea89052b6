// SPDX-License-Identifier: MIT
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/sdkdata.h"

#include <tolvane/tolvane.h>

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

void handle(benchmark::State &state, int count)
{
    SdkData::shared();
    platform().notificationCenter->post(notifications::didChangeState,
                                        QVariantMap{{QStringLiteral("open"), true}});
    QVariantMap message;
    for (const char *key : {"id", "ticketId", "content", "timestamp"})
        message.insert(QString::fromLatin1(key), QStringLiteral("a text of typical length"));
    const QVariantMap payload = {{QStringLiteral("source"), QStringLiteral("tolvane")},
                                 {QStringLiteral("message"), message}};
    for (auto _ : state) {
        for (int i = 0; i < count; ++i)
            Tolvane::handlePushNotification(payload);
    }
}

void tenThousandPushes(benchmark::State &state)
{
    handle(state, 10'000);
}
BENCHMARK(tenThousandPushes)->Unit(benchmark::kMillisecond);

void thousandPushes(benchmark::State &state)
{
    handle(state, 1'000);
}
BENCHMARK(thousandPushes)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tolvane::bench
