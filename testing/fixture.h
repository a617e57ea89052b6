// SPDX-License-Identifier: MIT
#pragma once

#include "testing/replacements.h"

#include <QtCore/QHash>
#include <QtCore/QTemporaryDir>

namespace tolvane::test {

/// The library as in a new process, with replaced services, all on one thread. The destructor ends
/// all work, running polling loops included.
class Fixture
{
public:
    Fixture();
    ~Fixture();
    Fixture(const Fixture &) = delete;
    Fixture &operator=(const Fixture &) = delete;

    /// Sets the API key like a host, but without loading the settings.
    void setKey(const QString &key = QStringLiteral("secret-key"));

    InlineExecutor *workers;
    ManualClock *clock;
    MemoryPreferences *preferences;
    ScriptedSession *session;
    FakeDevice *device;
    FakeBundle *bundle;
    std::shared_ptr<LogLines> log = std::make_shared<LogLines>();
    QList<Broadcast> broadcasts;
    QHash<QString, QString> environment;
    std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();

private:
    QTemporaryDir m_caches;
    std::unique_ptr<Platform> m_previousPlatform;
};

/// A JSON response.
UrlResponse json(const QByteArray &body, int status = 200);

} // namespace tolvane::test
