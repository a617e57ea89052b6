// SPDX-License-Identifier: MIT
#include "backend/wire/json.h"
#include "benchmarks/support/conversation.h"

#include <QtCore/QJsonDocument>

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

void decodeTicket(benchmark::State &state)
{
    const QByteArray bytes = conversationJson(10'000);
    for (auto _ : state)
        benchmark::DoNotOptimize(json::decode<TicketDto>(bytes));
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(decodeTicket)->Unit(benchmark::kMillisecond);

void parseWithQJsonDocument(benchmark::State &state)
{
    const QByteArray bytes = conversationJson(10'000);
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(bytes));
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(parseWithQJsonDocument)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tolvane::bench
