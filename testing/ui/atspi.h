// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtDBus/QDBusConnection>

namespace tolvane::test {

/// One thing that assistive technology comes upon.
struct Heard
{
    QString path;
    QString name;
    /// As AT-SPI calls it, such as "push button".
    QString role;
    quint64 states = 0;
    /// On the screen.
    QRect place;
    /// Its place among all, -1 for the root.
    int parent = -1;

    bool isShown() const { return has(25); }
    bool isFocusable() const { return has(11); }
    bool isFocused() const { return has(12); }

private:
    bool has(int state) const { return states >> state & 1; }
};

/// What a screen reader is told of this very process over the accessibility bus. The process needs
/// a session bus, and QT_LINUX_ACCESSIBILITY_ALWAYS_ON.
class AtSpi
{
public:
    AtSpi();

    /// Why nothing can be heard; empty where it can.
    QString problem() const { return m_problem; }
    /// All that is shown, in the order in which it is read.
    QList<Heard> listen();
    /// What has the focus, the innermost; without a path where nothing has.
    Heard focus();

private:
    /// Waits in an event loop, in which this process answers as well.
    QVariant call(const QString &service, const QString &path, const QString &interface,
                  const QString &member, const QVariantList &arguments = {});
    QVariant property(const QString &path, const QString &name);
    QStringList children(const QString &service, const QString &path, QString *owner = nullptr);
    Heard look(const QString &path, int parent);
    void describe(Heard &heard);
    void collect(const QString &path, int parent, QList<Heard> &all);

    QDBusConnection m_bus{QString()};
    QString m_application;
    QString m_problem;
};

} // namespace tolvane::test
