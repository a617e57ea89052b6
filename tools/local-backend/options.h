// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>

#include <chrono>
#include <string>
#include <vector>

namespace tolvane::backend {

struct Options
{
    std::string host;
    int port = 0;
    std::string databasePath;
    std::string seedPath;
    std::string brandingPath;
    std::string schedulesPath;
    std::vector<std::string> keys;
    std::chrono::milliseconds replyDelay{0};
    std::size_t maxBody = 0;
};

/// Prints the help or the version and exits if an option asks for it. Throws a StartError for an
/// invalid option. Needs the application object.
Options parseOptions(const QStringList &arguments);

} // namespace tolvane::backend
