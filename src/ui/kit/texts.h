// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The texts of the views, by their keys.
class Texts : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Whether the language of the texts is read from right to left; views are mirrored then.
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft CONSTANT)

public:
    using QObject::QObject;

    bool isRightToLeft() const { return platform().bundle->layoutDirection() == Qt::RightToLeft; }

    /// The library's own.
    Q_INVOKABLE QString string(const QString &key) const { return platform().bundle->string(key); }
    /// One that the host may translate; else the key.
    Q_INVOKABLE QString hostString(const QString &key) const
    {
        return platform().bundle->hostString(key);
    }
};

} // namespace tolvane
