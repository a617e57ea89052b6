// SPDX-License-Identifier: MIT
#include "interactive/interactivemode.h"
#include "json/jsonmode.h"

#include <tolvane/versionnumber.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <csignal>

int main(int argc, char **argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Tolvane"));
    QCoreApplication::setApplicationName(QStringLiteral("tolvane-console"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TOLVANE_VERSION_STR));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A host application without a window, driven by a person or a script.\n"
                       "The environment variable TOLVANE_API_URL names the backend."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Reads and writes one JSON object per line."));
    parser.addOption(json);
    parser.process(app);

    if (parser.isSet(json)) {
        const tolvane::console::JsonMode mode;
        return QCoreApplication::exec();
    }
    const tolvane::console::InteractiveMode mode;
    return QCoreApplication::exec();
}
