// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "platform/system/librarytexts.h"

#include <tolvane/analytics.h>

#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <vector>

/// Services that take the place of the platform's where time, the network, the disk and the device
/// have to do as they are told: in tests, and in whatever else drives the library.
namespace tolvane::test {

/// Time that passes only when a test says so. Sleepers wake in the order of their time.
class ManualClock final : public Clock
{
public:
    QDateTime now() const override;
    Instant monotonicNow() const override { return m_now; }
    QFuture<void> sleep(Duration duration, std::stop_token stop) override;

    /// Lets time pass, waking sleepers on the way and letting the event loop settle after each.
    void advance(Duration duration);

    /// How long each sleep so far was asked to be, in seconds.
    const QList<double> &requestedSleeps() const { return m_requestedSleeps; }
    int sleeperCount() const;

private:
    struct Sleeper;

    Instant m_now{};
    std::vector<std::shared_ptr<Sleeper>> m_sleepers;
    QList<double> m_requestedSleeps;
};

/// Preferences in memory, which can also fail to open.
class MemoryPreferences final : public Preferences
{
public:
    std::unique_ptr<PreferencesDomain> open(const QString &name) const override;

    bool canOpen = true;
    /// By "domain/key"; shared with the open domains.
    std::shared_ptr<QVariantMap> values = std::make_shared<QVariantMap>();
};

/// Answers requests by a function instead of a network, and remembers them. Each answer comes with
/// the next turn of the event loop, or when the test lets it go.
class ScriptedSession final : public UrlSession
{
public:
    using Handler = std::function<UrlResponse(const UrlRequest &)>;

    QFuture<UrlResponse> send(std::function<UrlRequest()> build) override;

    /// Gives the response or throws an error.
    Handler handler;
    /// While true answers are held back, until release().
    bool held = false;
    void release();

    QList<UrlRequest> requests;

private:
    std::vector<std::function<void()>> m_pending;
};

/// Keeps the log's lines.
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

/// Texts are their keys, or those of a language.
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
        hostKeys += key;
        return dressed(key);
    }
    /// The keys of the host's texts that were looked up.
    mutable QSet<QString> hostKeys;
    Qt::LayoutDirection layoutDirection() const override { return direction; }

    /// Has the texts of a language in the place of the keys, and its direction.
    void speak(const QString &language);

    std::optional<QString> version;
    std::optional<QString> build;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    std::unique_ptr<const LibraryTexts> texts;
    /// What becomes of each text, where it is not to stay as it is.
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

/// The host's delegate, keeping the events.
struct RecordingDelegate final : TolvaneAnalyticsDelegate
{
    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override { events.append(event); }

    QStringList names() const;
    /// Properties of the first event of that name; empty without one.
    QVariantMap properties(const QString &name) const;

    QList<TolvaneAnalyticsEvent> events;
};

/// Work where it is posted: what the worker pool does is done before the caller goes on.
class InlineExecutor final : public Executor
{
public:
    void post(std::function<void()> work) override { work(); }
};

/// Broadcasts, and keeps what was broadcast.
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

/// A log that keeps its lines.
std::unique_ptr<LogSink> makeCapturingSink(std::shared_ptr<LogLines> lines);

/// Runs the event loop until nothing is left to do at this moment.
void settle();

} // namespace tolvane::test
