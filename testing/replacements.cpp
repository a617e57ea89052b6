// SPDX-License-Identifier: MIT
#include "testing/replacements.h"

#include "platform/async/awaitfuture.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QPromise>
#include <QtCore/QTimeZone>

#include <algorithm>

namespace tolvane::test {

namespace {

class CapturingSink final : public LogSink
{
public:
    explicit CapturingSink(std::shared_ptr<LogLines> lines)
        : m_lines(std::move(lines))
    {
    }

    bool isEnabled(LogType type) const override { return !m_lines->disabledTypes.contains(type); }

    void write(LogType type, const QString &line) override
    {
        // The only line that may contain texts of people is the log of a push from the host.
        const bool isPush = line.contains(QLatin1String("Handle push notification: "));
        for (const char *secret : {"secret-key", "text of ", "name of "}) {
            if (!isPush && line.contains(QLatin1String(secret)))
                qFatal("A secret is logged: %s", qPrintable(line));
        }
        m_lines->types.append(type);
        m_lines->lines.append(line);
    }

private:
    std::shared_ptr<LogLines> m_lines;
};

class MemoryDomain final : public PreferencesDomain
{
public:
    MemoryDomain(QString name, std::shared_ptr<QVariantMap> values)
        : m_name(std::move(name))
        , m_values(std::move(values))
    {
    }

    std::optional<QString> text(const QString &key) const override { return read<QString>(key); }
    std::optional<QByteArray> bytes(const QString &key) const override
    {
        return read<QByteArray>(key);
    }
    void setText(const QString &key, const std::optional<QString> &value) override
    {
        write(key, value);
    }
    void setBytes(const QString &key, const std::optional<QByteArray> &value) override
    {
        write(key, value);
    }
    std::optional<QString> exchangeText(const QString &key, const std::optional<QString> &expected,
                                        const QString &value) override
    {
        if (text(key) == expected)
            setText(key, value);
        return text(key);
    }

private:
    QString path(const QString &key) const { return m_name + QLatin1Char('/') + key; }

    template <typename T>
    std::optional<T> read(const QString &key) const
    {
        const QVariant value = m_values->value(path(key));
        return value.typeId() == qMetaTypeId<T>() ? std::optional(value.value<T>()) : std::nullopt;
    }

    template <typename T>
    void write(const QString &key, const std::optional<T> &value)
    {
        if (value)
            m_values->insert(path(key), *value);
        else
            m_values->remove(path(key));
    }

    QString m_name;
    std::shared_ptr<QVariantMap> m_values;
};

} // namespace

struct ManualClock::Sleeper
{
    struct Stop
    {
        Sleeper *sleeper;
        void operator()() const { sleeper->end(true); }
    };

    void end(bool cancelled)
    {
        if (std::exchange(ended, true))
            return;
        if (cancelled)
            promise.setException(std::make_exception_ptr(CancellationError()));
        promise.finish();
    }

    Instant time;
    QPromise<void> promise;
    bool ended = false;
    std::optional<std::stop_callback<Stop>> onStop;
};

void FakeBundle::speak(const QString &language)
{
    texts = std::make_unique<const LibraryTexts>(QStringList(language));
    direction = texts->direction();
}

QDateTime ManualClock::now() const
{
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(m_now - Instant());
    return QDateTime(QDate(2026, 3, 14), QTime(12, 0), QTimeZone::utc()).addMSecs(passed.count());
}

QFuture<void> ManualClock::sleep(Duration duration, std::stop_token stop)
{
    m_requestedSleeps.append(std::chrono::duration<double>(duration).count());
    auto sleeper = std::make_shared<Sleeper>();
    sleeper->time = m_now + duration;
    sleeper->promise.start();
    sleeper->onStop.emplace(stop, Sleeper::Stop{sleeper.get()});
    m_sleepers.push_back(sleeper);
    return sleeper->promise.future();
}

void ManualClock::advance(Duration duration)
{
    const Instant end = m_now + duration;
    settle();
    for (;;) {
        std::erase_if(m_sleepers, [](const auto &sleeper) { return sleeper->ended; });
        const auto next = std::ranges::min_element(
            m_sleepers, {}, [](const auto &sleeper) { return sleeper->time; });
        if (next == m_sleepers.end() || (*next)->time > end)
            break;
        const auto sleeper = *next;
        m_now = std::max(m_now, sleeper->time);
        sleeper->end(false);
        settle();
    }
    m_now = end;
}

int ManualClock::sleeperCount() const
{
    return static_cast<int>(
        std::ranges::count_if(m_sleepers, [](const auto &sleeper) { return !sleeper->ended; }));
}

std::unique_ptr<PreferencesDomain> MemoryPreferences::open(const QString &name) const
{
    return canOpen ? std::make_unique<MemoryDomain>(name, values) : nullptr;
}

QFuture<UrlResponse> ScriptedSession::send(std::function<UrlRequest()> build)
{
    const UrlRequest request = build();
    requests.append(request);
    auto promise = std::make_shared<QPromise<UrlResponse>>();
    promise->start();
    auto respond = [this, promise, request] {
        try {
            promise->addResult(handler(request));
        } catch (...) {
            promise->setException(std::current_exception());
        }
        promise->finish();
    };
    if (held)
        m_pending.push_back(respond);
    else
        platform().mainThread->post(respond);
    return promise->future();
}

void ScriptedSession::release()
{
    held = false;
    for (const auto &respond : std::exchange(m_pending, {}))
        respond();
    settle();
}

QStringList RecordingDelegate::names() const
{
    QStringList names;
    for (const TolvaneAnalyticsEvent &event : events)
        names += event.name();
    return names;
}

QVariantMap RecordingDelegate::properties(const QString &name) const
{
    for (const TolvaneAnalyticsEvent &event : events) {
        if (event.name() == name)
            return event.properties();
    }
    return {};
}

void RecordingCenter::post(const QString &name, const UserInfo &userInfo)
{
    m_broadcasts.append({name, userInfo.dictionary()});
    NotificationCenter::post(name, userInfo);
}

std::unique_ptr<LogSink> makeCapturingSink(std::shared_ptr<LogLines> lines)
{
    return std::make_unique<CapturingSink>(std::move(lines));
}

void settle()
{
    // Events may post further events; the limit keeps an endless loop from hanging the test.
    for (int turn = 0; turn < 50; ++turn)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace tolvane::test
