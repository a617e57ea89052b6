// SPDX-License-Identifier: MIT
#include "interactive/interactivemode.h"

#include "base/errors.h"
#include "host/attachments.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"

#include <tolvane/tolvane.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace tolvane::console {

InteractiveMode::InteractiveMode()
    : m_terminal([this](const QString &line) { enqueue(line); }, [this] { end(); })
    , m_host((installPlatform(*this), *this))
{
    if (m_terminal.isInteractive()) {
        m_terminal.print(QStringLiteral("tolvane-console: a host application without a window. "
                                        "\"help\" lists the commands, \"init\" starts."));
    }
}

void InteractiveMode::enqueue(const QString &line)
{
    m_queue += line.trimmed();
    if (!m_isRunning)
        detach(runQueue());
}

void InteractiveMode::end()
{
    m_hasEnded = true;
    if (!m_isRunning)
        QCoreApplication::exit(m_hasFailed ? 1 : 0);
}

QCoro::Task<> InteractiveMode::runQueue()
{
    m_isRunning = true;
    while (!m_queue.isEmpty()) {
        const QString line = m_queue.takeFirst();
        QString message;
        try {
            co_await run(line);
        } catch (const CommandError &error) {
            message = error.text();
        } catch (...) {
            message = currentError()->localizedDescription();
        }
        if (message.isEmpty())
            continue;
        m_terminal.print(m_terminal.styled("31", QStringLiteral("! ") + message));
        // At a terminal the user reads the error and continues; a script has to fail.
        m_hasFailed = !m_terminal.isInteractive();
        if (m_hasFailed)
            m_queue.clear();
    }
    m_isRunning = false;
    if (m_hasEnded || m_hasFailed)
        end();
}

void InteractiveMode::enter(int handle)
{
    close();
    m_handle = handle;
    m_hasReply = false;
    m_conversation = std::make_unique<Conversation>(m_terminal, m_host.ticket(handle));
    QObject::connect(m_conversation.get(), &Conversation::replied, [this] { m_hasReply = true; });
    Host::setOpen(true);
}

void InteractiveMode::close()
{
    m_conversation.reset();
    if (m_handle)
        m_host.close(*m_handle);
    m_handle.reset();
}

Conversation &InteractiveMode::current() const
{
    if (!m_conversation)
        throw CommandError(
            QStringLiteral("No conversation is open: \"open\" one or begin a \"new\""));
    return *m_conversation;
}

void InteractiveMode::onLog(LogType, const QString &line)
{
    // Called on any thread; the terminal is used on the main thread only.
    platform().mainThread->post([this, line] { m_terminal.print(m_terminal.styled("2", line)); });
}

void InteractiveMode::onEvent(const TolvaneAnalyticsEvent &event)
{
    const QJsonDocument properties(QJsonObject::fromVariantMap(event.properties()));
    m_terminal.print(m_terminal.styled(
        "2", QStringLiteral("event %1 %2")
                 .arg(event.name(), QString::fromUtf8(properties.toJson(QJsonDocument::Compact)))));
}

void InteractiveMode::onBroadcast(const QString &, const NotificationCenter::UserInfo &)
{
    // The open conversation prints the change.
}

void InteractiveMode::onPush(const QVariantMap &payload)
{
    m_lastPush = payload;
    ++m_newPushes;
    const PresentationOptions options = Tolvane::willPresentNotification(payload);
    m_terminal.print(m_terminal.styled("33", pushText(payload, options)));
}

void InteractiveMode::onPresentation()
{
    m_terminal.print(QStringLiteral("(the messenger would open here)"));
}

} // namespace tolvane::console
