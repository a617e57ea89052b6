// SPDX-License-Identifier: MIT
#pragma once

#include "state/hostoptions.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The host's options, for QML. Main thread.
class ViewOptions : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isPanelLeading READ isPanelLeading NOTIFY changed)
    Q_PROPERTY(bool isScreenshotEnabled READ isScreenshotEnabled NOTIFY changed)
    Q_PROPERTY(bool enterSends READ enterSends NOTIFY changed)

public:
    explicit ViewOptions(QObject *parent = nullptr)
        : QObject(parent)
    {
        connect(HostOptions::shared().get(), &HostOptions::changed, this, &ViewOptions::changed);
    }

    bool isPanelLeading() const
    {
        return HostOptions::shared()->panelSide() == Tolvane::PanelSide::leading;
    }
    bool isScreenshotEnabled() const { return HostOptions::shared()->isScreenshotEnabled(); }
    bool enterSends() const { return HostOptions::shared()->enterSends(); }

Q_SIGNALS:
    void changed();
};

} // namespace tolvane
