// SPDX-License-Identifier: MIT
#include "api/server.h"
#include "backend.h"
#include "base/errors.h"
#include "data/schema.h"
#include "data/seed.h"
#include "options.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <pthread.h>
#include <thread>

namespace {

using namespace tolvane::backend;

constexpr int startFailed = 2;
constexpr int serverFailed = 1;

// Every thread inherits the mask, so that only the thread in sigwait() receives the signals.
sigset_t blockTerminationSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

bool serveUntilSignal(Server &server, const sigset_t &signals)
{
    std::thread signalThread([&server, &signals] {
        int signal = 0;
        sigwait(&signals, &signal);
        server.shutDown();
    });
    const bool wasShutDown = server.run();
    // If the server ended for another reason, the thread still waits for a signal.
    if (!wasShutDown)
        pthread_kill(signalThread.native_handle(), SIGINT);
    signalThread.join();
    return wasShutDown;
}

int run(const Options &options, const sigset_t &signals)
{
    Database database = openDatabase(options.databasePath);
    if (!options.seedPath.empty())
        loadSeed(options.seedPath, database);
    Backend backend(std::move(database), options.replyDelay, options.brandingPath,
                    options.schedulesPath);
    Server server({options.host, options.port, options.keys, options.maxBody}, backend);
    server.bind();
    std::printf("listening on %s\n", server.baseUrl().c_str());
    std::fflush(stdout);
    return serveUntilSignal(server, signals) ? EXIT_SUCCESS : serverFailed;
}

} // namespace

int main(int argc, char *argv[])
{
    std::signal(SIGPIPE, SIG_IGN);
    const sigset_t signals = blockTerminationSignals();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TOLVANE_BACKEND_VERSION));
    try {
        const Options options = parseOptions(QCoreApplication::arguments());
        if (!options.textToPrint.empty()) {
            std::fputs(options.textToPrint.c_str(), stdout);
            return EXIT_SUCCESS;
        }
        return run(options, signals);
    } catch (const std::exception &error) {
        std::string line = error.what();
        std::replace(line.begin(), line.end(), '\n', ' ');
        std::fprintf(stderr, "tolvane-backend: %s\n", line.c_str());
        return startFailed;
    }
}
