// SPDX-License-Identifier: MIT
#pragma once

#include "state/navigation/destination.h"

#include <QtCore/QList>
#include <QtCore/QObject>

namespace tolvane {

/// The pages above the home screen. Main thread.
class TOLVANE_PRIVATE_EXPORT NavigationData : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<tolvane::TolvaneDestination> path READ path WRITE setPath NOTIFY pathChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY pathChanged)

public:
    using QObject::QObject;

    using Path = QList<TolvaneDestination>;

    const Path &path() const { return m_path; }
    /// Replaces the path, for example when the customer goes back. An equal path has no effect.
    void setPath(const Path &path);
    bool isEmpty() const { return m_path.isEmpty(); }

    /// Sends the analytics event, then pushes the destination.
    Q_INVOKABLE void navigate(const tolvane::TolvaneDestination &to);
    /// Removes the topmost destination, if any.
    Q_INVOKABLE void goBack();

Q_SIGNALS:
    void pathChanged();

private:
    Path m_path;
};

} // namespace tolvane
