// SPDX-License-Identifier: MIT
#include "ui/qmlapi/messengeritem.h"

#include "state/sdkdata.h"
#include "ui/presentation/viewcontroller.h"

#include <tolvane/tolvane.h>

#include <QtQuick/QQuickWindow>

namespace tolvane {

MessengerItem::MessengerItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
    setClip(true);
}

MessengerItem::~MessengerItem()
{
    TolvaneViewController::removeHostItem(*this);
}

void MessengerItem::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange)
        observeWindow(data.window);
    if (change == ItemSceneChange || change == ItemVisibleHasChanged)
        updateLater();
}

void MessengerItem::observeWindow(QQuickWindow *window)
{
    disconnect(m_windowObservation);
    if (window) {
        m_windowObservation =
            connect(window, &QWindow::visibilityChanged, this, &MessengerItem::updateLater);
    }
}

/// Queued, so that of two tabs the one that is left lets go of the messenger first, and so that a
/// host may call initialize() when its interface is complete.
void MessengerItem::updateLater()
{
    QMetaObject::invokeMethod(this, &MessengerItem::updateRegistration, Qt::QueuedConnection);
}

bool MessengerItem::isOnScreen() const
{
    // The window of a QQuickWidget is never visible, but has that visibility.
    return isVisible() && window() && window()->visibility() != QWindow::Hidden;
}

void MessengerItem::updateRegistration()
{
    if (m_isRegistered == isOnScreen())
        return;
    m_isRegistered = !m_isRegistered;
    if (m_isRegistered) {
        TolvaneViewController::addHostItem(*this);
        openOnceInitialized();
    } else {
        TolvaneViewController::removeHostItem(*this);
    }
}

void MessengerItem::openOnceInitialized()
{
    const auto sdkData = SdkData::shared();
    disconnect(sdkData.get(), nullptr, this, nullptr);
    const bool isInitialized =
        sdkData->isFetchingSettings() || sdkData->settingsDidLoad() || sdkData->settingsError();
    if (!m_isRegistered)
        return;
    if (!isInitialized) {
        connect(sdkData.get(), &SdkData::changed, this, &MessengerItem::openOnceInitialized);
    } else if (TolvaneViewController::isFirstHostItem(*this)) {
        Tolvane::open();
    }
}

} // namespace tolvane
