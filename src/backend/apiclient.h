// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QCoroTask>

#include <functional>

namespace tolvane {

/// The seven operations of the backend, as callables.
///
/// All are asynchronous: they build and send requests and decode responses off the caller's thread,
/// and resume the caller on its own thread. They fail with APIError for an HTTP failure, UrlError
/// for a transport failure and DecodingError for an invalid response. They do not retry. They have
/// no state and may run concurrently.
struct TOLVANE_AUTOTEST_EXPORT APIClient
{
    /// The argument is the `updatedAt` of the cached branding. The result is absent if the cached
    /// branding is current.
    std::function<QCoro::Task<std::optional<BrandingDto>>(std::optional<QString> updatedAt)>
        getBranding;
    std::function<QCoro::Task<TicketDto>(CreateTicketDto, std::optional<QList<AttachmentDto>>)>
        createTicket;
    std::function<QCoro::Task<TicketDto>(QString ticketId)> getTicket;
    std::function<QCoro::Task<QList<TicketPreviewDto>>()> getTickets;
    std::function<QCoro::Task<MessageDto>(QString ticketId, SendMessageDto)> sendMessage;
    std::function<QCoro::Task<>(UpdateCustomerDto)> updateCustomer;
    std::function<QCoro::Task<>(UpdateDeviceDto)> updateDevice;

    /// A client for the current key, environment and base URL. It is cheap, so callers create one
    /// for each operation, and changes take effect without a refresh. Requires the API key. Safe
    /// from any thread.
    static APIClient live();
};

} // namespace tolvane
