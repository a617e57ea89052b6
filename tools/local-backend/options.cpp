// SPDX-License-Identifier: MIT
#include "options.h"

#include "base/errors.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QStandardPaths>

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

struct OptionDescription
{
    const char *name;
    const char *valueName;
    const char *defaultValue;
    const char *help;
};

constexpr OptionDescription optionDescriptions[] = {
    {"port", "N", "8787", "Port to listen on, 0 for a free port (8787)."},
    {"host", "ADDR", "127.0.0.1",
     "Address to listen on. An address other than loopback opens the backend to the network."},
    {"db", "FILE", "",
     "Database file, or :memory: to keep nothing. By default "
     "tolvane-backend/backend.sqlite in the user's data folder."},
    {"seed", "FILE", "", "JSON file of initial conversations; their customer gets them once."},
    {"branding", "FILE", "", "JSON file of the branding, instead of the built-in one."},
    {"schedules", "FILE", "", "JSON file of the schedules, instead of weekdays from 9 to 18."},
    {"key", "KEY", "",
     "Key that requests have to present; may be given several times. Without a key "
     "every request is accepted."},
    {"reply-delay", "SECONDS", "1.5", "Time that an agent takes to reply (1.5)."},
    {"max-body", "MIB", "64", "Largest request body in MiB (64)."},
};

constexpr const char *description =
    "Local backend of TolvaneSdk for developing and trying out an app.\n"
    "A developer's tool: not for production, nor for the data of real customers.";

[[noreturn]] void fail(const QString &reason)
{
    throw StartError(reason.toStdString() + " (see --help)");
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QLatin1String(description));
    parser.addHelpOption();
    parser.addVersionOption();
    for (const OptionDescription &each : optionDescriptions) {
        parser.addOption({QLatin1String(each.name), QLatin1String(each.help),
                          QLatin1String(each.valueName), QLatin1String(each.defaultValue)});
    }
}

double numberOf(const QCommandLineParser &parser, const QString &name, double minimum,
                double maximum)
{
    const QString text = parser.value(name);
    bool valid = false;
    const double number = text.toDouble(&valid);
    // Negated, so that NaN is rejected too.
    if (!valid || !(number >= minimum && number <= maximum)) {
        fail(u"--%1 takes a number from %2 to %3, not '%4'"_s.arg(name)
                 .arg(minimum)
                 .arg(maximum)
                 .arg(text));
    }
    return number;
}

int wholeNumberOf(const QCommandLineParser &parser, const QString &name, int minimum, int maximum)
{
    const double number = numberOf(parser, name, minimum, maximum);
    const int whole = static_cast<int>(number);
    if (whole != number)
        fail(u"--%1 takes a whole number, not '%2'"_s.arg(name, parser.value(name)));
    return whole;
}

std::string defaultDatabasePath()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty())
        fail(u"this user has no data folder; name a file with --db"_s);
    return (data + u"/tolvane-backend/backend.sqlite"_s).toStdString();
}

std::vector<std::string> keysOf(const QCommandLineParser &parser)
{
    std::vector<std::string> keys;
    for (const QString &key : parser.values(u"key"_s)) {
        // values() contains the empty default when the option is not set.
        if (!key.trimmed().isEmpty())
            keys.push_back(key.trimmed().toStdString());
        else if (parser.isSet(u"key"_s))
            fail(u"--key must not be empty"_s);
    }
    return keys;
}

} // namespace

Options parseOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        fail(parser.errorText());
    if (parser.isSet(u"help"_s))
        parser.showHelp();
    if (parser.isSet(u"version"_s))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty())
        fail(u"unexpected argument '%1'"_s.arg(parser.positionalArguments().constFirst()));

    Options options;
    options.host = parser.value(u"host"_s).toStdString();
    options.port = wholeNumberOf(parser, u"port"_s, 0, 65535);
    options.databasePath = parser.value(u"db"_s).toStdString();
    if (options.databasePath.empty())
        options.databasePath = defaultDatabasePath();
    options.seedPath = parser.value(u"seed"_s).toStdString();
    options.brandingPath = parser.value(u"branding"_s).toStdString();
    options.schedulesPath = parser.value(u"schedules"_s).toStdString();
    options.keys = keysOf(parser);
    const double seconds = numberOf(parser, u"reply-delay"_s, 0, 3600);
    options.replyDelay = std::chrono::milliseconds(qRound64(seconds * 1000));
    options.maxBody = static_cast<std::size_t>(wholeNumberOf(parser, u"max-body"_s, 1, 512)) << 20;
    return options;
}

} // namespace tolvane::backend
