// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// What a text editor needs and QML has no words for.
class Editing : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Has an editor draw what is in sight of its flickable, whatever else it holds: a megabyte of
    /// text would take seconds a frame. The editor sees to that itself for texts that are set, not
    /// for those that are pasted.
    Q_INVOKABLE void drawOnlyWhatIsInSight(QQuickItem *editor)
    {
        editor->setFlag(QQuickItem::ItemObservesViewport);
    }

    /// Makes what the input method is still composing a part of the text.
    Q_INVOKABLE void commit() { QGuiApplication::inputMethod()->commit(); }
};

} // namespace tolvane
