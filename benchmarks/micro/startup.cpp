// SPDX-License-Identifier: MIT
#include "analytics/manager.h"
#include "backend/configuration.h"
#include "backend/persistentstore.h"
#include "base/sharedinstance.h"
#include "platform/platform.h"

#include <tolvane/tolvane.h>

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

/// Measures what a host does first in a new process.
template <typename Operation>
void measureStart(benchmark::State &state, Operation operation)
{
    persistentstore::setCustomerId(QStringLiteral("01jbenchbenchbenchbenchbe0"));
    for (auto _ : state) {
        state.PauseTiming();
        // Restores the state of a new process, and drops the load of the settings that the previous
        // iteration has posted.
        resetSharedInstances();
        QCoreApplication::removePostedEvents(QCoreApplication::instance());
        state.ResumeTiming();
        operation();
    }
    QCoreApplication::removePostedEvents(QCoreApplication::instance());
    // The other benchmarks need it, and may run after this one.
    Configuration::shared().setApiKeyOnce(QStringLiteral("key"));
}

void initialize(benchmark::State &state)
{
    measureStart(state, [] { Tolvane::initialize(QStringLiteral("key")); });
}
BENCHMARK(initialize)->Unit(benchmark::kMicrosecond);

void readAndEvent(benchmark::State &state)
{
    const auto domain = QStringLiteral("com.tolvane.sdk");
    measureStart(state, [&domain] {
        benchmark::DoNotOptimize(
            platform().preferences->open(domain)->text(QStringLiteral("customer.id")));
        TolvaneAnalyticsManager::shared().track(
            TolvaneAnalyticsEvent::Lifecycle::sdkInitialized,
            {{TolvaneAnalyticsEvent::PropertyKeys::actionType, QStringLiteral("lifecycle")}});
    });
}
BENCHMARK(readAndEvent)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tolvane::bench
