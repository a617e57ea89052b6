// SPDX-License-Identifier: MIT
// tolvane-peers [--page FILE] [--rounds NUMBER]: compares the messenger with what a host may use
// instead, in one run: a web view with a chat page, and a bare list as the floor. Times are taken
// from the window on the screen, memory and processor time from all processes of the host.
#include "comparison.h"
#include "screen.h"
#include "session.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>

#include <cstdio>

using namespace tolvane;
using namespace tolvane::peers;

namespace {

const QString page = QStringLiteral(TOLVANE_PEER_PAGES "/");
const QString messenger = QStringLiteral(TOLVANE_PEER_MESSENGER);
const QString web = QStringLiteral(TOLVANE_PEER_WEB);

const Peer all[] = {
    {bareList, QStringLiteral(TOLVANE_PEER_LIST), {}},
    {ours, messenger, {}},
    {plainPage, web, page + QStringLiteral("plain")},
    {virtualPage, web, page + QStringLiteral("virtual")},
};
const Peer slidingMessenger{sliding, messenger, QStringLiteral("window")};

void sleep(double seconds)
{
    QThread::msleep(static_cast<unsigned long>(seconds * 1000));
}

/// Records figures of one host, by the number of messages.
class Recorder
{
public:
    Recorder(bench::Figures &figures, const Peer &peer, int messageCount)
        : m_figures(figures)
        , m_peer(peer)
        , m_messageCount(messageCount)
    {
    }

    void record(const char *quantity, double value)
    {
        m_figures.record(figureName(quantity, m_peer.name, m_messageCount), value);
        std::printf("%-28s %-24s %6d messages %10.2f\n", quantity, m_peer.name, m_messageCount,
                    value);
        std::fflush(stdout);
    }

private:
    bench::Figures &m_figures;
    const Peer &m_peer;
    int m_messageCount;
};

void measureMessages(Session &session, Recorder &recorder)
{
    for (int message = 0; message < 3; ++message) {
        const ProcessTree processes = session.processes();
        const double before = processes.processorMilliseconds();
        recorder.record(messageTime, session.receive());
        sleep(1);
        recorder.record(messageWork, processes.processorMilliseconds() - before);
    }
}

void measureFling(Session &session, Recorder &recorder)
{
    constexpr int steps = 180;
    const ProcessTree processes = session.processes();
    const QImage end = Screen::picture();
    const double before = processes.processorMilliseconds();
    const int frames = session.fling(steps);
    recorder.record(flingFrame, (processes.processorMilliseconds() - before) / frames);
    recorder.record(flingFrames, frames);
    if (Screen::picture() == end)
        throw std::runtime_error("The fling does not scroll");
}

void measureIdle(Session &session, Recorder &recorder)
{
    constexpr double seconds = 10;
    const ProcessTree processes = session.processes();
    const double before = processes.processorMilliseconds();
    sleep(seconds);
    recorder.record(idleMinute, (processes.processorMilliseconds() - before) * 60 / seconds);
}

/// @param isWhole whether to measure also what one process shows well enough
void measureSession(bench::Figures &figures, const Peer &peer, int messageCount, bool isWhole)
{
    Recorder recorder(figures, peer, messageCount);
    const Backend backend(messageCount);
    Session session(peer, backend);
    session.waitUntilRunning();
    const ProcessTree processes = session.processes();
    sleep(1.5);
    recorder.record(memoryBefore, processes.mebibytes());
    // Those of the first host, the bare list's.
    static const QSet<QString> filesOfHost = processes.files();
    recorder.record(firstOpening, session.open());
    sleep(2);
    recorder.record(memoryOpen, processes.mebibytes());
    if (isWhole) {
        recorder.record(processCount, double(processes.processes().size()));
        recorder.record(threadCount, processes.threads());
        recorder.record(diskSize, mebibytesOfFiles(processes.files() - filesOfHost, peer));
        if (messageCount == fewMessages)
            measureIdle(session, recorder);
        measureMessages(session, recorder);
        if (messageCount == manyMessages)
            measureFling(session, recorder);
    }
    session.close();
    sleep(1);
    recorder.record(secondOpening, session.open());
    sleep(1);
    if (isWhole && messageCount == fewMessages) {
        session.close();
        sleep(settleSeconds);
        recorder.record(memoryClosed, processes.mebibytes());
    }
}

void measureCold(bench::Figures &figures, const Peer &peer)
{
    Recorder recorder(figures, peer, fewMessages);
    const Backend backend(fewMessages);
    std::unique_ptr<Session> session;
    recorder.record(coldStart, Screen::timeUntilShown([&] {
                        session = std::make_unique<Session>(peer, backend);
                        session->startOpening();
                    }));
}

void measureSliding(bench::Figures &figures)
{
    Recorder recorder(figures, slidingMessenger, fewMessages);
    const Backend backend(fewMessages);
    Session session(slidingMessenger, backend);
    session.waitUntilRunning();
    sleep(1);
    recorder.record(firstOpening, session.open());
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    const QCommandLineOption pageOption(QStringLiteral("page"), {}, QStringLiteral("file"));
    const QCommandLineOption roundsOption(QStringLiteral("rounds"), {}, QStringLiteral("number"),
                                          QStringLiteral("3"));
    QCommandLineParser parser;
    parser.addOptions({pageOption, roundsOption});
    parser.process(app);

    bench::Figures figures;
    try {
        for (int round = 0; round < parser.value(roundsOption).toInt(); ++round) {
            for (const int messageCount : {fewMessages, manyMessages}) {
                for (const Peer &peer : all)
                    measureSession(figures, peer, messageCount, round == 0);
            }
            for (const Peer &peer : all)
                measureCold(figures, peer);
            measureSliding(figures);
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return report(figures, parser.value(pageOption)) ? EXIT_SUCCESS : EXIT_FAILURE;
}
