// SPDX-License-Identifier: MIT
// Forms: the backend reads what the library writes, and handles any other bytes.
#include "multipart.h"

#include "backend/wire/multipartbody.h"
#include "errors.h"
#include "targets.h"

#include <QtCore/QRegularExpression>

namespace tolvane::fuzz {

namespace {

using namespace Qt::StringLiterals;

const QByteArray boundary = "0B5E4F4C-7D6A-4E0C-9A4B-2D1F3C5E7A90";
const std::string contentType = "multipart/form-data; boundary=" + boundary.toStdString();

struct WrittenPart
{
    QString name;
    QString fileName;
    QByteArray content;
};

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// A name as attachments have it: without control characters, quotation marks and backslashes.
QString safeName(const QByteArray &bytes)
{
    static const QRegularExpression unsafe(u"[\\x00-\\x1f\\x7f\"\\\\]"_s);
    return QString::fromUtf8(bytes).replace(unsafe, u"_"_s);
}

void roundTrip(Input input)
{
    MultipartBody body(boundary);
    std::vector<WrittenPart> parts;
    while (!input.isEmpty() && parts.size() < 20) {
        const bool isFile = input.byte() % 2;
        const QString name = u"n"_s + safeName(input.line());
        const QString fileName = isFile ? u"f"_s + safeName(input.line()) : QString();
        const QByteArray content = input.line();
        if (isFile)
            body.appendFile(name, fileName, u"image/png"_s, content);
        else
            body.appendField(name, QString::fromUtf8(content));
        parts.push_back({name, fileName, isFile ? content : QString::fromUtf8(content).toUtf8()});
    }
    const QByteArray bytes = body.finish();
    require(bytes == body.finish(), "finish() can be repeated");
    const auto read = backend::parseMultipart(contentType, viewOf(bytes));
    require(read.size() == parts.size(), "the number of parts is the same");
    for (std::size_t i = 0; i < read.size(); ++i) {
        require(QString::fromStdString(read[i].name) == parts[i].name, "names are the same");
        require(QString::fromStdString(read[i].fileName) == parts[i].fileName,
                "file names are the same");
        require(read[i].content == viewOf(parts[i].content), "contents are the same");
    }
}

void hostile(const QByteArray &bytes)
{
    const std::string_view all = viewOf(bytes);
    try {
        const char *end = all.data();
        for (const backend::Part &part : backend::parseMultipart(contentType, all)) {
            require(part.content.data() > end, "parts follow each other");
            end = part.content.data() + part.content.size();
            require(end < all.data() + all.size() && !part.name.empty(), "parts lie in the body");
        }
    } catch (const backend::HttpError &error) {
        require(error.status() == 400, "errors have the status 400");
    }
}

} // namespace

void multipart(Input input)
{
    const QByteArray bytes = input.rest();
    if (bytes.contains(boundary))
        hostile(bytes);
    else
        roundTrip(input);
}

} // namespace tolvane::fuzz
