// SPDX-License-Identifier: MIT
#pragma once

#include "testing/backendprogram.h"
#include "testing/faultproxy.h"
#include "testing/ui/uirobot.h"

#include <tolvane/analytics.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtQuick/QQuickView>

#include <memory>
#include <optional>
#include <random>

namespace tolvane::soak {

/// The resources of this process at one moment. Sizes are in kibibytes.
struct ResourceUsage
{
    /// Allocated and not freed.
    qint64 heap = 0;
    /// Pages in memory that no other process shares.
    qint64 privateMemory = 0;
    /// All pages in memory.
    qint64 residentMemory = 0;
    qint64 openFiles = 0;
    qint64 threads = 0;

    /// Measures after the allocator has returned its unused pages.
    static ResourceUsage now();
};

/// The minimum number of samples for hasGrown().
inline constexpr qsizetype minimumSamples = 8;

/// Prints a line of a table; a header precedes the first round.
void print(const ResourceUsage &usage, int round, double minute);

/// Compares the samples of the end with those after the warm-up, by the medians of a third of them
/// each, and prints the result. Returns whether any resource has grown beyond its tolerance.
bool hasGrown(const QList<ResourceUsage> &samples);

/// Counts the analytics events.
class EventCounter final : public TolvaneAnalyticsDelegate
{
public:
    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override { ++m_counts[event.name()]; }

    int count(const QString &name) const { return m_counts.value(name); }
    int failures() const;

private:
    QHash<QString, int> m_counts;
};

/// Repeats everything that a customer does with a host, and that can happen to a host. Throws
/// std::runtime_error if a step does not have its result.
class Rounds
{
public:
    /// @param folder where the backend keeps its data
    explicit Rounds(const QString &folder);

    QString url() const { return m_proxy.url(QStringLiteral("/api")); }
    const EventCounter &events() const { return *m_events; }
    void begin();

    /// Runs one round, from a new window to its closing. The library is idle afterwards.
    void run();

private:
    struct Step
    {
        const char *name;
        void (Rounds::*run)();
    };

    void runStep(const Step &step);
    void showWindow();
    void converse();
    void openPush();
    void injectFaults();
    void loseNetwork();
    void loseBackend();
    void closeWindow();
    void becomeIdle();

    void open();
    void back();
    void close();
    void openConversation();
    void write(const QString &text);
    void sendAgainAfter(const std::function<void()> &lose, const std::function<void()> &restore);
    QString nextText();

    const QString m_folder;
    std::optional<test::BackendProgram> m_backend;
    test::FaultProxy m_proxy;
    std::shared_ptr<EventCounter> m_events = std::make_shared<EventCounter>();
    std::unique_ptr<QQuickView> m_window;
    std::optional<test::UiRobot> m_robot;
    std::mt19937 m_random;
    int m_round = 0;
    int m_textCount = 0;
};

} // namespace tolvane::soak
