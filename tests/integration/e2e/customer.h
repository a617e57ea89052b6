// SPDX-License-Identifier: MIT
#pragma once

#include "pushes.h"
#include "support.h"
#include "testing/ui/uirobot.h"

#include <tolvane/tolvane.h>

#include <QtCore/QAbstractItemModel>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace tolvane::test {

using namespace Qt::StringLiterals;

/// The model of an item, or of its first descendant, whose model has the role.
inline QAbstractItemModel *modelWithRole(const QQuickItem *item, const QByteArray &role)
{
    auto *list = qobject_cast<QAbstractItemModel *>(item->property("model").value<QObject *>());
    if (list && list->roleNames().key(role, -1) >= 0)
        return list;
    for (const QQuickItem *child : item->childItems()) {
        if (QAbstractItemModel *found = modelWithRole(child, role))
            return found;
    }
    return nullptr;
}

/// A host's window with its push service, and the customer who uses it. TOLVANE_API_URL must be
/// set.
class Customer
{
public:
    Customer()
        : robot(window)
    {
        window.resize(412, 1400);
        window.show();
        window.requestActivate();
        Tolvane::initialize(u"key"_s);
        pushes = Pushes::listen(u"de71ce"_s, support);
        Tolvane::open();
    }

    void sees(QAccessible::Role role, const QString &name) { robot.find(role, name); }
    void clicks(QAccessible::Role role, const QString &name)
    {
        robot.click(robot.find(role, name));
    }
    void goesBack() { robot.press(Qt::Key_Escape); }
    void pastes(const QImage &image)
    {
        QGuiApplication::clipboard()->setImage(image);
        robot.press(Qt::Key_V, Qt::ControlModifier);
        sees(QAccessible::Button, u"Remove"_s);
    }
    void says(const QString &text)
    {
        clicks(QAccessible::EditableText, {});
        robot.type(text);
        clicks(QAccessible::Button, u"Send"_s);
    }

    /// The values of `role` in the first model in the window that has the role `knownRole`.
    QStringList column(const QByteArray &knownRole, const QByteArray &role) const
    {
        QStringList texts;
        if (const QAbstractItemModel *list = modelWithRole(window.contentItem(), knownRole)) {
            for (int row = 0; row < list->rowCount(); ++row)
                texts += list->index(row, 0).data(list->roleNames().key(role)).toString();
        }
        return texts;
    }
    /// The messages of the open conversation, as screen readers read them.
    QStringList conversation() const { return column("isFirst", "description"); }
    /// The last message of each ticket, even while the list is covered.
    QStringList tickets() const { return column("preview", "content"); }

    QQuickWindow window;
    Support support;
    std::unique_ptr<Pushes> pushes;
    UiRobot robot;
};

} // namespace tolvane::test
