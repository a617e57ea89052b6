// SPDX-License-Identifier: MIT
#pragma once

#include "state/messagedata.h"
#include "state/navigation/navigationdata.h"

#include <QtQml/qqmlregistration.h>

// Registers the stores of the navigation in QML.

namespace tolvane {

struct DestinationForeign
{
    Q_GADGET
    QML_FOREIGN(tolvane::TolvaneDestination)
    QML_VALUE_TYPE(destination)
};

struct NavigationDataForeign
{
    Q_GADGET
    QML_FOREIGN(tolvane::NavigationData)
    QML_NAMED_ELEMENT(NavigationData)
};

struct MessageDataForeign
{
    Q_GADGET
    QML_FOREIGN(tolvane::MessageData)
    QML_NAMED_ELEMENT(MessageData)
};

/// Creates destinations: `navigation.navigate(Destination.newTicket())`.
class DestinationFactory : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Destination)
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE tolvane::TolvaneDestination newTicket() const
    {
        return TolvaneDestination::newTicket();
    }
    Q_INVOKABLE tolvane::TolvaneDestination imageViewer(const QUrl &url) const
    {
        return TolvaneDestination::imageViewer(url);
    }
    /// @param preview a TicketPreviewDto, as the ticket list holds it
    Q_INVOKABLE tolvane::TolvaneDestination ticket(const QVariant &preview) const
    {
        return TolvaneDestination::ticket(preview.value<TicketPreviewDto>());
    }
};

} // namespace tolvane
