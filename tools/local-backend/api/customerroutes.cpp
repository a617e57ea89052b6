// SPDX-License-Identifier: MIT
#include "api/customerroutes.h"

#include "api/requests.h"
#include "base/recordjson.h"
#include "base/text.h"
#include "http/requestguard.h"

#include <QtCore/QString>

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

constexpr std::string_view prefix = "/api/";
constexpr const char *immutable = "public, max-age=31536000, immutable";

// Clients load URLs in messages without a key and without a customer id. A device's pushes need no
// customer id either, because a device may belong to any customer.
enum class Access { Public, Key, Customer };

struct Route
{
    std::string_view method;
    std::string_view pattern;
    Access access;
    void (*handler)(const RequestContext &);
};

void authorise(const Request &request, const std::vector<std::string> &keys)
{
    constexpr auto scheme = "Bearer "_L1;
    const QString header = QString::fromLatin1(request.header("Authorization"));
    const bool isBearer = header.startsWith(scheme, Qt::CaseInsensitive);
    const std::string key = header.mid(scheme.size()).trimmed().toLatin1().toStdString();
    // Hashes are compared, so that keys cannot be guessed by timing.
    bool known = keys.empty();
    for (const std::string &candidate : keys)
        known |= isBearer && sha256Hex(key) == sha256Hex(candidate);
    if (!known)
        throw HttpError(401, "the Authorization header has to contain a known bearer key");
}

void respondWith(const Ticket &ticket, const RequestContext &context)
{
    Json json = toJson(ticket, context.baseUrl);
    json["schedules"] = context.backend.settings.current().schedules;
    context.respond(json);
}

void getSettings(const RequestContext &context)
{
    const Settings &settings = context.backend.settings.current();
    if (queryItem(context.request, u"updatedAt"_s) ==
        settings.branding.at("updatedAt").get<std::string>())
        context.response.status = 304;
    else
        context.respond(brandingJson(settings.branding, context.baseUrl));
}

void createTicket(const RequestContext &context)
{
    const Ticket ticket =
        context.backend.store.createTicket(context.customer, parseNewTicket(context.request),
                                           context.backend.replyScheduler.dueTime());
    respondWith(ticket, context);
}

void postMessage(const RequestContext &context)
{
    const Message message = orNotFound(context.backend.store.addMessage(
        context.customer, context.pathComponent(1), parseNewMessage(context.request),
        context.backend.replyScheduler.dueTime()));
    context.respond(toJson(message, context.baseUrl));
}

void getTicket(const RequestContext &context)
{
    respondWith(
        orNotFound(context.backend.store.readTicket(context.customer, context.pathComponent(1))),
        context);
}

void getTickets(const RequestContext &context)
{
    context.respond(toJson(context.backend.store.previews(context.customer), context.baseUrl));
}

void updateCustomer(const RequestContext &context)
{
    context.backend.store.updateCustomer(context.customer,
                                         parseCustomerUpdate(context.request.body));
    context.response.status = 204;
}

void updateDevice(const RequestContext &context)
{
    context.backend.store.updateCustomer(context.customer, parseDeviceUpdate(context.request.body));
    context.response.status = 204;
}

void getAttachment(const RequestContext &context)
{
    const std::string hash = context.pathComponent(1);
    const std::optional<StoredFile> file =
        context.backend.store.file(hash, context.pathComponent(2));
    if (!file)
        throw HttpError(404, "there is no such attachment");
    const std::string tag = '"' + hash + '"';
    context.response.setHeader("ETag", tag);
    context.response.setHeader("Cache-Control", immutable);
    context.response.setHeader("X-Content-Type-Options", "nosniff");
    // An HTML page that a customer uploads must not run with this origin's access in a browser.
    context.response.setHeader("Content-Security-Policy", "sandbox; default-src 'none'");
    const std::string known = context.request.header("If-None-Match");
    if (known == "*" || known.find(tag) != std::string::npos)
        context.response.status = 304;
    else
        context.response.setContent(file->bytes, file->mimeType);
}

void getPortrait(const RequestContext &context)
{
    context.response.setContent(asset("maya.png"), "image/png");
}

void getPushes(const RequestContext &context)
{
    context.response.setEvents(
        std::make_shared<PushStream>(context.backend.pushService, context.pathComponent(1),
                                     lastEventIdOf(context.request), context.baseUrl));
}

constexpr Route routes[] = {
    {"GET", "settings", Access::Customer, getSettings},
    {"POST", "ticket/create", Access::Customer, createTicket},
    {"POST", "ticket/*", Access::Customer, postMessage},
    {"GET", "ticket/*", Access::Customer, getTicket},
    {"GET", "tickets", Access::Customer, getTickets},
    {"POST", "customer/update", Access::Customer, updateCustomer},
    {"POST", "customer/device/update", Access::Customer, updateDevice},
    {"GET", "attachments/*/*", Access::Public, getAttachment},
    {"GET", "agents/maya.png", Access::Public, getPortrait},
    {"GET", "push/*", Access::Key, getPushes},
};

} // namespace

void dispatchCustomerRequest(RequestContext &context, const std::string &host,
                             const std::vector<std::string> &keys)
{
    rejectForeignPages(context.request, host);
    context.path = componentsAfter(prefix, context.request);
    const Route &route = findRoute(routes, context);
    if (route.access != Access::Public)
        authorise(context.request, keys);
    if (route.access == Access::Customer) {
        context.customer = customerIdOf(context.request);
        context.response.setHeader(customerHeader, context.customer);
    }
    route.handler(context);
}

} // namespace tolvane::backend
