// SPDX-License-Identifier: MIT
#pragma once

#include "host/host.h"
#include "io/linesource.h"
#include "json/commands.h"

namespace tolvane::console {

/// The mode for scripts: one JSON object per line, in both directions.
class JsonMode final : public Listener
{
public:
    JsonMode();

    void onLog(LogType type, const QString &line) override;
    void onEvent(const TolvaneAnalyticsEvent &event) override;
    void onBroadcast(const QString &name, const NotificationCenter::UserInfo &userInfo) override;
    void onPresentation() override;

private:
    void handle(const QByteArray &line);
    QCoro::Task<> serve(QJsonValue id, const Command *command, Arguments arguments);

    Host m_host;
    LineSource m_lines;
};

} // namespace tolvane::console
