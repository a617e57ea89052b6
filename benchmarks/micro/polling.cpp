// SPDX-License-Identifier: MIT
#include "benchmarks/support/conversation.h"
#include "benchmarks/support/hostplatform.h"
#include "benchmarks/support/resourceusage.h"
#include "platform/async/awaitfuture.h"
#include "state/ticketdata.h"

#include <QtCore/QEventLoop>

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

QCoro::Task<> refreshAndQuit(TicketData &ticket, QEventLoop &loop)
{
    co_await ticket.silentFetchTicket(QStringLiteral("ticket"));
    loop.quit();
}

/// The main thread's share of a fetch whose 10,000 messages are equal to the known ones.
void unchangedPoll(benchmark::State &state)
{
    auto network =
        std::exchange(platform().urlSession,
                      std::make_unique<WorkerSession>(
                          [body = conversationJson(10'000)](const UrlRequest &) { return body; }));
    const auto ticket = std::make_shared<TicketData>(std::nullopt);
    for (auto _ : state) {
        QEventLoop loop;
        const double before = threadMilliseconds();
        detach(refreshAndQuit(*ticket, loop));
        loop.exec();
        state.SetIterationTime((threadMilliseconds() - before) / 1000);
    }
    platform().urlSession = std::move(network);
    if (!ticket->ticket() || ticket->ticket()->messages.size() != 10'000)
        state.SkipWithError("the ticket did not arrive");
}
BENCHMARK(unchangedPoll)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(30);

} // namespace

} // namespace tolvane::bench
