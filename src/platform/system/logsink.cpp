// SPDX-License-Identifier: MIT
#include "platform/system/logsink.h"

#include <QtCore/QLoggingCategory>

#include <array>

namespace tolvane {

namespace {

constexpr std::array messageTypes = {QtDebugMsg, QtInfoMsg, QtWarningMsg, QtCriticalMsg};

class LoggingCategorySink final : public LogSink
{
public:
    LoggingCategorySink(const QString &subsystem, const QString &category)
        : m_name((subsystem + QLatin1Char('.') + category).toUtf8())
        , m_category(m_name.constData())
    {
    }

    bool isEnabled(LogType type) const override { return m_category.isEnabled(messageType(type)); }

    void write(LogType type, const QString &line) override
    {
        // Passed as an argument, because the text may contain format specifiers.
        const QMessageLogContext context(nullptr, 0, nullptr, m_name.constData());
        qt_message_output(messageType(type), context, line);
    }

private:
    static QtMsgType messageType(LogType type)
    {
        return messageTypes.at(static_cast<std::size_t>(type));
    }

    const QByteArray m_name;
    const QLoggingCategory m_category;
};

} // namespace

std::unique_ptr<LogSink> makeLoggingCategorySink(const QString &subsystem, const QString &category)
{
    return std::make_unique<LoggingCategorySink>(subsystem, category);
}

} // namespace tolvane
