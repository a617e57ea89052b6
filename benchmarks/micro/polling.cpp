// SPDX-License-Identifier: MIT
#include "benchmarks/support/measures.h"
#include "benchmarks/support/samples.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/ticketdata.h"

#include <QtCore/QEventLoop>

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

/// A network that has the answer at once, on another thread, as the real one would.
class CannedSession final : public UrlSession
{
public:
    explicit CannedSession(QByteArray body)
        : m_body(std::move(body))
    {
    }

    QFuture<UrlResponse> send(std::function<UrlRequest()>) override
    {
        return platform().workers->run(
            [body = m_body] { return UrlResponse{.status = 200, .headers = {}, .body = body}; });
    }

private:
    QByteArray m_body;
};

QCoro::Task<> refreshAndQuit(TicketData &ticket, QEventLoop &loop)
{
    co_await ticket.silentFetchTicket(QStringLiteral("ticket"));
    loop.quit();
}

/// The main thread's share of a quiet fetch whose 10,000 messages replace the same ones.
void quietPoll(benchmark::State &state)
{
    auto network =
        std::exchange(platform().urlSession, std::make_unique<CannedSession>(ticketJson(10'000)));
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
BENCHMARK(quietPoll)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(30);

} // namespace

} // namespace tolvane::bench
