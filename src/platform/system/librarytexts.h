// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QLocale>
#include <QtCore/QStringList>
#include <QtCore/QTranslator>

namespace tolvane {

/// The library's texts in the first of the given languages that has a translation, else in English.
/// The translator is not installed, so the application's texts do not change. Safe from any thread
/// once constructed.
class TOLVANE_AUTOTEST_EXPORT LibraryTexts
{
public:
    /// @param languages tags as in QLocale::uiLanguages(), in order of preference
    explicit LibraryTexts(const QStringList &languages);

    /// Returns the key if there is no text for it.
    QString text(const QString &key) const;

    /// With the plural form and the digits of the count in this language.
    QString text(const QString &key, qint64 count) const;

    Qt::LayoutDirection direction() const { return m_locale.textDirection(); }
    const QLocale &locale() const { return m_locale; }

private:
    bool load(const QLocale &locale);

    QTranslator m_translator;
    QLocale m_locale;
};

} // namespace tolvane
