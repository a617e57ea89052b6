// SPDX-License-Identifier: MIT
// tolvane-soak [MINUTES]: runs an hour of use of a host with the messenger, in this many minutes.
// Fails if the use of a resource grows.
#include "fastclock.h"
#include "platform/platform.h"
#include "resourceusage.h"
#include "rounds.h"
#include "testing/timeoutsession.h"
#include "writerprocess.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::soak;

namespace {

constexpr double hour = 60;

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
    speedUp(qMax(1, qRound(hour / minutes)));
    Rounds rounds(folder.path());
    qputenv("TOLVANE_API_URL", rounds.url().toLocal8Bit());
    rounds.begin();

    QList<ResourceUsage> samples;
    QElapsedTimer time;
    time.start();
    const auto minutesPassed = [&time] { return double(time.elapsed()) / 60'000; };
    while (minutesPassed() < minutes || samples.size() < minimumSamples) {
        rounds.run();
        samples += ResourceUsage::now();
        print(samples.constLast(), int(samples.size()), minutesPassed() * hour / minutes);
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
    if (argument == "--writer") {
        const QCoreApplication application(argc, argv);
        return runWriter();
    }
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
