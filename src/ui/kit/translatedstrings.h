// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "state/times/timeago.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// Translated strings of the views, by their keys.
class Strings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Whether the language is read from right to left; views are mirrored then.
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft CONSTANT)

public:
    using QObject::QObject;

    bool isRightToLeft() const { return platform().bundle->layoutDirection() == Qt::RightToLeft; }

    /// A string of the library.
    Q_INVOKABLE QString string(const QString &key) const { return platform().bundle->string(key); }
    /// A string that the host may translate; the key if the host does not.
    Q_INVOKABLE QString hostString(const QString &key) const
    {
        return platform().bundle->hostString(key);
    }
    /// Date and time of a backend's timestamp; empty if it is invalid.
    Q_INVOKABLE QString dateTime(const QString &timestamp) const { return dateTimeText(timestamp); }
};

} // namespace tolvane
