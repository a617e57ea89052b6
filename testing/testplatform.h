// SPDX-License-Identifier: MIT
#pragma once

#include "testing/replacements.h"

#include <QtCore/QHash>
#include <QtCore/QTemporaryDir>

namespace tolvane::test {

/// A library as a new process would find it, standing on replaceable services, all on one thread.
/// Everything ends with the fixture, running polling loops included.
class Fixture
{
public:
    Fixture();
    ~Fixture();
    Fixture(const Fixture &) = delete;
    Fixture &operator=(const Fixture &) = delete;

    /// Sets the key as a host would have, without the settings' load.
    void setKey(const QString &key = QStringLiteral("key"));

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
    std::unique_ptr<Platform> m_before;
};

/// A JSON response.
UrlResponse json(const QByteArray &body, int status = 200);

} // namespace tolvane::test
