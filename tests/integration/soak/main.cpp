// SPDX-License-Identifier: MIT
// tolvane-soak [MINUTES]: an hour of a host with the messenger in it, in so many minutes. What it
// holds must not grow.
#include "fastclock.h"
#include "figures.h"
#include "platform/platform.h"
#include "round.h"
#include "testing/timeoutsession.h"
#include "victim.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::soak;

namespace {

constexpr double hour = 60;

void hasten(int factor)
{
    Platform &services = platform();
    services.clock = std::make_unique<FastClock>(std::move(services.clock), factor);
    auto session = std::make_unique<test::TimeoutSession>(std::move(services.urlSession));
    session->timeout /= factor;
    services.urlSession = std::move(session);
}

int soakFor(double minutes)
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.filePath(u"config"_s).toLocal8Bit());
    qputenv("XDG_CACHE_HOME", folder.filePath(u"cache"_s).toLocal8Bit());
    hasten(qMax(1, qRound(hour / minutes)));
    Rounds rounds(folder.path());
    qputenv("TOLVANE_API_URL", rounds.url().toLocal8Bit());
    rounds.begin();

    QList<Sample> samples;
    QElapsedTimer time;
    time.start();
    const auto passed = [&time] { return double(time.elapsed()) / 60'000; };
    while (passed() < minutes || samples.size() < fewestRounds) {
        rounds.run();
        samples += Sample::now();
        print(samples.constLast(), int(samples.size()), passed() * hour / minutes);
    }
    const bool isGood = isFlat(samples);
    const auto count = [&rounds](const QString &name) { return rounds.tally().count(name); };
    std::printf("\n%d messages sent, %d received, %d failures told\n",
                count(TolvaneAnalyticsEvent::Chat::messageSent),
                count(TolvaneAnalyticsEvent::Chat::messageReceived), rounds.tally().failures());
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray argument = argc > 1 ? argv[1] : "3";
    QGuiApplication::setApplicationName(u"tolvane-soak"_s);
    if (argument == "--victim") {
        const QCoreApplication application(argc, argv);
        return runVictim();
    }
    const QGuiApplication application(argc, argv);
    const double minutes = argument.toDouble();
    if (minutes <= 0) {
        std::fprintf(stderr, "usage: tolvane-soak [MINUTES]\n");
        return 2;
    }
    try {
        return soakFor(minutes);
    } catch (const NotFound &error) {
        std::fprintf(stderr, "The soak has ended early: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
