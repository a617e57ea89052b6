// SPDX-License-Identifier: MIT
#include "backend/apiclient.h"
#include "platform/async/awaitfuture.h"
#include "testing/backendprogram.h"

#include <QtCore/QEventLoop>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

/// Both requests name the same customer.
constexpr auto customer = "01jbenchbenchbenchbenchbe0";

QCoro::Task<> fetchAndQuit(QEventLoop &loop)
{
    int status = EXIT_SUCCESS;
    try {
        const APIClient client = APIClient::live();
        benchmark::DoNotOptimize(co_await client.getTickets());
    } catch (const Error &) {
        status = EXIT_FAILURE;
    }
    loop.exit(status);
}

void requestThroughClient(benchmark::State &state)
{
    const test::BackendProgram backend;
    qputenv("TOLVANE_API_URL", backend.url().toUtf8());
    for (auto _ : state) {
        QEventLoop loop;
        detach(fetchAndQuit(loop));
        if (loop.exec() != EXIT_SUCCESS)
            state.SkipWithError("the request failed");
    }
    qunsetenv("TOLVANE_API_URL");
}
BENCHMARK(requestThroughClient)->Unit(benchmark::kMicrosecond)->UseRealTime();

void requestThroughBareManager(benchmark::State &state)
{
    const test::BackendProgram backend;
    QNetworkAccessManager manager;
    QNetworkRequest request(backend.url() + QStringLiteral("/tickets"));
    request.setRawHeader("X-Tolvane-Customer", customer);
    for (auto _ : state) {
        QEventLoop loop;
        QNetworkReply *reply = manager.get(request);
        QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
        if (reply->error() != QNetworkReply::NoError)
            state.SkipWithError("the request failed");
        benchmark::DoNotOptimize(reply->readAll());
        reply->deleteLater();
    }
}
BENCHMARK(requestThroughBareManager)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

} // namespace tolvane::bench
