// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QMetaType>
#include <QtCore/QUrl>

#include <variant>

namespace tolvane {

/// A destination of the home screen: an existing conversation, the full-screen viewer of an image,
/// or a new conversation.
class TOLVANE_PRIVATE_EXPORT TolvaneDestination
{
    Q_GADGET
    /// "ticket", "imageViewer" or "newTicket"
    Q_PROPERTY(QString kind READ kindName)
    /// Empty unless the destination is a ticket.
    Q_PROPERTY(QString ticketId READ ticketId)
    /// Empty unless the destination is a picture.
    Q_PROPERTY(QUrl imageUrl READ imageUrl)

public:
    enum class Kind { ticket, imageViewer, newTicket };

    static TolvaneDestination ticket(const TicketPreviewDto &preview);
    static TolvaneDestination imageViewer(const QUrl &url);
    static TolvaneDestination newTicket();

    /// A new ticket.
    TolvaneDestination() = default;

    Kind kind() const { return static_cast<Kind>(m_payload.index()); }
    QString kindName() const;
    /// Null unless the destination is a ticket.
    const TicketPreviewDto *preview() const { return std::get_if<TicketPreviewDto>(&m_payload); }
    QString ticketId() const;
    QUrl imageUrl() const;

    bool operator==(const TolvaneDestination &) const = default;
    friend TOLVANE_PRIVATE_EXPORT std::size_t qHash(const TolvaneDestination &destination,
                                                    std::size_t seed) noexcept;

private:
    /// In the order of the kinds.
    using Payload = std::variant<TicketPreviewDto, QUrl, std::monostate>;

    explicit TolvaneDestination(Payload payload);

    Payload m_payload = std::monostate();
};

} // namespace tolvane
