// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QLocale>
#include <QtCore/QStringList>
#include <QtCore/QTranslator>

namespace tolvane {

/// The library's own texts, in the first of the given languages that there are texts in, and in
/// English without one. Nothing is installed into the application: its other texts stay as they
/// are. Once made, safe from any thread.
class TOLVANE_AUTOTEST_EXPORT LibraryTexts
{
public:
    /// Tags as in QLocale::uiLanguages(), the most wanted first.
    explicit LibraryTexts(const QStringList &languages);

    /// The key itself where there is no such text.
    QString text(const QString &key) const;

    /// In the plural form and with the digits that the count takes in the language.
    QString text(const QString &key, qint64 count) const;

    Qt::LayoutDirection direction() const { return m_locale.textDirection(); }

private:
    bool load(const QLocale &locale);

    QTranslator m_translator;
    QLocale m_locale;
};

} // namespace tolvane
