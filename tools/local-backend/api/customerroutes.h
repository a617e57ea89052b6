// SPDX-License-Identifier: MIT
#pragma once

#include "api/requestcontext.h"

namespace tolvane::backend {

/// The routes of the contract. `host` is the name in --host; an empty list of keys means that
/// requests need none. Throws an HttpError or an InputError.
void dispatchCustomerRequest(RequestContext &context, const std::string &host,
                             const std::vector<std::string> &keys);

} // namespace tolvane::backend
