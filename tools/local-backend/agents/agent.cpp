// SPDX-License-Identifier: MIT
#include "agents/agent.h"

#include "agents/agentrules.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

using Words = QSet<QString>;

Words wordsOf(std::string_view text)
{
    static const QRegularExpression separator(u"[^\\p{L}\\p{N}]+"_s);
    const QString folded =
        QString::fromUtf8(text).normalized(QString::NormalizationForm_C).toCaseFolded();
    const QStringList words = folded.split(separator, Qt::SkipEmptyParts);
    return {words.begin(), words.end()};
}

bool anyOf(std::string_view candidates, const Words &words)
{
    return words.intersects(wordsOf(candidates));
}

const Rule &ruleFor(const Words &words, const Turn &turn)
{
    const bool isDone = !turn.hasNewerMessage && turn.text.find('?') == std::string_view::npos;
    const auto found = std::find_if(rules.begin(), rules.end(), [&](const Rule &rule) {
        return anyOf(rule.keywords, words) && !anyOf(rule.excludedWords, words) &&
               (isDone || rule.effect != Effect::Close);
    });
    return found == rules.end() ? fallbackRule : *found;
}

std::string withHours(std::string_view reply, const Turn &turn)
{
    constexpr std::string_view placeholder = "{hours}";
    std::string text(reply);
    if (const auto at = text.find(placeholder); at != std::string::npos)
        text.replace(at, placeholder.size(), turn.openingHours);
    return text;
}

std::string acknowledgement(int count)
{
    return count == 1 ? "I have your attachment. "
                      : "I have your " + std::to_string(count) + " attachments. ";
}

} // namespace

Reply replyTo(const Turn &turn)
{
    const Words words = wordsOf(turn.text);
    const Rule &rule = ruleFor(words, turn);
    const bool isHuman = turn.assignee == Author::Human;
    Reply reply;
    if (anyOf(greetings, words))
        reply.text += "Hello! ";
    if (turn.attachmentCount > 0)
        reply.text += acknowledgement(turn.attachmentCount);
    reply.text += withHours(isHuman ? rule.human : rule.ai, turn);
    // The human agent cannot hand over.
    reply.effect = isHuman && rule.effect == Effect::HandOver ? Effect::None : rule.effect;
    return reply;
}

std::string introduction()
{
    return "Hi, this is *Maya*. I have read what you wrote so far. What would you like me to do?";
}

} // namespace tolvane::backend
