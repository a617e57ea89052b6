// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickWindow>

namespace tolvane {

/// Where the system has no dialog, Qt shows its own as a popup of the window. Popups are below the
/// messenger, so this object raises them while such a dialog is open, and makes the dialog fit the
/// window. It returns the focus afterwards. It leaves native dialogs alone. Main thread.
class DialogLayer : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Exists, or is empty.
    Q_PROPERTY(QUrl picturesFolder READ picturesFolder CONSTANT)

public:
    using QObject::QObject;
    ~DialogLayer() override { lower(); }

    static QUrl picturesFolder();

    /// Opens a dialog of QtQuick.Dialogs; one at a time.
    Q_INVOKABLE void open(QObject *dialog);
    /// Whether the file exists and the last dialog has not asked whether to replace it.
    Q_INVOKABLE bool replacesUnasked(const QUrl &file) const;

private Q_SLOTS:
    void followDialog();

private:
    void raise();
    void lower();
    void fitPopup();

    QPointer<QObject> m_dialog;
    QPointer<QQuickItem> m_focusItem;
    QPointer<QQuickItem> m_overlay;
    QPointer<QObject> m_popup;
    double m_overlayZ = 0;
    bool m_asksToReplace = true;
};

} // namespace tolvane
