// SPDX-License-Identifier: MIT
#pragma once

#include "linesource.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace tolvane::console {

/// Where a person types commands and reads what happens.
///
/// At a terminal there is a prompt with line editing and history, and what happens meanwhile is
/// printed above it. From a file or a pipe commands are echoed instead, so that the output reads
/// like a session.
class Terminal
{
public:
    Terminal(std::function<void(const QString &)> onLine, std::function<void()> onEnd);
    ~Terminal();
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    void print(const QString &text);

    /// Shows a command that is about to run, where nobody has typed it here.
    void echo(const QString &command);

    /// The text with an ANSI style, or as it is where the output shows none.
    QString styled(const char *style, const QString &text) const;

    bool isInteractive() const { return m_editing; }

private:
    void startEditing();
    void readKey();
    /// Draws the line being edited anew, beneath what comes in its place.
    void redraw(const QByteArray &above);

    std::function<void(const QString &)> m_onLine;
    std::function<void()> m_onEnd;
    bool m_editing = false;
    bool m_colors = false;
    std::unique_ptr<QSocketNotifier> m_keys;
    std::unique_ptr<LineSource> m_lines;
};

} // namespace tolvane::console
