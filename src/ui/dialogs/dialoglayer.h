// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickWindow>

namespace tolvane {

/// Opens dialogs above the messenger. If the system has no native dialogs, Qt shows its own as
/// popups of the window, below the messenger. While such a dialog is open, this object raises the
/// window's popups and makes the dialog fit the window. Afterwards it restores the focus. Native
/// dialogs need nothing of this. Main thread.
class DialogLayer : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Empty if the folder does not exist.
    Q_PROPERTY(QUrl picturesFolder READ picturesFolder CONSTANT)

public:
    using QObject::QObject;
    ~DialogLayer() override { lower(); }

    static QUrl picturesFolder();

    /// Opens a dialog of QtQuick.Dialogs; one at a time.
    Q_INVOKABLE void open(QObject *dialog);
    /// True if the file exists, and the last dialog does not ask by itself whether to replace it.
    Q_INVOKABLE bool needsConfirmation(const QUrl &file) const;

private Q_SLOTS:
    void handleVisibleChange();
    void focusPopup();

private:
    void raise();
    void raise(QQuickItem &overlay);
    /// In a window of its own, Qt's dialog loses the focus to its question whether to replace a
    /// file, and afterwards no key reaches it.
    void keepFocus();
    void lower();
    void fitPopup();

    QPointer<QObject> m_dialog;
    QPointer<QQuickItem> m_focusItem;
    QPointer<QQuickItem> m_overlay;
    QPointer<QObject> m_popup;
    double m_overlayZ = 0;
    bool m_dialogConfirms = true;
};

} // namespace tolvane
