// SPDX-License-Identifier: MIT
// The commands of the interactive mode.
#include "backend/persistentstore.h"
#include "host/attachments.h"
#include "interactive/interactivemode.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"

#include <tolvane/tolvane.h>

#include <algorithm>
#include <array>

namespace tolvane::console {

using namespace std::chrono_literals;

struct InteractiveMode::Command
{
    const char *name;
    const char *arguments;
    const char *help;
    bool needsInitialization;
    QCoro::Task<> (InteractiveMode::*run)(QString);
};

struct InteractiveMode::WaitCondition
{
    const char *name;
    bool (InteractiveMode::*isMet)();
};

namespace {

bool switchOn(const QString &onOff)
{
    if (onOff != QLatin1String("on") && onOff != QLatin1String("off"))
        throw CommandError(QStringLiteral("Expected \"on\" or \"off\""));
    return onOff == QLatin1String("on");
}

} // namespace

std::span<const InteractiveMode::Command> InteractiveMode::commands()
{
    using Mode = InteractiveMode;
    static constexpr std::array table = {
        Command{"help", "", "lists the commands", false, &Mode::help},
        Command{"init", "[KEY]", "starts the library", false, &Mode::init},
        Command{"env", "NAME", "production, development or alpha", false, &Mode::environment},
        Command{"list", "", "your conversations", true, &Mode::list},
        Command{"open", "NUMBER", "opens a conversation of the list", true, &Mode::openTicket},
        Command{"new", "", "begins a new conversation", true, &Mode::newTicket},
        Command{"leave", "", "leaves the conversation", true, &Mode::leave},
        Command{"say", "TEXT", "sends a message with its attachments", true, &Mode::say},
        Command{"attach", "PATH", "adds a file to the next message", true, &Mode::attach},
        Command{"refresh", "", "fetches the conversation", true, &Mode::refresh},
        Command{"wait", "[closed|push]", "waits for a reply, the closing or the next push", true,
                &Mode::wait},
        Command{"push", "on|off", "pushes from the local backend", true, &Mode::push},
        Command{"tap", "", "taps the last push", true, &Mode::tap},
        Command{"who", "[EMAIL [ID]]", "shows your ids, or sets them", true, &Mode::who},
        Command{"log", "on|off", "the library's log lines", false, &Mode::log},
        Command{"events", "on|off", "analytics events", false, &Mode::events},
        Command{"quit", "", "ends the program", false, &Mode::quit},
    };
    return table;
}

QCoro::Task<> InteractiveMode::run(QString line)
{
    if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
        co_return;
    m_terminal.echo(line);
    const QString name = line.section(QLatin1Char(' '), 0, 0);
    const auto command = std::ranges::find_if(
        commands(), [&name](const Command &entry) { return name == QLatin1String(entry.name); });
    if (command == commands().end())
        throw CommandError(QStringLiteral("There is no command \"%1\"; see \"help\"").arg(name));
    if (command->needsInitialization && !isInitialized())
        throw CommandError(QStringLiteral("Tolvane is not initialized: type \"init\" first"));
    co_await (this->*command->run)(line.section(QLatin1Char(' '), 1).trimmed());
}

QCoro::Task<> InteractiveMode::help(QString)
{
    for (const Command &command : commands()) {
        m_terminal.print(QStringLiteral("  %1 %2 %3")
                             .arg(QLatin1String(command.name), -8)
                             .arg(QLatin1String(command.arguments), -13)
                             .arg(QLatin1String(command.help)));
    }
    co_return;
}

QCoro::Task<> InteractiveMode::init(QString key)
{
    Tolvane::initialize(key.isEmpty() ? QStringLiteral("console") : key);
    co_await list({});
}

QCoro::Task<> InteractiveMode::environment(QString name)
{
    const auto environment = Tolvane::environmentFromRawValue(name);
    if (!environment)
        throw CommandError(QStringLiteral("There is no environment \"%1\"").arg(name));
    Tolvane::setEnvironment(*environment);
    co_return;
}

QCoro::Task<> InteractiveMode::list(QString)
{
    co_await m_host.tickets()->load();
    const TicketsData::State state = m_host.tickets()->state();
    if (state.failure())
        throw CommandError(state.failure()->localizedDescription());
    int number = 0;
    for (const TicketPreviewDto &row : state.value().value_or(TicketsData::Tickets()))
        m_terminal.print(rowText(m_terminal, ++number, row));
    if (number == 0)
        m_terminal.print(QStringLiteral("No conversations yet: \"new\" begins one"));
}

QCoro::Task<> InteractiveMode::openTicket(QString number)
{
    const auto rows = m_host.tickets()->state().value().value_or(TicketsData::Tickets());
    const qsizetype index = number.toInt() - 1;
    if (index < 0 || index >= rows.size())
        throw CommandError(QStringLiteral("The list has no row \"%1\"").arg(number));
    enter(m_host.open(rows.at(index)));
    co_await current().ticket().fetchTicket();
}

QCoro::Task<> InteractiveMode::newTicket(QString)
{
    enter(m_host.open(std::nullopt));
    current().ticket().setNewTicket(true);
    m_terminal.print(QStringLiteral("A new conversation: \"say\" something"));
    co_return;
}

QCoro::Task<> InteractiveMode::leave(QString)
{
    current(); // Throws without an open conversation.
    close();
    Host::setOpen(false);
    co_return;
}

QCoro::Task<> InteractiveMode::say(QString text)
{
    TicketData &ticket = current().ticket();
    ticket.setMessage(text);
    if (ticket.isSendDisabled())
        throw CommandError(QStringLiteral("There is nothing to send"));
    m_hasReply = false;
    if (ticket.ticket())
        co_await ticket.sendMessage();
    else
        co_await ticket.createTicket();
}

QCoro::Task<> InteractiveMode::attach(QString path)
{
    TicketData &ticket = current().ticket();
    const AttachmentDto attachment = loadAttachment(path);
    ticket.setAttachments(ticket.attachments() + QList{attachment});
    m_terminal.print(QStringLiteral("📎 %1 (%2, %3 bytes)")
                         .arg(attachment.name, attachment.mimeType)
                         .arg(attachment.data.size()));
    co_return;
}

QCoro::Task<> InteractiveMode::refresh(QString)
{
    co_await current().ticket().silentFetchTicket();
}

std::span<const InteractiveMode::WaitCondition> InteractiveMode::waitConditions()
{
    using Mode = InteractiveMode;
    static constexpr std::array table = {
        WaitCondition{"", &Mode::hasReply},
        WaitCondition{"closed", &Mode::isConversationClosed},
        WaitCondition{"push", &Mode::consumePush},
    };
    return table;
}

bool InteractiveMode::hasReply()
{
    return m_hasReply;
}

bool InteractiveMode::isConversationClosed()
{
    return current().isClosed();
}

bool InteractiveMode::consumePush()
{
    return m_newPushes > 0 && m_newPushes-- > 0;
}

QCoro::Task<> InteractiveMode::wait(QString what)
{
    const auto condition =
        std::ranges::find_if(waitConditions(), [&what](const WaitCondition &entry) {
            return what == QLatin1String(entry.name);
        });
    if (condition == waitConditions().end())
        throw CommandError(QStringLiteral("Expected \"closed\", \"push\" or no argument"));
    constexpr int seconds = 30;
    for (int i = 0; i < seconds * 10; ++i) {
        if ((this->*condition->isMet)())
            co_return;
        QFuture<void> pause = platform().clock->sleep(100ms, {});
        co_await awaitFuture(pause);
    }
    throw CommandError(QStringLiteral("Nothing arrived within %1 seconds").arg(seconds));
}

QCoro::Task<> InteractiveMode::push(QString onOff)
{
    const bool on = switchOn(onOff);
    m_pushes.reset();
    if (!on)
        co_return;
    m_pushes = registerDevice();
    QObject::connect(m_pushes.get(), &PushChannel::pushed,
                     [this](const QVariantMap &payload) { onPush(payload); });
    QObject::connect(m_pushes.get(), &PushChannel::statusChanged, [this](const QString &text) {
        m_terminal.print(m_terminal.styled("2", text));
    });
}

QCoro::Task<> InteractiveMode::tap(QString)
{
    if (!m_lastPush)
        throw CommandError(QStringLiteral("No push has arrived; \"push on\" listens for pushes"));
    Tolvane::handlePushNotification(*m_lastPush);
    co_return;
}

QCoro::Task<> InteractiveMode::who(QString identity)
{
    if (!identity.isEmpty()) {
        const QString email = identity.section(QLatin1Char(' '), 0, 0);
        const QString id = identity.section(QLatin1Char(' '), 1).trimmed();
        QFuture<void> updated =
            Tolvane::updateCustomer(email, id.isEmpty() ? std::nullopt : std::optional(id));
        co_await awaitFuture(updated);
    }
    const auto orNone = [](const std::optional<QString> &text) {
        return text.value_or(QStringLiteral("none"));
    };
    m_terminal.print(QStringLiteral("Customer %1, the host's id: %2")
                         .arg(orNone(persistentstore::customerId()),
                              orNone(persistentstore::customerOriginalId())));
}

QCoro::Task<> InteractiveMode::log(QString onOff)
{
    Tolvane::enableLogging(switchOn(onOff));
    co_return;
}

QCoro::Task<> InteractiveMode::events(QString onOff)
{
    m_host.setAnalyticsDelegate(switchOn(onOff));
    co_return;
}

QCoro::Task<> InteractiveMode::quit(QString)
{
    m_queue.clear();
    m_hasEnded = true;
    co_return;
}

} // namespace tolvane::console
