// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickWindow>

namespace tolvane {

/// The system's dialog that asks where to save a picture; Qt's own where the system has none. It
/// comes with Qt Quick Dialogs, which a host may do without. Main thread.
class SaveDialog : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QObject::QObject;
    ~SaveDialog() override;

    /// Asks, over a window. False when there is no dialog to ask with.
    /// @param suggestion the file to begin with
    Q_INVOKABLE bool open(QQuickWindow *window, const QUrl &suggestion);

Q_SIGNALS:
    void accepted(const QUrl &place);

private Q_SLOTS:
    void takeOver();

private:
    QPointer<QObject> m_dialog;
};

} // namespace tolvane
