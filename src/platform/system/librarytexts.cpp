// SPDX-License-Identifier: MIT
#include "platform/system/librarytexts.h"

#include <algorithm>
#include <limits>

// Outside of namespaces, as Q_INIT_RESOURCE requires. The linker drops resources of a static
// library unless they are referenced.
static void addTextsToResources()
{
    Q_INIT_RESOURCE(tolvane_translations);
}

namespace tolvane {

namespace {

QString translated(const QTranslator &texts, const QString &key, int count)
{
    const QString text = texts.translate("Library", key.toUtf8().constData(), nullptr, count);
    return text.isNull() ? key : text;
}

} // namespace

LibraryTexts::LibraryTexts(const QStringList &languages)
{
    addTextsToResources();
    const auto hasTexts = [this](const QString &tag) { return load(QLocale(tag)); };
    if (!std::ranges::any_of(languages, hasTexts))
        load(QLocale(QLocale::English));
}

QString LibraryTexts::text(const QString &key) const
{
    constexpr int noCount = -1;
    return translated(m_translator, key, noCount);
}

QString LibraryTexts::text(const QString &key, qint64 count) const
{
    constexpr qint64 most = std::numeric_limits<int>::max();
    QString text =
        translated(m_translator, key, static_cast<int>(std::clamp<qint64>(count, 0, most)));
    return text.replace(QLatin1String("%Ln"), m_locale.toString(count));
}

bool LibraryTexts::load(const QLocale &locale)
{
    // A language has one file for all countries, but the digits depend on the country.
    m_locale = locale;
    return m_translator.load(QStringLiteral(":/tolvane/translations/tolvane_%1.qm")
                                 .arg(QLocale::languageToCode(locale.language())));
}

} // namespace tolvane
