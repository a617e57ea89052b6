// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickWindow>

namespace tolvane {

/// The system's dialog for saving a picture, or Qt's own if the system lacks one. It requires Qt
/// Quick Dialogs, which a host may not ship. Main thread.
class SaveDialog : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QObject::QObject;
    ~SaveDialog() override;

    /// Opens the dialog over a window. False if it cannot be created.
    /// @param suggestion the file that is selected at first
    Q_INVOKABLE bool open(QQuickWindow *window, const QUrl &suggestion);

Q_SIGNALS:
    void accepted(const QUrl &place);

private Q_SLOTS:
    void emitAccepted();

private:
    QPointer<QObject> m_dialog;
};

} // namespace tolvane
