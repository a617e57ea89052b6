// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// Functions for a text editor that QML does not provide.
class TextEditHelper : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Makes an editor draw only the text that its Flickable shows: a megabyte of text would take
    /// seconds a frame. TextEdit does so by itself for text that is set, but not for text that is
    /// pasted.
    Q_INVOKABLE void observeViewport(QQuickItem *editor)
    {
        editor->setFlag(QQuickItem::ItemObservesViewport);
    }

    /// Makes the text that the input method is composing a part of the editor's text.
    Q_INVOKABLE void commit() { QGuiApplication::inputMethod()->commit(); }
};

} // namespace tolvane
