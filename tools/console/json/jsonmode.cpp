// SPDX-License-Identifier: MIT
#include "json/jsonmode.h"

#include "host/attachments.h"
#include "io/output.h"
#include "json/protocoljson.h"
#include "platform/async/awaitfuture.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonDocument>

#include <array>

namespace tolvane::console {

namespace {

// Indexed by LogType.
constexpr std::array logTypeNames = {"debug", "info", "error", "fault"};

void reply(const QJsonValue &id, QJsonObject results)
{
    results.insert(QStringLiteral("reply"), id);
    results.insert(QStringLiteral("ok"), true);
    writeLine(results);
}

void replyError(const QJsonValue &id, const QString &text)
{
    writeLine({{QStringLiteral("reply"), id},
               {QStringLiteral("ok"), false},
               {QStringLiteral("error"), text}});
}

/// The request's id, unchanged; null when it is neither a number nor a string.
QJsonValue idOf(const QJsonObject &request)
{
    const QJsonValue id = request.value(QLatin1String("id"));
    return id.isString() || id.isDouble() ? id : QJsonValue();
}

} // namespace

JsonMode::JsonMode()
    : m_host((installPlatform(*this), *this))
{
    QObject::connect(&m_lines, &LineSource::line, [this](const QByteArray &line) { handle(line); });
    QObject::connect(&m_lines, &LineSource::ended, qApp, &QCoreApplication::quit);
}

void JsonMode::handle(const QByteArray &line)
{
    const QJsonDocument document = QJsonDocument::fromJson(line);
    if (!document.isObject())
        return replyError({}, QStringLiteral("The line is not a JSON object"));
    const QJsonObject request = document.object();
    const QJsonValue id = idOf(request);
    const QString name = request.value(QLatin1String("cmd")).toString();
    if (name == QLatin1String("quit")) {
        reply(id, {});
        QCoreApplication::quit();
        return;
    }
    const Command *command = findCommand(name);
    if (!command)
        return replyError(id, QStringLiteral("Unknown command: \"%1\"").arg(name));
    if (command->needsInitialization && !isInitialized())
        return replyError(id, QStringLiteral("Tolvane is not initialized"));
    detach(serve(id, command, Arguments(request)));
}

QCoro::Task<> JsonMode::serve(QJsonValue id, const Command *command, Arguments arguments)
{
    QString message;
    try {
        const QJsonObject results = co_await command->run(m_host, arguments);
        reply(id, results);
        co_return;
    } catch (const CommandError &error) {
        message = error.text();
    } catch (...) {
        message = currentError()->localizedDescription();
    }
    replyError(id, message);
}

void JsonMode::onLog(LogType type, const QString &line)
{
    writeLine({{QStringLiteral("event"), QStringLiteral("log")},
               {QStringLiteral("line"), line},
               {QStringLiteral("type"),
                QString::fromLatin1(logTypeNames.at(static_cast<std::size_t>(type)))}});
}

void JsonMode::onEvent(const TolvaneAnalyticsEvent &event)
{
    QJsonObject line = eventToJson(event);
    line.insert(QStringLiteral("event"), QStringLiteral("analytics"));
    writeLine(line);
}

void JsonMode::onBroadcast(const QString &name, const NotificationCenter::UserInfo &userInfo)
{
    writeLine({{QStringLiteral("event"), QStringLiteral("notification")},
               {QStringLiteral("name"), name},
               {QStringLiteral("userInfo"), userInfoToJson(userInfo)}});
}

void JsonMode::onPresentation()
{
    writeLine({{QStringLiteral("event"), QStringLiteral("presentation")},
               {QStringLiteral("presented"), true}});
}

} // namespace tolvane::console
