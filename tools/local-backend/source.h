// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <string>

namespace tolvane::backend {

/// A file that a flag names, which names itself when it is no good. What refuses throws a
/// StartError.
class Source
{
public:
    /// An empty path takes what is built in.
    Source(const std::string &path, const char *flag, const char *builtIn);

    [[noreturn]] void refuse(const QString &reason) const;

    const QString &path() const { return m_path; }
    QByteArray bytes() const;
    QJsonDocument json() const;
    /// Of the object's field; refuses what is no text or empty.
    QString text(const QJsonObject &object, const QString &key) const;

private:
    QString m_path;
    const char *m_flag;
};

} // namespace tolvane::backend
