// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QCoroTask>

#include <functional>

namespace tolvane {

/// The seven operations of the backend, as values.
///
/// All are asynchronous: requests are built and sent and answers are read off the caller's thread,
/// and the caller is resumed on its own. They fail with APIError for an HTTP failure, UrlError for
/// a transport failure, DecodingError for an answer that cannot be read. Nothing is retried. The
/// operations keep no state and may run side by side.
struct TOLVANE_AUTOTEST_EXPORT APIClient
{
    /// The argument is the `updatedAt` of the branding at hand; absent as a result says that there
    /// is nothing newer.
    std::function<QCoro::Task<std::optional<BrandingDto>>(std::optional<QString> updatedAt)>
        getBranding;
    std::function<QCoro::Task<TicketDto>(CreateTicketDto, std::optional<QList<AttachmentDto>>)>
        createTicket;
    std::function<QCoro::Task<TicketDto>(QString ticketId)> getTicket;
    std::function<QCoro::Task<QList<TicketPreviewDto>>()> getTickets;
    std::function<QCoro::Task<MessageDto>(QString ticketId, SendMessageDto)> sendMessage;
    std::function<QCoro::Task<>(UpdateCustomerDto)> updateCustomer;
    std::function<QCoro::Task<>(UpdateDeviceDto)> updateDevice;

    /// A client for the key, the environment and the base URL that hold now. Cheap: made anew for
    /// each piece of work, so that a change of those needs no refresh. Needs the API key to be set.
    /// Safe from any thread.
    static APIClient live();
};

} // namespace tolvane
