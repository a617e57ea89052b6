// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/presentation/messengerwindow.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

#include <memory>

namespace tolvane {

class ScreenData;

/// Shows the messenger in a window or in an item of the host, and notifies the rest of the library
/// when it opens and when it closes, whether its close button, the window or the application closes
/// it. Owns itself while it is on screen. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT TolvaneViewController final : public QObject
{
    Q_OBJECT

public:
    TolvaneViewController();
    ~TolvaneViewController() override;

    /// Shows the messenger in the host's item for it, or else over the host's foreground window, if
    /// there is one. Does nothing if the messenger is shown already.
    static void present();
    /// Closes the messenger, animated. Does nothing if it is closed or closing.
    static void dismiss();

    /// From now on the messenger is shown in this item, until it is removed. If another item was
    /// added before, that shows it; the log says so.
    static void addHostItem(QQuickItem &item);
    /// Closes the messenger if this item shows it. The next item shows it then.
    static void removeHostItem(QQuickItem &item);
    static bool isFirstHostItem(const QQuickItem &item);
    static bool isShownIn(const QQuickItem &item);

private:
    void presentIn(QWindow &window, QQuickItem *hostItem);
    bool viewDidLoad(QQuickItem *parent);
    bool createView(QQuickItem *parent);
    void observeWindows();
    void updatePresentation();
    void graphicsFailed(QQuickWindow::SceneGraphError error, const QString &message);
    void viewDidDisappear();
    void closeTapped();

    MessengerWindow m_messengerWindow;
    QPointer<QQuickItem> m_hostItem;
    QPointer<QQuickItem> m_previousFocusItem;
    std::unique_ptr<ScreenData> m_data;
    QPointer<QQuickItem> m_view;
    bool m_isOnScreen = false;
};

} // namespace tolvane
