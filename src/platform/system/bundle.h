// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QLocale>
#include <QtCore/QString>

#include <memory>
#include <optional>

namespace tolvane {

/// Texts of the library and the host, and the host's version.
class Bundle
{
public:
    Bundle() = default;
    Bundle(const Bundle &) = delete;
    Bundle &operator=(const Bundle &) = delete;
    virtual ~Bundle() = default;

    virtual std::optional<QString> hostVersion() const = 0;
    virtual std::optional<QString> hostBuild() const = 0;

    /// A text of the library in the language of the user interface. All three functions return the
    /// key if there is no text. Safe from any thread.
    virtual QString string(const QString &key) const = 0;
    /// The same in the plural form for `count`, with the number in the language's digits.
    virtual QString string(const QString &key, qint64 count) const = 0;
    /// The host's translation of the English text in the context "Tolvane"; else the library's own.
    virtual QString hostString(const QString &key) const = 0;
    /// The direction of the library's texts and of the layout of its views.
    virtual Qt::LayoutDirection layoutDirection() const = 0;
    /// The language of the library's texts, with the customer's formats of dates and times.
    virtual QLocale locale() const = 0;
};

/// The library's texts follow the system's languages and are loaded at first use. The host's
/// version is QCoreApplication::applicationVersion(), its build the application object's dynamic
/// property "applicationBuild".
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Bundle> makeApplicationBundle();

} // namespace tolvane
