// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"

#include <QtCore/QString>

namespace tolvane::console {

/// A failure of a command, with a text for whoever gave it.
class CommandError final : public std::exception
{
public:
    explicit CommandError(const QString &text)
        : m_text(text)
        , m_what(text.toUtf8())
    {
    }

    QString text() const { return m_text; }
    const char *what() const noexcept override { return m_what.constData(); }

private:
    QString m_text;
    QByteArray m_what;
};

/// The file at a path, its type told by name and content. Throws CommandError.
AttachmentDto loadAttachment(const QString &path);

/// A file given in the protocol, by path or by name, type and bytes. Throws CommandError.
AttachmentDto attachmentFromJson(const QJsonObject &object);

} // namespace tolvane::console
