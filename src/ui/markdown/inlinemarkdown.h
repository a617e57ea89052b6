// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// A message's text, formatted for display.
class TOLVANE_VIEWS_AUTOTEST_EXPORT FormattedText
{
    Q_GADGET
    QML_VALUE_TYPE(formattedText)
    Q_PROPERTY(QString text MEMBER text)
    /// Whether `text` is HTML; otherwise it is plain text.
    Q_PROPERTY(bool isRich MEMBER isRich)
    /// The addresses of all links, in their order, each once.
    Q_PROPERTY(QStringList links MEMBER links)

public:
    QString text;
    bool isRich = false;
    QStringList links;

    bool operator==(const FormattedText &) const = default;
};

/// Converts inline Markdown: emphasis, strong, strikethrough, code and links. Everything else,
/// blocks, images and HTML included, stays as it was written, with its line breaks and spaces. The
/// HTML consists of escaped text and six elements, b, i, s, code, br and a, in one div; links are
/// https, http and mailto only; it has nothing that could be fetched. With a family of a font for
/// emoji, these are in spans with that font. The time may be quadratic in
/// the length: this is meant for chunks of a few thousand characters.
TOLVANE_VIEWS_AUTOTEST_EXPORT FormattedText inlineMarkdown(const QString &source,
                                                           const QString &emojiFamily = {});

/// The text without any formatting, for screen readers.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString withoutMarkdown(const QString &source);

} // namespace tolvane
