// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "platform/system/librarytexts.h"

#include <tolvane/analytics.h>

#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <vector>

/// Replacements for the platform's services, with controllable time, network, storage and device,
/// for tests and other programs that drive the library.
namespace tolvane::test {

/// Time that passes only in advance(). Sleeps end in the order of their time.
class ManualClock final : public Clock
{
public:
    QDateTime now() const override;
    Instant monotonicNow() const override { return m_now; }
    QFuture<void> sleep(Duration duration, std::stop_token stop) override;

    /// Advances the time. Ends each sleep at its time and processes events after each.
    void advance(Duration duration);

    /// The durations of all sleeps so far, in seconds.
    const QList<double> &requestedSleeps() const { return m_requestedSleeps; }
    int sleeperCount() const;

private:
    struct Sleeper;

    Instant m_now{};
    std::vector<std::shared_ptr<Sleeper>> m_sleepers;
    QList<double> m_requestedSleeps;
};

/// Preferences in memory, for which opening can be made to fail.
class MemoryPreferences final : public Preferences
{
public:
    std::unique_ptr<PreferencesDomain> open(const QString &name) const override;

    bool canOpen = true;
    /// By "domain/key"; shared with the open domains.
    std::shared_ptr<QVariantMap> values = std::make_shared<QVariantMap>();
};

/// Records requests and answers them with a function instead of the network. Each response arrives
/// in the next iteration of the event loop, or when release() is called.
class ScriptedSession final : public UrlSession
{
public:
    using Handler = std::function<UrlResponse(const UrlRequest &)>;

    QFuture<UrlResponse> send(std::function<UrlRequest()> build) override;

    /// Returns the response or throws an error.
    Handler handler;
    /// While true, responses wait for release().
    bool held = false;
    void release();

    QList<UrlRequest> requests;

private:
    std::vector<std::function<void()>> m_pending;
};

/// The captured lines of a log. Lines of disabled types are not written.
struct LogLines
{
    QStringList lines;
    QList<LogType> types;
    QList<LogType> disabledTypes;
};

struct FakeDevice final : Device
{
    QString model() const override { return QStringLiteral("Test Model"); }
    QString name() const override { return QStringLiteral("Test Name"); }
    QString systemVersion() const override { return QStringLiteral("12.4"); }
    float batteryLevel() const override { return level; }
    BatteryState batteryState() const override { return state; }
    QSizeF screenSize() const override { return screen; }
    QString localeIdentifier() const override { return QStringLiteral("de_AT"); }
    QString timeZoneIdentifier() const override { return timeZone; }

    float level = -1;
    BatteryState state = BatteryState::unknown;
    QSizeF screen = {390.9, 844.2};

    QString timeZone = QStringLiteral("Europe/Vienna");
};

/// Returns keys as texts, or the texts of a language.
struct FakeBundle final : Bundle
{
    std::optional<QString> hostVersion() const override { return version; }
    std::optional<QString> hostBuild() const override { return build; }
    QString string(const QString &key) const override
    {
        return dressed(texts ? texts->text(key) : key);
    }
    QString string(const QString &key, qint64 count) const override
    {
        return dressed(texts ? texts->text(key, count)
                             : QString::number(count) + QLatin1Char(' ') + key);
    }
    QString hostString(const QString &key) const override
    {
        return dressed(texts ? texts->text(QStringLiteral("host_") + key) : key);
    }
    Qt::LayoutDirection layoutDirection() const override { return direction; }
    QLocale locale() const override { return texts ? texts->locale() : QLocale::c(); }

    /// Replaces the keys with the texts of a language, and uses its layout direction.
    void speak(const QString &language);

    std::optional<QString> version;
    std::optional<QString> build;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    std::unique_ptr<const LibraryTexts> texts;
    /// Transforms each text, if set.
    std::function<QString(const QString &text)> dress;

private:
    QString dressed(const QString &text) const { return dress ? dress(text) : text; }
};

/// One broadcast as it was posted.
struct Broadcast
{
    QString name;
    std::optional<QVariantMap> userInfo;
};

/// A host's delegate that records the events.
struct RecordingDelegate final : TolvaneAnalyticsDelegate
{
    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override { events.append(event); }

    QStringList names() const;
    /// Properties of the first event of that name; empty without one.
    QVariantMap properties(const QString &name) const;

    QList<TolvaneAnalyticsEvent> events;
};

/// Processes all pending events, including those that they post, up to a limit.
void settle();

/// Runs work synchronously in post(), in place of the worker pool.
class InlineExecutor final : public Executor
{
public:
    void post(std::function<void()> work) override { isHeld ? void(held += work) : work(); }
    void run(qsizetype index)
    {
        held.takeAt(index)();
        settle();
    }

    /// While true, work waits for run().
    bool isHeld = false;
    QList<std::function<void()>> held;
};

/// Posts broadcasts and records them.
class RecordingCenter final : public NotificationCenter
{
public:
    RecordingCenter(Executor &mainThread, QList<Broadcast> &broadcasts)
        : NotificationCenter(mainThread)
        , m_broadcasts(broadcasts)
    {
    }

    void post(const QString &name, const UserInfo &userInfo) override;

private:
    QList<Broadcast> &m_broadcasts;
};

/// A log that appends to `lines`.
std::unique_ptr<LogSink> makeCapturingSink(std::shared_ptr<LogLines> lines);

} // namespace tolvane::test
