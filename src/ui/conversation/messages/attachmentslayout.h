// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>

#include <algorithm>

namespace tolvane {

/// How the pictures of a message stand in a grid: which are shown, where, and how large. Lengths in
/// points.
class AttachmentsLayout : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// How many there are.
    Q_PROPERTY(int total MEMBER total NOTIFY changed)
    /// The most that are shown.
    Q_PROPERTY(int maxGridSize MEMBER maxGridSize NOTIFY changed)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int columns READ columns NOTIFY changed)
    Q_PROPERTY(int rows READ rows NOTIFY changed)
    Q_PROPERTY(double greatestWidth READ greatestWidth NOTIFY changed)
    Q_PROPERTY(double side READ side NOTIFY changed)

public:
    using QObject::QObject;

    int total = 0;
    int maxGridSize = 4;

    int count() const { return std::min(total, maxGridSize); }
    int columns() const { return count() == 1 ? 1 : 2; }
    int rows() const { return (count() + 1) / 2; }
    double greatestWidth() const { return count() == 1 ? 200 : count() == 2 ? 250 : 280; }
    double side() const { return count() == 1 ? 200 : count() == 2 ? 122 : 138; }

    /// How many are not shown, if the cell is the one to say so; else 0.
    Q_INVOKABLE int remaining(int cell) const
    {
        return cell == maxGridSize - 1 ? std::max(0, total - maxGridSize) : 0;
    }

    /// The address that a text is; empty if it is none.
    Q_INVOKABLE QUrl url(const QString &text) const { return QUrl(text, QUrl::StrictMode); }

Q_SIGNALS:
    void changed();
};

} // namespace tolvane
