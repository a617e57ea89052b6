// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// The messenger as a part of the host's interface: in a dock, a tab, a side bar or a dialog.
///
/// @code
/// import Tolvane
///
/// Messenger {
///     anchors.fill: parent
///     visible: dock.isOpen
/// }
/// @endcode
///
/// The messenger is open while the item is visible, from initialize() on. It has no close button,
/// and leaves Escape on its home screen to the host. `Tolvane.close()` empties the item,
/// `Tolvane.open()` fills it again. While an item is visible, the messenger is shown in no other
/// way; of several items the first one shows it, and the log reports the others. Reads well from
/// 280 pixels of width on. Main thread.
class MessengerItem : public QQuickItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Messenger)

public:
    explicit MessengerItem(QQuickItem *parent = nullptr);
    ~MessengerItem() override;

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    bool isOnScreen() const;
    void observeWindow(QQuickWindow *window);
    void updateLater();
    void updateRegistration();
    void openOnceInitialized();

    QMetaObject::Connection m_windowObservation;
    bool m_isRegistered = false;
};

} // namespace tolvane
