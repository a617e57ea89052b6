// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvane::backend {

struct Part
{
    std::string name;
    std::string fileName;
    std::string mimeType;
    /// A view of the body.
    std::string_view content;
};

/// Parses a multipart/form-data body. Throws an HttpError that describes the error.
///
/// libmicrohttpd's post processor takes the first quotation mark within a file name for its end.
/// Clients send names with quotation marks.
std::vector<Part> parseMultipart(const std::string &contentType, std::string_view body);

} // namespace tolvane::backend
