// SPDX-License-Identifier: MIT
#include "testing/ui/accessibilitybus.h"

#include <QtCore/QEventLoop>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusVariant>
#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace tolvane::test {

namespace {

const QString root = u"/org/a11y/atspi/accessible/root"_s;
const QString accessible = u"org.a11y.atspi.Accessible"_s;
constexpr uint showing = 1U << 25;

} // namespace

AccessibilityBus::AccessibilityBus()
{
    // QGuiApplication::exec() does this; tests do not call it, and the bridge needs it.
    QAccessible::setRootObject(qGuiApp);
    m_bus = QDBusConnection::sessionBus();
    const QString address =
        call(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s).toString();
    if (address.isEmpty()) {
        m_error = u"no accessibility bus: "_s + m_error;
        return;
    }
    m_bus = QDBusConnection::connectToBus(address, u"reader"_s);
    const auto isRegistered = [this] {
        const auto applications = children(u"org.a11y.atspi.Registry"_s, root);
        m_application = applications.isEmpty() ? QString() : applications.constFirst().first;
        return !applications.isEmpty();
    };
    if (!QTest::qWaitFor(isRegistered))
        m_error = u"this application is not on the accessibility bus"_s;
}

QVariant AccessibilityBus::call(const QString &service, const QString &path,
                                const QString &interface, const QString &member,
                                const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, member);
    message.setArguments(arguments);
    QDBusPendingCallWatcher watcher(m_bus.asyncCall(message, 10000));
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec();
    if (watcher.isError()) {
        m_error = member + u": "_s + watcher.error().message();
        return {};
    }
    return watcher.reply().arguments().value(0);
}

QList<std::pair<QString, QString>> AccessibilityBus::children(const QString &service,
                                                              const QString &path)
{
    QList<std::pair<QString, QString>> paths;
    const QVariant answer = call(service, path, accessible, u"GetChildren"_s);
    if (!answer.canConvert<QDBusArgument>())
        return paths;
    const auto list = answer.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString application;
        QDBusObjectPath child;
        list.beginStructure();
        list >> application >> child;
        list.endStructure();
        paths.emplaceBack(application, child.path());
    }
    list.endArray();
    return paths;
}

void AccessibilityBus::collect(const QString &path, QStringList &names)
{
    const QVariant state = call(m_application, path, accessible, u"GetState"_s);
    const auto states = qdbus_cast<QList<uint>>(state.value<QDBusArgument>());
    if (path != root && !(states.value(0) & showing))
        return;
    const QVariant name = call(m_application, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                               {accessible, u"Name"_s});
    if (path != root)
        names += name.value<QDBusVariant>().variant().toString();
    for (const auto &child : children(m_application, path))
        collect(child.second, names);
}

QStringList AccessibilityBus::names()
{
    QStringList names;
    collect(root, names);
    return names;
}

} // namespace tolvane::test
