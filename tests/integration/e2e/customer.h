// SPDX-License-Identifier: MIT
#pragma once

#include "pushclient.h"
#include "support.h"
#include "testing/ui/visitor.h"

#include <tolvane/tolvane.h>

#include <QtCore/QAbstractItemModel>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace tolvane::test {

using namespace Qt::StringLiterals;

/// The first thing below an item that has a list as its model whose rows have that role.
inline QAbstractItemModel *listWith(const QQuickItem *item, const QByteArray &role)
{
    auto *list = qobject_cast<QAbstractItemModel *>(item->property("model").value<QObject *>());
    if (list && list->roleNames().key(role, -1) >= 0)
        return list;
    for (const QQuickItem *child : item->childItems()) {
        if (QAbstractItemModel *found = listWith(child, role))
            return found;
    }
    return nullptr;
}

/// A host's window, its push service, and whoever sits in front of it.
class Customer
{
public:
    explicit Customer(const QString &backend)
        : pushes(QUrl(backend + u"/push/"_s + QString::fromLatin1(token.toHex())))
        , visitor(window)
    {
        QObject::connect(&pushes, &PushClient::pushed, &support, &Support::receive);
        window.resize(412, 1400);
        window.show();
        window.requestActivate();
        Tolvane::initialize(u"key"_s);
        Tolvane::setDeviceToken(token);
        support.open();
    }

    void sees(QAccessible::Role role, const QString &name) { visitor.find(role, name); }
    void clicks(QAccessible::Role role, const QString &name)
    {
        visitor.click(visitor.find(role, name));
    }
    void goesBack() { visitor.press(Qt::Key_Escape); }
    void pastes(const QImage &image)
    {
        QGuiApplication::clipboard()->setImage(image);
        visitor.press(Qt::Key_V, Qt::ControlModifier);
        sees(QAccessible::Button, u"Remove"_s);
    }
    void says(const QString &text)
    {
        clicks(QAccessible::EditableText, {});
        visitor.type(text);
        clicks(QAccessible::Button, u"Send"_s);
    }

    /// A column of the first list in the window whose rows have that role.
    QStringList column(const QByteArray &rolesOfList, const QByteArray &role) const
    {
        QStringList texts;
        if (const QAbstractItemModel *list = listWith(window.contentItem(), rolesOfList)) {
            for (int row = 0; row < list->rowCount(); ++row)
                texts += list->index(row, 0).data(list->roleNames().key(role)).toString();
        }
        return texts;
    }
    /// What was said in the open conversation, each message as it is read aloud.
    QStringList conversation() const { return column("isFirst", "description"); }
    /// The last message of each ticket, also while the list is covered.
    QStringList tickets() const { return column("preview", "content"); }

    const QByteArray token = "a device";
    QQuickWindow window;
    Support support;
    PushClient pushes;
    Visitor visitor;
};

} // namespace tolvane::test
