// SPDX-License-Identifier: MIT
#include "source.h"

#include "errors.h"

#include <QtCore/QFile>

namespace tolvane::backend {

using namespace Qt::StringLiterals;

Source::Source(const std::string &path, const char *flag, const char *builtIn)
    : m_path(path.empty() ? QString::fromLatin1(builtIn) : QString::fromStdString(path))
    , m_flag(flag)
{
}

void Source::refuse(const QString &reason) const
{
    throw StartError("the file '" + m_path.toStdString() + "' of " + m_flag + ' ' +
                     reason.toStdString());
}

QByteArray Source::bytes() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(u"cannot be read ("_s + file.errorString() + u"); check its name and rights"_s);
    return file.readAll();
}

QJsonDocument Source::json() const
{
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(bytes(), &error);
    if (error.error != QJsonParseError::NoError)
        refuse(u"is no JSON: %1 at byte %2"_s.arg(error.errorString()).arg(error.offset));
    return document;
}

QString Source::text(const QJsonObject &object, const QString &key) const
{
    const QJsonValue value = object.value(key);
    if (!value.isString() || value.toString().isEmpty())
        refuse(u"needs the text '%1'"_s.arg(key));
    return value.toString();
}

} // namespace tolvane::backend
