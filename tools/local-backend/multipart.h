// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::backend {

struct Part
{
    std::string name;
    std::string fileName;
    std::string mimeType;
    /// Points into the body.
    std::string_view content;
};

/// The parts of a multipart/form-data body, in their order. Throws a Refusal that says what is
/// wrong.
///
/// httplib has a parser of its own, which turns down a body that ends with its closing delimiter,
/// and a quotation mark within a file name. Clients send both.
std::vector<Part> parseMultipart(std::string_view contentType, std::string_view body);

} // namespace tolvane::backend
