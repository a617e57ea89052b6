// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>

namespace tolvane::test {

/// Reads this process's elements over the accessibility bus (AT-SPI), like a screen reader. The
/// process needs a session bus and QT_LINUX_ACCESSIBILITY_ALWAYS_ON.
class AccessibilityBus
{
public:
    AccessibilityBus();

    /// Why nothing can be read; empty if all is well.
    QString error() const { return m_error; }
    /// The names of all showing elements in reading order.
    QStringList names();

private:
    /// Waits in an event loop, in which this process answers the call.
    QVariant call(const QString &service, const QString &path, const QString &interface,
                  const QString &member, const QVariantList &arguments = {});
    /// Paths of the children, each with its bus name.
    QList<std::pair<QString, QString>> children(const QString &service, const QString &path);
    void collect(const QString &path, QStringList &names);

    QDBusConnection m_bus{QString()};
    QString m_application;
    QString m_error;
};

} // namespace tolvane::test
