// SPDX-License-Identifier: MIT
#include "ui/messages/messagechunks.h"

#include <QtCore/QTextBoundaryFinder>

#include <algorithm>
#include <array>
#include <numeric>

namespace tolvane {

namespace {

struct CharacterRange
{
    char16_t first;
    char16_t last;
};

// Emoji, or the first halves of their surrogate pairs. They are expensive, since Qt decodes the
// picture of an emoji several times.
constexpr std::array emojiRanges = {CharacterRange{0x231a, 0x231b}, CharacterRange{0x23e9, 0x23f3},
                                    CharacterRange{0x25fd, 0x25fe}, CharacterRange{0x2600, 0x27bf},
                                    CharacterRange{0x2b1b, 0x2b55}, CharacterRange{0xd83c, 0xd83e},
                                    CharacterRange{0xfe0f, 0xfe0f}};

constexpr int emojiCost = 780;
/// Each span of text in one style is laid out separately; most have a delimiter at either end.
constexpr int delimiterCost = 10;
/// An address has two or more of them. Each link takes ten times as long as emphasis.
constexpr int slashCost = 25;
/// The time is quadratic in the number of combining characters after one letter.
constexpr int combiningCost = 14;

int costOf(QChar character)
{
    const char16_t unit = character.unicode();
    switch (unit) {
    case u'*':
    case u'_':
    case u'~':
    case u'`':
    case u'[':
    case u']':
    case u'<':
    case u':':
        return delimiterCost;
    case u'/':
        return slashCost;
    default:
        break;
    }
    if (unit < 0x80)
        return 1;
    if (std::ranges::any_of(emojiRanges, [unit](const CharacterRange &range) {
            return unit >= range.first && unit <= range.last;
        }))
        return emojiCost;
    const bool isCombining = character.isMark() || character.category() == QChar::Other_Format;
    return isCombining ? combiningCost : 1;
}

/// Estimates while reading a text whether the current position is in code, in a link or in a style.
class MarkupState
{
public:
    void add(QChar character)
    {
        // Each run of delimiters begins or ends a span.
        if (isDelimiter(character) && !isDelimiter(m_previous))
            m_isOpen = !m_isOpen;
        if (character == u'[')
            m_isInLink = true;
        else if (character == u')' || (m_previous == u']' && character != u'('))
            m_isInLink = false;
        m_previous = character;
    }
    bool isOutside() const { return !m_isOpen && !m_isInLink; }

private:
    static bool isDelimiter(QChar character) { return QStringView(u"*_~`").contains(character); }

    QChar m_previous;
    bool m_isOpen = false;
    bool m_isInLink = false;
};

/// The positions at which the first chunk of a text may end.
struct ChunkEnds
{
    explicit ChunkEnds(QStringView text)
    {
        MarkupState markup;
        int cost = 0;
        for (; most < text.size(); ++most) {
            const QChar character = text.at(most);
            cost += costOf(character);
            if (most >= maxChunkLength || (cost > maxChunkCost && most > 0))
                return;
            markup.add(character);
            if (cost < maxChunkCost * 3 / 4 && most < maxChunkLength * 3 / 4)
                least = most;
            else if (character == u'\n')
                afterLine = most + 1;
            else if (character == u' ' && markup.isOutside())
                afterMarkup = most + 1;
            else if (character == u' ')
                afterSpace = most + 1;
        }
    }

    /// The length of the longest possible chunk, and the beginning of its last quarter.
    qsizetype most = 0;
    qsizetype least = 0;
    qsizetype afterLine = 0;
    qsizetype afterMarkup = 0;
    qsizetype afterSpace = 0;
};

/// The length of the first chunk of a text.
qsizetype chunkLength(QStringView text)
{
    const ChunkEnds ends(text);
    if (ends.most == text.size())
        return ends.most;
    for (const qsizetype end : {ends.afterLine, ends.afterMarkup, ends.afterSpace}) {
        if (end > 0)
            return end;
    }
    // A grapheme may consist of many characters: an emoji of a family, a letter with accents.
    // Graphemes longer than any in real text may be split.
    constexpr qsizetype longestCharacter = 200;
    const QStringView around =
        text.sliced(ends.least, qMin(text.size(), ends.most + longestCharacter) - ends.least);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around.data(), around.size());
    finder.setPosition(ends.most - ends.least);
    const qsizetype boundary =
        finder.isAtBoundary() ? finder.position() : finder.toPreviousBoundary();
    return boundary > 0 ? ends.least + boundary : ends.most;
}

} // namespace

int layoutCost(QStringView text)
{
    return std::accumulate(text.begin(), text.end(), 0,
                           [](int cost, QChar character) { return cost + costOf(character); });
}

QStringList splitIntoChunks(const QString &text)
{
    // Most texts are one chunk, which is not copied.
    if (text.size() <= maxChunkLength && layoutCost(text) <= maxChunkCost)
        return {text};
    QStringList parts;
    QStringView rest = text;
    for (qsizetype length = chunkLength(rest); length < rest.size(); length = chunkLength(rest)) {
        const QStringView part = rest.first(length);
        rest = rest.sliced(length);
        parts += (part.endsWith(u'\n') ? part.chopped(1) : part).toString();
    }
    parts += rest.toString();
    return parts;
}

} // namespace tolvane
