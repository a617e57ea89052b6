// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"

#include <tolvane/error.h>

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

    /// The failure of the last fetch; null if it succeeded or no fetch has ended yet.
    const ErrorPtr &settingsError() const { return m_settingsError; }
    bool isFetchingSettings() const { return m_isFetchingSettings; }

    /// Loads the branding, stores it and applies it to the ColorScheme. A failure is reported.
    QCoro::Task<> fetchSettings();

Q_SIGNALS:
    void changed();

private:
    void onStateChange(const NotificationCenter::UserInfo &userInfo);

    bool m_settingsDidLoad = false;
    bool m_isFetchingSettings = false;
    ErrorPtr m_settingsError;
    bool m_isOpen = false;
    NotificationCenter::Observation m_stateObservation;
};

} // namespace tolvane
