// SPDX-License-Identifier: MIT
#pragma once

#include "host/host.h"
#include "host/pushchannel.h"
#include "interactive/conversation.h"
#include "io/terminal.h"

#include <QCoroTask>
#include <QtCore/QStringList>

#include <memory>
#include <optional>
#include <span>

namespace tolvane::console {

/// The interactive mode: short commands and readable output. Commands run one after the other; the
/// process ends at the end of input or at "quit".
class InteractiveMode final : public Listener
{
public:
    InteractiveMode();

    void onLog(LogType type, const QString &line) override;
    void onEvent(const TolvaneAnalyticsEvent &event) override;
    void onBroadcast(const QString &name, const NotificationCenter::UserInfo &userInfo) override;
    void onPresentation() override;

private:
    struct Command;
    static std::span<const Command> commands();

    void enqueue(const QString &line);
    void end();
    QCoro::Task<> runQueue();
    QCoro::Task<> run(QString line);
    void enter(int handle);
    void close();
    Conversation &current() const;
    void onPush(const QVariantMap &payload);

    struct WaitCondition;
    static std::span<const WaitCondition> waitConditions();
    bool hasReply();
    bool isConversationClosed();
    bool consumePush();

    QCoro::Task<> help(QString);
    QCoro::Task<> init(QString key);
    QCoro::Task<> environment(QString name);
    QCoro::Task<> list(QString);
    QCoro::Task<> openTicket(QString number);
    QCoro::Task<> newTicket(QString);
    QCoro::Task<> leave(QString);
    QCoro::Task<> say(QString text);
    QCoro::Task<> attach(QString path);
    QCoro::Task<> refresh(QString);
    QCoro::Task<> wait(QString what);
    QCoro::Task<> push(QString onOff);
    QCoro::Task<> tap(QString);
    QCoro::Task<> who(QString identity);
    QCoro::Task<> log(QString onOff);
    QCoro::Task<> events(QString onOff);
    QCoro::Task<> quit(QString);

    Terminal m_terminal;
    Host m_host;
    std::unique_ptr<Conversation> m_conversation;
    std::optional<int> m_handle;
    std::unique_ptr<PushChannel> m_pushes;
    std::optional<QVariantMap> m_lastPush;
    /// Pushes that no "wait push" has consumed yet.
    int m_newPushes = 0;
    QStringList m_queue;
    bool m_isRunning = false;
    bool m_hasEnded = false;
    bool m_hasFailed = false;
    bool m_hasReply = false;
};

} // namespace tolvane::console
