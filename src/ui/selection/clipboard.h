// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The clipboard, for QML. Main thread.
class Clipboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Copies a text, with plain characters for the separators and spaces of QTextDocument.
    Q_INVOKABLE static void setText(QString text)
    {
        text.replace(QChar::ParagraphSeparator, u'\n');
        text.replace(QChar::LineSeparator, u'\n');
        text.replace(QChar::Nbsp, u' ');
        QGuiApplication::clipboard()->setText(text);
    }
};

} // namespace tolvane
