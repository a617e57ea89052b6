// SPDX-License-Identifier: MIT
#pragma once

#include "state/sdkdata.h"
#include "state/unreadtickets.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The state of HelpButton. Main thread.
class HelpButtonData : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int unreadCount READ unreadCount NOTIFY unreadCountChanged)
    /// True once the colours of the branding are loaded.
    Q_PROPERTY(bool settingsDidLoad READ settingsDidLoad NOTIFY settingsChanged)

public:
    explicit HelpButtonData(QObject *parent = nullptr)
        : QObject(parent)
    {
        connect(UnreadTickets::shared().get(), &UnreadTickets::countChanged, this,
                &HelpButtonData::unreadCountChanged);
        connect(SdkData::shared().get(), &SdkData::changed, this, &HelpButtonData::settingsChanged);
    }

    int unreadCount() const { return UnreadTickets::shared()->count(); }
    bool settingsDidLoad() const { return SdkData::shared()->settingsDidLoad(); }

Q_SIGNALS:
    void unreadCountChanged();
    void settingsChanged();
};

} // namespace tolvane
