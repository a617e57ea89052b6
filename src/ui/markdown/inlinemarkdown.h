// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QString>

namespace tolvane {

/// A message's text, ready to be shown.
class TOLVANE_VIEWS_AUTOTEST_EXPORT StyledText
{
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text)
    /// Whether `text` is HTML, else it is plain.
    Q_PROPERTY(bool isRich MEMBER isRich)
    /// The address of the first link, if there is one.
    Q_PROPERTY(QString link MEMBER link)

public:
    QString text;
    bool isRich = false;
    QString link;

    bool operator==(const StyledText &) const = default;
};

/// Reads Markdown within a line: emphasis, strong, strikethrough, code and links. All else, blocks,
/// images and HTML included, stays as it was written, line breaks and blanks too. The HTML has
/// escaped text and six elements, b, i, s, code, br and a, in one div; links lead to https,
/// http and mailto only; nothing in it can be fetched. The time that it takes may grow with the
/// square of the length: parts of a few thousand characters are meant.
TOLVANE_VIEWS_AUTOTEST_EXPORT StyledText inlineMarkdown(const QString &source);

/// The same without any styles, for those who hear it.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString withoutMarkdown(const QString &source);

} // namespace tolvane
