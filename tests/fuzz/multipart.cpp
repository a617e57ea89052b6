// SPDX-License-Identifier: MIT
// Forms: what the library writes is what the backend reads, and the backend reads anything.
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

struct Written
{
    QString name;
    QString fileName;
    QByteArray content;
};

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// As they are made for attachments: no line ends, no quotation marks and no backslashes.
QString soundName(const QByteArray &bytes)
{
    static const QRegularExpression unsound(u"[\\x00-\\x1f\\x7f\"\\\\]"_s);
    return QString::fromUtf8(bytes).replace(unsound, u"_"_s);
}

void roundTrip(Input input)
{
    MultipartBody body(boundary);
    std::vector<Written> parts;
    while (!input.isEmpty() && parts.size() < 20) {
        const bool isFile = input.byte() % 2;
        const QString name = u"n"_s + soundName(input.line());
        const QString fileName = isFile ? u"f"_s + soundName(input.line()) : QString();
        const QByteArray content = input.line();
        if (isFile)
            body.appendFile(name, fileName, u"image/png"_s, content);
        else
            body.appendField(name, QString::fromUtf8(content));
        parts.push_back({name, fileName, isFile ? content : QString::fromUtf8(content).toUtf8()});
    }
    const QByteArray bytes = body.finish();
    require(bytes == body.finish(), "finishing changes nothing");
    const auto read = backend::parseMultipart(contentType, viewOf(bytes));
    require(read.size() == parts.size(), "there are as many parts");
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
    } catch (const backend::Refusal &refusal) {
        require(refusal.status() == 400, "it is the client's fault");
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
