// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// Functions of text editors that are missing in QML.
class TextEditHelper : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Makes an editor draw only the text that its Flickable shows: a megabyte of text would take
    /// seconds per frame. TextEdit does so by itself for a long `text`, but not for pasted text.
    Q_INVOKABLE void observeViewport(QQuickItem *editor)
    {
        editor->setFlag(QQuickItem::ItemObservesViewport);
    }

    /// Adds the text that an input method is composing to the editor's text.
    Q_INVOKABLE void commit() { QGuiApplication::inputMethod()->commit(); }
};

} // namespace tolvane
