// SPDX-License-Identifier: MIT
#include "backend/apiclient.h"
#include "backend/requests.h"
#include "platform/async/awaitfuture.h"

#include <benchmark/benchmark.h>

namespace tolvane::bench {

namespace {

QList<AttachmentDto> attachments()
{
    QList<AttachmentDto> files;
    for (int i = 0; i < 4; ++i) {
        files.append({QStringLiteral("photo%1.jpg").arg(i), QStringLiteral("image/jpeg"),
                      QByteArray(5'000'000, static_cast<char>('a' + i))});
    }
    return files;
}

void buildBody(benchmark::State &state)
{
    const SendMessageDto message{.message = QStringLiteral("see here"),
                                 .attachments = attachments()};
    for (auto _ : state)
        benchmark::DoNotOptimize(messageForm(message).finish());
}
BENCHMARK(buildBody)->Unit(benchmark::kMillisecond);

void twoPlainCopies(benchmark::State &state)
{
    const QList<AttachmentDto> files = attachments();
    for (auto _ : state) {
        QByteArray first;
        first.reserve(20'000'000);
        for (const AttachmentDto &file : files)
            first += file.data;
        QByteArray second(first.constData(), first.size());
        benchmark::DoNotOptimize(second.data());
    }
}
BENCHMARK(twoPlainCopies)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tolvane::bench
