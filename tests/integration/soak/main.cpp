// SPDX-License-Identifier: MIT
// tolvane-soak [MINUTES]: uses a host with the messenger for this time, an hour of use in three
// minutes. Fails if the use of a resource grows.
#include "platform/platform.h"
#include "resourceusage.h"
#include "rounds.h"
#include "testing/timeoutsession.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::soak;

namespace {

/// By how much the library's time runs faster.
constexpr int speed = 20;

/// Runs another clock faster by a factor.
class FastClock final : public Clock
{
public:
    FastClock(std::unique_ptr<Clock> clock, int factor)
        : m_clock(std::move(clock))
        , m_factor(factor)
        , m_begin(m_clock->now())
        , m_monotonicBegin(m_clock->monotonicNow())
    {
    }

    QDateTime now() const override
    {
        return m_begin.addMSecs(m_begin.msecsTo(m_clock->now()) * m_factor);
    }
    Instant monotonicNow() const override
    {
        return m_monotonicBegin + (m_clock->monotonicNow() - m_monotonicBegin) * m_factor;
    }
    QFuture<void> sleep(Duration duration, std::stop_token stop) override
    {
        return m_clock->sleep(duration / m_factor, std::move(stop));
    }

private:
    std::unique_ptr<Clock> m_clock;
    int m_factor;
    QDateTime m_begin;
    Instant m_monotonicBegin;
};

void speedUp(int factor)
{
    Platform &services = platform();
    services.clock = std::make_unique<FastClock>(std::move(services.clock), factor);
    auto session = std::make_unique<test::TimeoutSession>(std::move(services.urlSession));
    session->timeout /= factor;
    services.urlSession = std::move(session);
}

int runFor(double minutes)
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.filePath(u"config"_s).toLocal8Bit());
    qputenv("XDG_CACHE_HOME", folder.filePath(u"cache"_s).toLocal8Bit());
    speedUp(speed);
    Rounds rounds(folder.path());
    qputenv("TOLVANE_API_URL", rounds.url().toLocal8Bit());
    rounds.begin();

    QList<ResourceUsage> samples;
    QElapsedTimer time;
    time.start();
    const auto minutesPassed = [&time] { return double(time.elapsed()) / 60'000; };
    while (minutesPassed() < minutes || samples.size() < minimumSamples) {
        rounds.run();
        samples += resourceUsage();
        std::printf("round %lld, minute %.1f: %lld KiB\n", samples.size(), minutesPassed() * speed,
                    samples.constLast().front());
        std::fflush(stdout);
    }
    const bool isLeaking = hasGrown(samples);
    const EventCounter &events = rounds.events();
    std::printf("\n%d messages sent, %d received, %d failures reported\n",
                events.count(TolvaneAnalyticsEvent::Chat::messageSent),
                events.count(TolvaneAnalyticsEvent::Chat::messageReceived), events.failures());
    return isLeaking ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray argument = argc > 1 ? argv[1] : "3";
    QGuiApplication::setApplicationName(u"tolvane-soak"_s);
    const QGuiApplication application(argc, argv);
    const double minutes = argument.toDouble();
    if (minutes <= 0) {
        std::fprintf(stderr, "usage: tolvane-soak [MINUTES]\n");
        return 2;
    }
    try {
        return runFor(minutes);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "The soak failed: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
