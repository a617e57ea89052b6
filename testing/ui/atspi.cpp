// SPDX-License-Identifier: MIT
#include "testing/ui/atspi.h"

#include <QtCore/QEventLoop>
#include <QtCore/QStringList>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>
#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace tolvane::test {

namespace {

const QString root = u"/org/a11y/atspi/accessible/root"_s;
const QString accessible = u"org.a11y.atspi.Accessible"_s;

/// Of an answer; an empty one where there was none.
template <typename Value>
Value value(const QVariant &answer)
{
    return answer.canConvert<QDBusArgument>() ? qdbus_cast<Value>(answer.value<QDBusArgument>())
                                              : Value();
}

} // namespace

AtSpi::AtSpi()
{
    // As exec() does, which tests have none of: whence the platform tells of anything at all.
    QAccessible::setRootObject(qGuiApp);
    m_bus = QDBusConnection::sessionBus();
    const QString address =
        call(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s).toString();
    if (address.isEmpty()) {
        m_problem = u"no accessibility bus: "_s + m_problem;
        return;
    }
    m_bus = QDBusConnection::connectToBus(address, u"listener"_s);
    const auto isRegistered = [this] {
        return !children(u"org.a11y.atspi.Registry"_s, root, &m_application).isEmpty();
    };
    if (!QTest::qWaitFor(isRegistered))
        m_problem = u"this application is not on the accessibility bus"_s;
}

QVariant AtSpi::call(const QString &service, const QString &path, const QString &interface,
                     const QString &member, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, member);
    message.setArguments(arguments);
    QDBusPendingCallWatcher watcher(m_bus.asyncCall(message, 10000));
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec();
    if (watcher.isError()) {
        m_problem = member + u": "_s + watcher.error().message();
        return {};
    }
    return watcher.reply().arguments().value(0);
}

QVariant AtSpi::property(const QString &path, const QString &name)
{
    const QVariant value = call(m_application, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                                {accessible, name});
    return value.value<QDBusVariant>().variant();
}

QStringList AtSpi::children(const QString &service, const QString &path, QString *owner)
{
    const QVariant answer = call(service, path, accessible, u"GetChildren"_s);
    QStringList paths;
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
        paths += child.path();
        if (owner)
            *owner = application;
    }
    list.endArray();
    return paths;
}

Heard AtSpi::look(const QString &path, int parent)
{
    Heard heard;
    heard.path = path;
    heard.parent = parent;
    const auto states = value<QList<uint>>(call(m_application, path, accessible, u"GetState"_s));
    if (states.size() == 2)
        heard.states = states.at(0) | quint64(states.at(1)) << 32;
    return heard;
}

void AtSpi::describe(Heard &heard)
{
    heard.name = property(heard.path, u"Name"_s).toString();
    heard.role = call(m_application, heard.path, accessible, u"GetRoleName"_s).toString();
    // The application itself has none.
    if (heard.parent >= 0) {
        heard.place = value<QRect>(
            call(m_application, heard.path, u"org.a11y.atspi.Component"_s, u"GetExtents"_s, {0U}));
    }
}

void AtSpi::collect(const QString &path, int parent, QList<Heard> &all)
{
    const Heard heard = look(path, parent);
    if (parent >= 0 && !heard.isShown())
        return;
    const int index = int(all.size());
    all += heard;
    for (const QString &child : children(m_application, path))
        collect(child, index, all);
}

QList<Heard> AtSpi::listen()
{
    QList<Heard> all;
    collect(root, -1, all);
    for (Heard &heard : all)
        describe(heard);
    return all;
}

Heard AtSpi::focus()
{
    QList<Heard> all;
    collect(root, -1, all);
    for (auto heard = all.rbegin(); heard != all.rend(); ++heard) {
        if (heard->isFocused()) {
            describe(*heard);
            return *heard;
        }
    }
    return {};
}

} // namespace tolvane::test
