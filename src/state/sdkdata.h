// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"

#include <QCoroTask>
#include <QtCore/QObject>

#include <memory>

namespace tolvane {

/// State of the whole messenger: whether the settings have arrived and whether it is on screen.
/// Main thread.
class TOLVANE_PRIVATE_EXPORT SdkData final : public QObject,
                                             public std::enable_shared_from_this<SdkData>
{
    Q_OBJECT

public:
    static const std::shared_ptr<SdkData> &shared();

    SdkData();

    /// True once the settings were loaded.
    bool settingsDidLoad() const { return m_settingsDidLoad; }
    /// True while the messenger is on screen, according to the broadcast "didChangeState".
    bool isOpen() const { return m_isOpen; }

    /// Loads the branding, stores it and applies it to the ColorScheme. A failure is reported and
    /// changes nothing.
    QCoro::Task<> fetchSettings();

Q_SIGNALS:
    void changed();

private:
    void onStateChange(const NotificationCenter::UserInfo &userInfo);

    bool m_settingsDidLoad = false;
    bool m_isOpen = false;
    NotificationCenter::Observation m_stateObservation;
};

} // namespace tolvane
