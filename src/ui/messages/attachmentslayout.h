// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>

#include <algorithm>

namespace tolvane {

/// The layout of a message's pictures in a grid: which are shown, where, and how large. Lengths are
/// in device-independent pixels.
class TOLVANE_VIEWS_AUTOTEST_EXPORT AttachmentsLayout : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The URLs of the pictures, as received.
    Q_PROPERTY(QList<QString> attachments MEMBER attachments NOTIFY changed)
    Q_PROPERTY(int total READ total NOTIFY changed)
    /// The maximum number of pictures that are shown.
    Q_PROPERTY(int maxGridSize MEMBER maxGridSize NOTIFY changed)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int columns READ columns NOTIFY changed)
    Q_PROPERTY(int rows READ rows NOTIFY changed)
    Q_PROPERTY(double maxWidth READ maxWidth NOTIFY changed)
    Q_PROPERTY(double cellSize READ cellSize NOTIFY changed)

public:
    using QObject::QObject;

    QStringList attachments;
    int maxGridSize = 4;

    int total() const { return int(attachments.size()); }
    int count() const { return std::min(total(), maxGridSize); }
    int columns() const { return count() == 1 ? 1 : 2; }
    int rows() const { return (count() + 1) / 2; }
    double maxWidth() const { return count() == 1 ? 200 : count() == 2 ? 250 : 280; }
    double cellSize() const { return count() == 1 ? 200 : count() == 2 ? 122 : 138; }

    /// The number of pictures that are not shown, for the cell that displays it; else 0.
    Q_INVOKABLE int remaining(int cell) const
    {
        return cell == maxGridSize - 1 ? std::max(0, total() - maxGridSize) : 0;
    }

    /// Empty if the received text is not a URL.
    Q_INVOKABLE QUrl url(int cell) const { return QUrl(attachments.value(cell), QUrl::StrictMode); }

Q_SIGNALS:
    void changed();
};

} // namespace tolvane
