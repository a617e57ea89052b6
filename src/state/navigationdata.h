// SPDX-License-Identifier: MIT
#pragma once

#include "state/destination.h"

#include <QtCore/QList>
#include <QtCore/QObject>

namespace tolvane {

/// What is stacked above the home screen. Main thread.
class TOLVANE_PRIVATE_EXPORT NavigationData : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<tolvane::TolvaneDestination> path READ path WRITE setPath NOTIFY pathChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY pathChanged)

public:
    using QObject::QObject;

    using Path = QList<TolvaneDestination>;

    const Path &path() const { return m_path; }
    /// Replaces the whole stack, as when the user goes back; an equal one changes nothing.
    void setPath(const Path &path);
    bool isEmpty() const { return m_path.isEmpty(); }

    /// Tells analytics, then puts the destination on top, whatever is there.
    Q_INVOKABLE void navigate(const tolvane::TolvaneDestination &to);
    /// Takes the topmost destination off, if there is one.
    Q_INVOKABLE void goBack();

Q_SIGNALS:
    void pathChanged();

private:
    Path m_path;
};

} // namespace tolvane
