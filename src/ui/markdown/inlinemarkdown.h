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

/// Converts inline Markdown: emphasis, strong, strikethrough, code and links. All other text stays
/// as it was written, with its line breaks and spaces; this includes blocks, images and HTML. The
/// HTML consists of escaped text and six elements (b, i, s, code, br and a) in one div. It loads no
/// resources, and its links use only https, http and mailto. If `emojiFamily` is not empty, emoji
/// are in spans with that font. The time may be quadratic in the length, so the source should be a
/// chunk of a few thousand characters.
TOLVANE_VIEWS_AUTOTEST_EXPORT FormattedText inlineMarkdown(const QString &source,
                                                           const QString &emojiFamily = {});

/// The text without any formatting, for screen readers.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString withoutMarkdown(const QString &source);

} // namespace tolvane
