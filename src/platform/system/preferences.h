// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <memory>
#include <optional>

namespace tolvane {

/// A named, persistent set of text and byte values.
class PreferencesDomain
{
public:
    PreferencesDomain() = default;
    PreferencesDomain(const PreferencesDomain &) = delete;
    PreferencesDomain &operator=(const PreferencesDomain &) = delete;
    virtual ~PreferencesDomain() = default;

    /// Absent if there is no such key, or if its value has the other type.
    virtual std::optional<QString> text(const QString &key) const = 0;
    virtual std::optional<QByteArray> bytes(const QString &key) const = 0;

    /// An absent value removes the key. When the call returns, the change survives the end of this
    /// process, unless another process locks the file for longer than the call may block, or the
    /// file cannot be written. In these cases only this process sees the change.
    virtual void setText(const QString &key, const std::optional<QString> &value) = 0;
    virtual void setBytes(const QString &key, const std::optional<QByteArray> &value) = 0;

    /// Sets a text if it still is `expected`: another process may have changed it. Returns the text
    /// after the call.
    virtual std::optional<QString> exchangeText(const QString &key,
                                                const std::optional<QString> &expected,
                                                const QString &value) = 0;
};

/// Opens a domain anew for each access. Safe from any thread and for several processes.
class Preferences
{
public:
    Preferences() = default;
    Preferences(const Preferences &) = delete;
    Preferences &operator=(const Preferences &) = delete;
    virtual ~Preferences() = default;

    /// Null if the domain cannot be opened.
    virtual std::unique_ptr<PreferencesDomain> open(const QString &name) const = 0;
};

/// Domains as files in the application's configuration folder (QStandardPaths::AppConfigLocation,
/// below XDG_CONFIG_HOME on Linux), readable by their owner only. The folder belongs to the
/// application, so that two hosts of one user are two customers.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Preferences> makeFilePreferences();

} // namespace tolvane
