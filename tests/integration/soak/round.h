// SPDX-License-Identifier: MIT
#pragma once

#include "testing/backendprogram.h"
#include "testing/faultproxy.h"
#include "testing/ui/visitor.h"

#include <tolvane/analytics.h>

#include <QtCore/QHash>
#include <QtQuick/QQuickView>

#include <memory>
#include <optional>
#include <random>

namespace tolvane::soak {

/// Counts what the library tells its host.
class Tally final : public TolvaneAnalyticsDelegate
{
public:
    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override { ++m_counts[event.name()]; }

    int count(const QString &name) const { return m_counts.value(name); }
    int failures() const;

private:
    QHash<QString, int> m_counts;
};

/// What a customer does with a host and what may happen to them, over and over. Throws NotFound
/// where something was to be seen and is not.
class Rounds
{
public:
    /// @param folder where the backend keeps its data
    explicit Rounds(const QString &folder);

    QString url() const { return m_proxy.url(QStringLiteral("/api")); }
    const Tally &tally() const { return *m_tally; }
    void begin();

    /// One round, from a new window to its end; all is at rest afterwards.
    void run();

private:
    struct Step
    {
        const char *name;
        void (Rounds::*run)();
    };

    void take(const Step &step);
    void showWindow();
    void talk();
    void answerPush();
    void weatherStorm();
    void loseTheNetwork();
    void loseTheBackend();
    void killAnother();
    void closeTheWindow();
    void rest();

    void open();
    void back();
    void close();
    void enterConversation();
    void write(const QString &text);
    void sendAgainAfter(const std::function<void()> &lose, const std::function<void()> &regain);
    QString newText();

    const QString m_folder;
    std::optional<test::BackendProgram> m_backend;
    test::FaultProxy m_proxy;
    std::shared_ptr<Tally> m_tally = std::make_shared<Tally>();
    std::unique_ptr<QQuickView> m_window;
    std::optional<Visitor> m_visitor;
    std::mt19937 m_random;
    QString m_customer;
    int m_round = 0;
    int m_texts = 0;
};

} // namespace tolvane::soak
