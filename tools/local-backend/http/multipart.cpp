// SPDX-License-Identifier: MIT
#include "http/multipart.h"

#include "base/errors.h"
#include "base/text.h"

#include <algorithm>

namespace tolvane::backend {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t maxHeadSize = 16'384;
constexpr int badRequest = 400;

[[noreturn]] void fail(const std::string &reason)
{
    throw HttpError(badRequest, "malformed multipart body: " + reason);
}

bool isEndOfValue(std::string_view rest)
{
    const std::string_view remainder = trimmed(rest);
    return remainder.empty() || remainder.front() == ';';
}

// A backslash before the last quotation mark of a line is part of the name, because that quotation
// mark has to end the name.
bool isEscape(std::string_view text)
{
    return text.size() > 2 && text[0] == '\\' && (text[1] == '"' || text[1] == '\\');
}

// Some clients do not escape quotation marks within a name. A quotation mark therefore ends the
// name only before a semicolon or the end of the line.
std::string takeQuotedString(std::string_view &rest)
{
    std::string value;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] == '"' && isEndOfValue(rest.substr(i + 1))) {
            rest.remove_prefix(i + 1);
            return value;
        }
        if (isEscape(rest.substr(i)))
            ++i;
        value += rest[i];
    }
    fail("a quotation mark is missing");
}

std::string takeToken(std::string_view &rest)
{
    const auto end = std::min(rest.find(';'), rest.size());
    std::string value(trimmed(rest.substr(0, end)));
    rest.remove_prefix(end);
    return value;
}

// The parameters after the first semicolon of a header's value, with lower-case names.
std::map<std::string, std::string> parametersOf(std::string_view value)
{
    std::map<std::string, std::string> parameters;
    std::string_view rest = value.substr(std::min(value.find(';'), value.size()));
    while (!rest.empty()) {
        rest = trimmed(rest.substr(1));
        const auto equals = rest.find('=');
        if (equals == std::string_view::npos)
            break;
        std::string name(trimmed(rest.substr(0, equals)));
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        rest = trimmed(rest.substr(equals + 1));
        parameters[name] = rest.starts_with('"') ? takeQuotedString(rest) : takeToken(rest);
        rest.remove_prefix(std::min(rest.find(';'), rest.size()));
    }
    return parameters;
}

std::string boundaryOf(std::string_view contentType)
{
    const auto kind = trimmed(contentType.substr(0, contentType.find(';')));
    if (!equalIgnoringCase(kind, "multipart/form-data"))
        throw HttpError(badRequest, "the body has to be multipart/form-data");
    auto parameters = parametersOf(contentType);
    std::string boundary = std::move(parameters["boundary"]);
    if (boundary.empty() || boundary.size() > 200)
        fail("the Content-Type has no boundary");
    return boundary;
}

// The type is returned as a response header, which must contain printable ASCII only.
std::string sanitizedMimeType(std::string_view type)
{
    const bool isValid =
        type.find('/') != std::string_view::npos && type.size() <= 200 &&
        std::all_of(type.begin(), type.end(), [](char c) { return c >= ' ' && c <= '~'; });
    return isValid ? std::string(type) : "application/octet-stream";
}

void applyHeader(Part &part, std::string_view line)
{
    const auto colon = line.find(':');
    if (colon == std::string_view::npos)
        fail("a header line of a part has no colon");
    const auto name = trimmed(line.substr(0, colon));
    const auto value = trimmed(line.substr(colon + 1));
    if (equalIgnoringCase(name, "content-type")) {
        part.mimeType = sanitizedMimeType(value);
    } else if (equalIgnoringCase(name, "content-disposition")) {
        auto parameters = parametersOf(value);
        part.name = std::move(parameters["name"]);
        part.fileName = std::move(parameters["filename"]);
    }
}

Part parsePart(std::string_view text)
{
    const auto headEnd = text.starts_with(lineEnd) ? 0 : text.find("\r\n\r\n");
    if (headEnd == std::string_view::npos || headEnd > maxHeadSize)
        fail("the headers of a part do not end");
    Part part;
    part.mimeType = sanitizedMimeType({});
    std::string_view head = text.substr(0, headEnd);
    while (!head.empty()) {
        const auto end = std::min(head.find(lineEnd), head.size());
        applyHeader(part, head.substr(0, end));
        head.remove_prefix(std::min(end + lineEnd.size(), head.size()));
    }
    if (part.name.empty())
        fail("a part has no name");
    part.content = text.substr(headEnd == 0 ? lineEnd.size() : headEnd + 2 * lineEnd.size());
    return part;
}

} // namespace

std::vector<Part> parseMultipart(std::string_view contentType, std::string_view body)
{
    const std::string opening = "--" + boundaryOf(contentType);
    const std::string delimiter = std::string(lineEnd) + opening;
    std::vector<Part> parts;
    if (!body.starts_with(opening))
        fail("the body does not begin with the boundary");
    body.remove_prefix(opening.size());
    while (!body.starts_with("--")) {
        if (!body.starts_with(lineEnd))
            fail("a boundary is not alone on its line");
        body.remove_prefix(lineEnd.size());
        const auto end = body.find(delimiter);
        if (end == std::string_view::npos)
            fail("the closing boundary is missing");
        parts.push_back(parsePart(body.substr(0, end)));
        body.remove_prefix(end + delimiter.size());
    }
    return parts;
}

} // namespace tolvane::backend
