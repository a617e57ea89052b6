// SPDX-License-Identifier: MIT
#include "http/multipart.h"

#include "base/errors.h"
#include "base/text.h"

#include <QtCore/QMap>
#include <QtCore/QRegularExpression>

#include <algorithm>

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

// Bytes are characters of Latin-1 here, whatever their encoding.
using Fields = QMap<QString, QString>;

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t maxHeadSize = 16'384;

[[noreturn]] void fail(const std::string &reason)
{
    throw HttpError(400, "malformed multipart body: " + reason);
}

// The parameters of a header's value, with lower-case names. Some clients do not escape quotation
// marks within a name. A quotation mark therefore ends the name only before a semicolon or the end
// of the line. A backslash before the last one is part of the name, because that one has to end it.
Fields parametersOf(const QString &value)
{
    static const QRegularExpression parameter(
        uR"re(;[ \t]*+([^=; \t]*+)[ \t]*+=[ \t]*+)re"
        uR"re(("((?>\\["\\](?!\z)|.)*?)"(?=[ \t]*(?:;|\z))|[^;]*))re"_s);
    static const QRegularExpression escape(uR"(\\(["\\]))"_s);
    Fields parameters;
    for (const QRegularExpressionMatch &match : parameter.globalMatch(value)) {
        const bool isQuoted = match.captured(2).startsWith(u'"');
        if (isQuoted && !match.hasCaptured(3))
            fail("a quotation mark is missing");
        parameters[match.captured(1).toLower()] =
            isQuoted ? match.captured(3).replace(escape, u"\\1"_s)
                     : QString::fromLatin1(match.captured(2).toLatin1().trimmed());
    }
    return parameters;
}

// The headers of a part, with lower-case names.
Fields headersOf(std::string_view head)
{
    Fields headers;
    for (const QString &line : QString::fromLatin1(head).split(u"\r\n"_s, Qt::SkipEmptyParts)) {
        const qsizetype colon = line.indexOf(u':');
        if (colon < 0)
            fail("a header line of a part has no colon");
        headers[line.left(colon).trimmed().toLower()] =
            QString::fromLatin1(line.mid(colon + 1).toLatin1().trimmed());
    }
    return headers;
}

std::string boundaryOf(const QString &contentType)
{
    if (contentType.section(u';', 0, 0).trimmed().toLower() != "multipart/form-data"_L1)
        throw HttpError(400, "the body has to be multipart/form-data");
    const QByteArray boundary = parametersOf(contentType).value(u"boundary"_s).toLatin1();
    if (boundary.isEmpty() || boundary.size() > 200)
        fail("the Content-Type has no boundary");
    return boundary.toStdString();
}

// The type is returned as a response header, which must contain printable ASCII only.
std::string sanitizedMimeType(const std::string &type)
{
    const bool isValid =
        type.find('/') != type.npos && type.size() <= 200 &&
        std::all_of(type.begin(), type.end(), [](char c) { return c >= ' ' && c <= '~'; });
    return isValid ? type : "application/octet-stream";
}

Part parsePart(std::string_view text)
{
    const auto headEnd = text.starts_with(lineEnd) ? 0 : text.find("\r\n\r\n");
    if (headEnd == text.npos || headEnd > maxHeadSize)
        fail("the headers of a part do not end");
    const Fields headers = headersOf(text.substr(0, headEnd));
    const Fields disposition = parametersOf(headers.value(u"content-disposition"_s));
    const auto bytes = [](const QString &latin1) { return latin1.toLatin1().toStdString(); };
    if (disposition.value(u"name"_s).isEmpty())
        fail("a part has no name");
    return {.name = bytes(disposition.value(u"name"_s)),
            .fileName = bytes(disposition.value(u"filename"_s)),
            .mimeType = sanitizedMimeType(bytes(headers.value(u"content-type"_s))),
            .content = text.substr(headEnd == 0 ? lineEnd.size() : headEnd + 2 * lineEnd.size())};
}

} // namespace

std::vector<Part> parseMultipart(const std::string &contentType, std::string_view body)
{
    const std::string opening = "--" + boundaryOf(QString::fromLatin1(contentType));
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
        if (end == body.npos)
            fail("the closing boundary is missing");
        parts.push_back(parsePart(body.substr(0, end)));
        body.remove_prefix(end + delimiter.size());
    }
    return parts;
}

} // namespace tolvane::backend
