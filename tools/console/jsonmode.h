// SPDX-License-Identifier: MIT
#pragma once

#include "commands.h"
#include "host.h"
#include "linesource.h"

namespace tolvane::console {

/// The face for scripts: one JSON object a line in and out.
class JsonFace final : public Listener
{
public:
    JsonFace();

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
