// SPDX-License-Identifier: MIT
#include "base/errors.h"
#include "data/schema.h"
#include "data/seed.h"
#include "options.h"
#include "server.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>

namespace {

using namespace tolvane::backend;

constexpr int startFailed = 2;

std::atomic<Server *> runningServer = nullptr;

void shutDown(int)
{
    if (Server *const server = runningServer)
        server->shutDown();
}

void run(const Options &options)
{
    Database database = openDatabase(options.databasePath);
    if (!options.seedPath.empty())
        loadSeed(options.seedPath, database);
    Backend backend(std::move(database), options.replyDelay, options.brandingPath,
                    options.schedulesPath);
    Server server({options.host, options.port, options.keys, options.maxBody}, backend);
    server.bind();
    runningServer = &server;
    std::printf("listening on %s\n", server.baseUrl().c_str());
    std::fflush(stdout);
    server.run();
    runningServer = nullptr;
}

} // namespace

int main(int argc, char *argv[])
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGINT, shutDown);
    std::signal(SIGTERM, shutDown);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TOLVANE_BACKEND_VERSION));
    try {
        run(parseOptions(QCoreApplication::arguments()));
        return EXIT_SUCCESS;
    } catch (const std::exception &error) {
        std::string line = error.what();
        std::replace(line.begin(), line.end(), '\n', ' ');
        std::fprintf(stderr, "tolvane-backend: %s\n", line.c_str());
        return startFailed;
    }
}
