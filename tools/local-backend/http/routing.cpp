// SPDX-License-Identifier: MIT
#include "http/routing.h"

#include "base/text.h"

#include <algorithm>

namespace tolvane::backend {

std::string_view pathOf(const Request &request)
{
    const std::string_view target = request.target;
    return target.substr(0, target.find('?'));
}

Path componentsAfter(std::string_view prefix, const Request &request)
{
    const std::string_view path = pathOf(request);
    return path.starts_with(prefix) ? split(path.substr(prefix.size()), '/') : Path();
}

bool matches(const Path &path, std::string_view pattern)
{
    return std::ranges::equal(path, split(pattern, '/'), [](auto component, auto wanted) {
        return wanted == "*" ? !component.empty() : component == wanted;
    });
}

std::string_view methodOf(const Request &request)
{
    return request.method == "HEAD" ? "GET" : std::string_view(request.method);
}

} // namespace tolvane::backend
